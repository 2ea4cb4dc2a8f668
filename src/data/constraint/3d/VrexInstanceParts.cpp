#include "data/constraint/3d/VrexInstanceParts.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"

namespace {

// The pairs of parts of two geometries of one class.

void addParts(const VrexRigidSet3D& first, const VrexRigidSet3D& second, VrexGeometryPairs& pairs) {
    pairs.addAll(first.geometries(), second.geometries());
}

void addParts(const VrexSpinSurface3D& first, const VrexSpinSurface3D& second, VrexGeometryPairs& pairs) {
    pairs.add(first.getProfileCurve(), second.getProfileCurve());
    pairs.add(first.getAxisLine(), second.getAxisLine());
}

void addParts(const VrexSweepSurface3D& first, const VrexSweepSurface3D& second, VrexGeometryPairs& pairs) {
    pairs.add(first.getProfileCurve(), second.getProfileCurve());
    pairs.add(first.getTrajectoryLine(), second.getTrajectoryLine());
}

void addParts(const VrexSpline3D& first, const VrexSpline3D& second, VrexGeometryPairs& pairs) {
    pairs.addAll(first.getInterpolatedPoints(), second.getInterpolatedPoints());
}

// And of their control points.

using Row = std::vector<VrexSpline3D::ControlPoint>;

void addRow(const Row& first, const Row& second, VrexGeometryPairs& pairs) {
    for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i) {
        pairs.add(first[i].point, second[i].point);
    }
}

void addControlPoints(const VrexSpline3D& first, const VrexSpline3D& second, VrexGeometryPairs& pairs) {
    addRow(first.controlPoints(), second.controlPoints(), pairs);
}

void addControlPoints(const VrexNURBSSurface3D& first, const VrexNURBSSurface3D& second,
                      VrexGeometryPairs& pairs) {
    for (std::size_t i = 0; i < std::min(first.controlPoints().size(), second.controlPoints().size()); ++i) {
        addRow(first.controlPoints()[i], second.controlPoints()[i], pairs);
    }
}

/// Adds what `add` finds where both are of one class.
template <class Geometry>
void addAs(const VrexGeometryPairs::Pair& pair, VrexGeometryPairs& pairs,
           void (*add)(const Geometry&, const Geometry&, VrexGeometryPairs&)) {
    const auto* const first = dynamic_cast<const Geometry*>(pair.first.get());
    const auto* const second = dynamic_cast<const Geometry*>(pair.second.get());
    if (first != nullptr && second != nullptr) {
        add(*first, *second, pairs);
    }
}

/// Asks for the kind first: most geometries have no parts, and casts cost.
void addParts(const VrexGeometryPairs::Pair& pair, VrexGeometryPairs& pairs) {
    if (pair.second == nullptr) {
        return;
    }
    switch (pair.second->type()) {
    case VrexGeometry3DType::RIGID_SET:
        return addAs<VrexRigidSet3D>(pair, pairs, addParts);
    case VrexGeometry3DType::SPIN_SURFACE:
        return addAs<VrexSpinSurface3D>(pair, pairs, addParts);
    case VrexGeometry3DType::SWEEP_SURFACE:
        return addAs<VrexSweepSurface3D>(pair, pairs, addParts);
    case VrexGeometry3DType::SPLINE:
        return addAs<VrexSpline3D>(pair, pairs, addParts);
    default:
        return;
    }
}

void addControlPoints(const VrexGeometryPairs::Pair& pair, VrexGeometryPairs& pairs) {
    if (pair.second == nullptr) {
        return;
    }
    if (pair.second->type() == VrexGeometry3DType::SPLINE) {
        addAs<VrexSpline3D>(pair, pairs, addControlPoints);
    } else if (pair.second->type() == VrexGeometry3DType::NURBS_SURFACE) {
        addAs<VrexNURBSSurface3D>(pair, pairs, addControlPoints);
    }
}

} // namespace

namespace nsInstanceParts {

std::vector<std::shared_ptr<VrexGeometry3D>> reachableFrom(const std::shared_ptr<VrexGeometry3D>& geometry) {
    std::vector<std::shared_ptr<VrexGeometry3D>> reached{geometry};
    std::unordered_set<const VrexGeometry3D*> known{geometry.get()};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        auto parts = reached[i]->geometries();
        std::erase_if(parts, [&known](const auto& part) { return !known.insert(part.get()).second; });
        reached.insert(reached.end(), parts.begin(), parts.end());
    }
    return reached;
}

VrexGeometryPairs pairsOf(const std::shared_ptr<VrexGeometry3D>& first,
                          const std::shared_ptr<VrexGeometry3D>& second) {
    VrexGeometryPairs pairs(first, second);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        addParts(pairs[i], pairs);
    }
    return pairs;
}

std::vector<std::shared_ptr<VrexGeometry3D>> unpairedOf(VrexGeometryPairs pairs) {
    for (std::size_t i = 0, count = pairs.size(); i < count; ++i) {
        addControlPoints(pairs[i], pairs);
    }
    std::unordered_set<std::shared_ptr<VrexGeometry3D>> unpaired;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (pairs[i].first == nullptr) {
            unpaired.insert(pairs[i].second);
        }
    }
    for (std::size_t i = 0; i < pairs.size() && !unpaired.empty(); ++i) {
        if (pairs[i].first != nullptr) {
            unpaired.erase(pairs[i].second);
        }
    }
    return {unpaired.begin(), unpaired.end()};
}

} // namespace nsInstanceParts
