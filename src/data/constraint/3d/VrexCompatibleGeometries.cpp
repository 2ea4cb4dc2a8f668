#include "data/constraint/3d/VrexCompatibleGeometries.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "data/VrexVariableDescriptor.h"
#include "data/constraint/3d/VrexGeometryPairs.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"

namespace {

/// Ten times the machine epsilon.
constexpr double SURFACE_KNOT_TOLERANCE = 2.220446049250313e-15;
/// Kept: far wider than that of the surface.
constexpr double SPLINE_KNOT_TOLERANCE = 1e-12;

/// A NaN is like nothing.
bool areKnotsAlike(const std::vector<double>& first, const std::vector<double>& second, double tolerance) {
    return std::ranges::equal(first, second,
                              [tolerance](double a, double b) { return std::fabs(a - b) <= tolerance; });
}

bool isSameParameter(const VrexVariableDescriptor& first, const VrexVariableDescriptor& second) {
    return first.index() == second.index() && first.object() == second.object() &&
           first.variableName() == second.variableName();
}

// The own data of two geometries of one class; pairs of parts are added to those still to be compared.

bool isAlike(const VrexRigidSet3D& first, const VrexRigidSet3D& second, VrexGeometryPairs& pairs) {
    pairs.addAll(first.geometries(), second.geometries());
    return first.geometries().size() == second.geometries().size();
}

bool isAlike(const VrexNURBSSurface3D& first, const VrexNURBSSurface3D& second, VrexGeometryPairs&) {
    return first.controlPoints().size() == second.controlPoints().size() &&
           areKnotsAlike(first.uKnots(), second.uKnots(), SURFACE_KNOT_TOLERANCE) &&
           areKnotsAlike(first.vKnots(), second.vKnots(), SURFACE_KNOT_TOLERANCE);
}

bool isAlike(const VrexSpline3D& first, const VrexSpline3D& second, VrexGeometryPairs&) {
    return first.controlPoints().size() == second.controlPoints().size() &&
           areKnotsAlike(first.knots(), second.knots(), SPLINE_KNOT_TOLERANCE);
}

template <class Drawn>
requires requires(const Drawn& surface) { surface.getProfileCurve(); }
bool isAlike(const Drawn& first, const Drawn& second, VrexGeometryPairs& pairs) {
    pairs.add(first.getProfileCurve(), second.getProfileCurve());
    return true;
}

template <class Evaluated>
requires requires(const Evaluated& shape) { shape.descriptors(); }
bool isAlike(const Evaluated& first, const Evaluated& second, VrexGeometryPairs&) {
    return first.getX() == second.getX() && first.getY() == second.getY() && first.getZ() == second.getZ() &&
           std::ranges::equal(first.descriptors(), second.descriptors(), isSameParameter);
}

template <class Geometry>
bool isAlikeAs(const VrexGeometryPairs::Pair& pair, VrexGeometryPairs& pairs) {
    const auto* const first = dynamic_cast<const Geometry*>(pair.first.get());
    const auto* const second = dynamic_cast<const Geometry*>(pair.second.get());
    return first != nullptr && second != nullptr && isAlike(*first, *second, pairs);
}

bool isAlike(const VrexGeometryPairs::Pair& pair, VrexGeometryPairs& pairs) {
    if (pair.first == nullptr || pair.second == nullptr) {
        return pair.first == pair.second;
    }
    if (pair.first->type() != pair.second->type()) {
        return false;
    }
    switch (pair.first->type()) {
    case VrexGeometry3DType::RIGID_SET:
        return isAlikeAs<VrexRigidSet3D>(pair, pairs);
    case VrexGeometry3DType::NURBS_SURFACE:
        return isAlikeAs<VrexNURBSSurface3D>(pair, pairs);
    case VrexGeometry3DType::SPLINE:
        return isAlikeAs<VrexSpline3D>(pair, pairs);
    case VrexGeometry3DType::SPIN_SURFACE:
        return isAlikeAs<VrexSpinSurface3D>(pair, pairs);
    case VrexGeometry3DType::SWEEP_SURFACE:
        return isAlikeAs<VrexSweepSurface3D>(pair, pairs);
    case VrexGeometry3DType::EVAL_CURVE:
        return isAlikeAs<VrexEvaluatedCurve3D>(pair, pairs);
    case VrexGeometry3DType::EVAL_SURFACE:
        return isAlikeAs<VrexEvaluatedSurface3D>(pair, pairs);
    default:
        return true;
    }
}

} // namespace

bool areCompatible(const std::shared_ptr<VrexGeometry3D>& first,
                   const std::shared_ptr<VrexGeometry3D>& second) {
    VrexGeometryPairs pairs(first, second);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (!isAlike(pairs[i], pairs)) {
            return false;
        }
    }
    return true;
}
