#include "data/serialization/3d/VrexGeometryReplay.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"

namespace {

using nsReplayArguments::allArguments;
using nsReplayArguments::createOf;
using nsReplayArguments::Geometries;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Vector = VrexVector3DT<double>;

constexpr double UNIT = 1.0;
constexpr double MAJOR_RADIUS = 2.0;

/// Of an ellipse the major radius is the larger one.
Geometry createEllipse(const Geometries&) {
    return VrexEllipse3D::create(Vector::ZERO(), Vector::ZERO(), Vector::ZERO(), MAJOR_RADIUS, UNIT);
}

Geometry createRigidSet(const Geometries& arguments) {
    auto members = allArguments<VrexGeometry3D>(arguments);
    return members.has_value() ? VrexRigidSet3D::create(std::move(*members)) : nullptr;
}

Geometry createConnector(const Geometries& arguments) {
    if (arguments.empty()) {
        return VrexConnector3D::create(nullptr);
    }
    return createOf<VrexRigidSet3D>(arguments, VrexConnector3D::create);
}

/// A list of points with unit weights; empty if one of the arguments is no point.
std::optional<std::vector<VrexSpline3D::ControlPoint>> controlPointsOf(const Geometries& arguments) {
    const auto points = allArguments<VrexPoint3D>(arguments);
    if (!points.has_value()) {
        return std::nullopt;
    }
    std::vector<VrexSpline3D::ControlPoint> controlPoints;
    controlPoints.reserve(points->size());
    for (const auto& point : *points) {
        controlPoints.push_back({point, UNIT});
    }
    return controlPoints;
}

Geometry createSpline(const Geometries& arguments) {
    auto controlPoints = controlPointsOf(arguments);
    if (!controlPoints.has_value()) {
        return nullptr;
    }
    const VrexSpline3D::VrexSplineOptions options{1, false, {}, std::move(*controlPoints)};
    return VrexSpline3D::create(options);
}

/// A net of one row, so that there are parameters for all points.
Geometry createSurface(const Geometries& arguments) {
    auto controlPoints = controlPointsOf(arguments);
    if (!controlPoints.has_value()) {
        return nullptr;
    }
    VrexNURBSSurface3D::VrexNURBSOptions options{1, 1, {}, {}, {}};
    options.controlPoints.push_back(std::move(*controlPoints));
    return VrexNURBSSurface3D::create(options);
}

template <class Surface>
Geometry createDrawn(const Geometries& arguments) {
    return createOf<VrexParametricCurve3D, VrexLine3D>(arguments, [](const auto& profile, const auto& line) {
        if constexpr (requires { Surface::create(profile, line); }) {
            return Surface::create(profile, line);
        } else {
            return Surface::create(profile, line, {});
        }
    });
}

template <class Evaluated>
Geometry createEvaluated(const Geometries&) {
    return Evaluated::create(Vector::ZERO(), VrexQuaternionT<double>::ONE());
}

Geometry createPattern(const Geometries& arguments) {
    return createOf<VrexLine3D>(arguments, [](const auto& axis) {
        return VrexPattern3D::create(VrexPattern3DType::Linear3D, axis, UNIT);
    });
}

Geometry createArrayPattern(const Geometries& arguments) {
    auto patterns = allArguments<VrexPattern3D>(arguments);
    return patterns.has_value() ? VrexArrayPattern3D::create(std::move(*patterns)) : nullptr;
}

struct Row {
    VrexGeometry3DType type;
    Geometry (*create)(const Geometries& arguments);
};

/// In the order of the types.
constexpr Row ROWS[] = {
    {VrexGeometry3DType::POINT, [](const Geometries&) -> Geometry { return VrexPoint3D::create(0, 0, 0); }},
    {VrexGeometry3DType::LINE,
     [](const Geometries&) -> Geometry { return VrexLine3D::create(Vector::ZERO(), Vector::ZERO()); }},
    {VrexGeometry3DType::PLANE,
     [](const Geometries&) -> Geometry { return VrexPlane3D::create(Vector::ZERO(), Vector::ZERO()); }},
    {VrexGeometry3DType::RIGID_SET, createRigidSet},
    {VrexGeometry3DType::NURBS_SURFACE, createSurface},
    {VrexGeometry3DType::CYLINDER,
     [](const Geometries&) -> Geometry {
         return VrexCylinder3D::create(Vector::ZERO(), Vector::ZERO(), UNIT);
     }},
    {VrexGeometry3DType::SPHERE,
     [](const Geometries&) -> Geometry { return VrexSphere3D::create(Vector::ZERO(), UNIT); }},
    {VrexGeometry3DType::CIRCLE,
     [](const Geometries&) -> Geometry {
         return VrexCircle3D::create(Vector::ZERO(), Vector::ZERO(), UNIT);
     }},
    {VrexGeometry3DType::SPLINE, createSpline},
    {VrexGeometry3DType::CONE,
     [](const Geometries&) -> Geometry { return VrexCone3D::create(Vector::ZERO(), Vector::ZERO(), UNIT); }},
    {VrexGeometry3DType::ELLIPSE, createEllipse},
    {VrexGeometry3DType::TORUS,
     [](const Geometries&) -> Geometry {
         return VrexTorus3D::create(Vector::ZERO(), Vector::ZERO(), UNIT, UNIT);
     }},
    {VrexGeometry3DType::CONNECTOR, createConnector},
    {VrexGeometry3DType::SPIN_SURFACE, createDrawn<VrexSpinSurface3D>},
    {VrexGeometry3DType::EVAL_SURFACE, createEvaluated<VrexEvaluatedSurface3D>},
    {VrexGeometry3DType::EVAL_CURVE, createEvaluated<VrexEvaluatedCurve3D>},
    {VrexGeometry3DType::SWEEP_SURFACE, createDrawn<VrexSweepSurface3D>},
    {VrexGeometry3DType::PATTERN, createPattern},
    {VrexGeometry3DType::ARRAY_PATTERN, createArrayPattern},
    {VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT,
     [](const Geometries&) -> Geometry { return VrexEqualDimensionElement3D::create(UNIT); }},
};
static_assert(nsReplayArguments::areComplete(ROWS, VrexGeometry3DType::TYPES_COUNT));

} // namespace

std::shared_ptr<VrexGeometry3D> nsGeometryReplay::create(VrexGeometry3DType type,
                                                         const Geometries& arguments) {
    const auto index = static_cast<std::size_t>(type);
    if (index >= std::size(ROWS)) {
        VREX_RAISE(std::runtime_error, "Failed to replay: geometry not implemented!");
    }
    return ROWS[index].create(arguments);
}
