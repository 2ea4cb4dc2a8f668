#include "data/serialization/3d/VrexObjectDecoder3D.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "data/VrexVariableDescriptor.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
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
#include "data/serialization/VrexStreamReading.h"

namespace {

using nsStreamReading::readReference;
using nsStreamReading::readReferenceList;

using Stream = VrexStreamDecoder;
using Vector = VrexVector3DT<double>;
using Made = std::shared_ptr<VrexGeometry3D>;
using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

/// Reads the values of `create` in its order.
template <class Geometry, class... Values>
Made readPlain(Stream& stream) {
    std::tuple<Values...> values;
    const auto read = [&stream](auto&... each) { return stream.readPacked(each...); };
    return std::apply(read, values) ? std::apply(Geometry::create, values) : nullptr;
}

/// The curve, trimmed as the stream says; null where that cannot be read.
Made trimmed(Stream& stream, const std::shared_ptr<VrexParametricCurve3D>& curve) {
    return stream.readOptionalF64(curve->start()) && stream.readOptionalF64(curve->end()) ? curve : nullptr;
}

Made readCircle(Stream& stream) {
    Vector center;
    Vector normal;
    double radius = 0.0;
    return stream.readPacked(center, normal, radius)
               ? trimmed(stream, VrexCircle3D::create(center, normal, radius))
               : nullptr;
}

Made readEllipse(Stream& stream) {
    Vector center;
    Vector normal;
    Vector direction;
    double major = 0.0;
    double minor = 0.0;
    return stream.readPacked(center, normal, direction, major, minor)
               ? trimmed(stream, VrexEllipse3D::create(center, direction, normal, major, minor))
               : nullptr;
}

Made readRigidSet(Stream& stream) {
    Vector center;
    Vector axis;
    double angle = 0.0;
    std::vector<std::shared_ptr<VrexGeometry3D>> members;
    if (!stream.readPacked(center, axis, angle) || !readReferenceList(stream, members)) {
        return nullptr;
    }
    auto set = VrexRigidSet3D::create(std::move(members));
    set->setOrigin(center);
    return set->setRotation(angle, axis) ? set : nullptr;
}

/// The identifier 0 stands for no rigid set.
Made readConnector(Stream& stream) {
    std::uint64_t id = 0;
    Vector translation;
    Vector axis;
    double angle = 0.0;
    if (!stream.readPacked(id, translation, axis, angle)) {
        return nullptr;
    }
    auto set = id == 0 ? nullptr : nsStreamReading::find<VrexRigidSet3D>(stream, id);
    if (id != 0 && set == nullptr) {
        return nullptr;
    }
    auto connector = VrexConnector3D::create(std::move(set));
    connector->setTransformation({translation, angle, axis});
    return connector;
}

bool readControlPoints(Stream& stream, ControlPoints& out) {
    return stream.readList([&] {
        auto& [point, weight] = out.emplace_back();
        return readReference(stream, point) && stream.readF64(weight);
    });
}

/// Rows of as many control points each.
bool readNet(Stream& stream, std::vector<ControlPoints>& out) {
    return stream.readList([&] {
        ControlPoints& row = out.emplace_back();
        return readControlPoints(stream, row) && row.size() == out.front().size();
    });
}

Made readNURBSSurface(Stream& stream) {
    VrexNURBSSurface3D::VrexNURBSOptions options{};
    const bool read = stream.readPacked(options.uDegree, options.vDegree) &&
                      stream.readF64List(options.uKnots) && stream.readF64List(options.vKnots) &&
                      readNet(stream, options.controlPoints);
    return read ? VrexNURBSSurface3D::create(options) : nullptr;
}

Made readSpline(Stream& stream) {
    VrexSpline3D::VrexSplineOptions options{};
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    std::vector<double> parameters;
    if (!stream.readPacked(options.degree) || !stream.readF64List(options.knots) ||
        !stream.readBool(options.periodic) || !readControlPoints(stream, options.controlPoints) ||
        !readReferenceList(stream, points) || !stream.readF64List(parameters)) {
        return nullptr;
    }
    auto spline = VrexSpline3D::create(options);
    spline->setInterpolatedPoints(std::move(points));
    spline->setInterpolatedParameters(std::move(parameters));
    return trimmed(stream, spline);
}

Made readSpinSurface(Stream& stream) {
    std::shared_ptr<VrexLine3D> axis;
    std::shared_ptr<VrexParametricCurve3D> profile;
    return readReference(stream, axis) && readReference(stream, profile)
               ? VrexSpinSurface3D::create(profile, axis)
               : nullptr;
}

Made readSweepSurface(Stream& stream) {
    std::shared_ptr<VrexParametricCurve3D> profile;
    std::shared_ptr<VrexLine3D> trajectory;
    std::pair<std::optional<double>, std::optional<double>> range;
    return readReference(stream, profile) && readReference(stream, trajectory) &&
                   stream.readOptionalF64(range.first) && stream.readOptionalF64(range.second)
               ? VrexSweepSurface3D::create(profile, trajectory, range)
               : nullptr;
}

/// Kept: texts that are refused come along all the same, as the curve they were read from had them.
Made readEvaluatedCurve(Stream& stream) {
    Vector center;
    double angle = 0.0;
    Vector axis;
    std::array<std::string, 3> texts;
    std::vector<VrexVariableDescriptor> descriptors;
    if (!stream.readPacked(center, angle, axis) || !stream.readString(texts[0]) ||
        !stream.readString(texts[1]) || !stream.readString(texts[2]) ||
        !stream.readDescriptorList(descriptors)) {
        return nullptr;
    }
    const auto curve = VrexEvaluatedCurve3D::create(center, VrexQuaternionT<double>::ONE(),
                                                    std::move(descriptors), texts[0], texts[1], texts[2]);
    return curve->setRotation(angle, axis) ? trimmed(stream, curve) : nullptr;
}

Made readPattern(Stream& stream) {
    VrexPattern3DType type{};
    std::shared_ptr<VrexLine3D> axis;
    double value = 0.0;
    return nsStreamReading::readKnown(stream, type) && readReference(stream, axis) && stream.readF64(value)
               ? VrexPattern3D::create(type, axis, value)
               : nullptr;
}

Made readArrayPattern(Stream& stream) {
    std::vector<std::shared_ptr<VrexPattern3D>> patterns;
    return readReferenceList(stream, patterns) ? VrexArrayPattern3D::create(std::move(patterns)) : nullptr;
}

struct Row {
    VrexGeometry3DType type;
    Made (*read)(Stream&);
};

/// In the order of the types; without a reader the type has no form in streams.
constexpr Row ROWS[] = {
    {VrexGeometry3DType::POINT, readPlain<VrexPoint3D, double, double, double>},
    {VrexGeometry3DType::LINE, readPlain<VrexLine3D, Vector, Vector>},
    {VrexGeometry3DType::PLANE, readPlain<VrexPlane3D, Vector, Vector>},
    {VrexGeometry3DType::RIGID_SET, readRigidSet},
    {VrexGeometry3DType::NURBS_SURFACE, readNURBSSurface},
    {VrexGeometry3DType::CYLINDER, readPlain<VrexCylinder3D, Vector, Vector, double>},
    {VrexGeometry3DType::SPHERE, readPlain<VrexSphere3D, Vector, double>},
    {VrexGeometry3DType::CIRCLE, readCircle},
    {VrexGeometry3DType::SPLINE, readSpline},
    {VrexGeometry3DType::CONE, readPlain<VrexCone3D, Vector, Vector, double>},
    {VrexGeometry3DType::ELLIPSE, readEllipse},
    {VrexGeometry3DType::TORUS, readPlain<VrexTorus3D, Vector, Vector, double, double>},
    {VrexGeometry3DType::CONNECTOR, readConnector},
    {VrexGeometry3DType::SPIN_SURFACE, readSpinSurface},
    {VrexGeometry3DType::EVAL_SURFACE, nullptr},
    {VrexGeometry3DType::EVAL_CURVE, readEvaluatedCurve},
    {VrexGeometry3DType::SWEEP_SURFACE, readSweepSurface},
    {VrexGeometry3DType::PATTERN, readPattern},
    {VrexGeometry3DType::ARRAY_PATTERN, readArrayPattern},
    {VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT, readPlain<VrexEqualDimensionElement3D, double>},
};

consteval bool namesEachTypeInOrder() {
    for (std::size_t i = 0; i < std::size(ROWS); ++i) {
        if (ROWS[i].type != static_cast<VrexGeometry3DType>(i)) {
            return false;
        }
    }
    return std::size(ROWS) == static_cast<std::size_t>(VrexGeometry3DType::TYPES_COUNT);
}
static_assert(namesEachTypeInOrder());

} // namespace

std::shared_ptr<VrexGeometry3D> VrexObjectDecoder3D::readGeometry(VrexStreamDecoder& stream) {
    std::uint32_t type = 0;
    if (!stream.readU32(type) || type >= std::size(ROWS) || ROWS[type].read == nullptr) {
        return nullptr;
    }
    return ROWS[type].read(stream);
}
