#include "solver/VrexSolverFaults.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexGeometrySet3D.h"
#include "solver/VrexSolverEntity.h"
#include "solver/VrexSolverNames.h"

namespace {

bool hasNull(const auto& objects) {
    return std::find(objects.begin(), objects.end(), nullptr) != objects.end();
}

bool isFinite(const VrexVector3DT<double>& v) {
    return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

bool isFinite(const VrexSolverEntity& entity) {
    return isFinite(entity.frame.origin) && isFinite(entity.frame.axes[0]) &&
           isFinite(entity.frame.axes[2]) && std::isfinite(entity.sizes[0]) && std::isfinite(entity.sizes[1]);
}

/// As of a rotation that is zero.
bool hasNoDirection(const VrexSolverEntity& entity) {
    constexpr double least = 1e-12;
    return entity.frame.axes[2].magnitude() < least;
}

std::string faultOf(VrexBaseGeometry& geometry) {
    const auto* const set = dynamic_cast<const VrexGeometrySet3D*>(&geometry);
    if (set != nullptr && hasNull(set->geometries())) {
        return " has a member that is missing.";
    }
    const std::optional<VrexSolverEntity> entity = VrexSolverEntity::of(geometry);
    if (!entity.has_value()) {
        return {};
    }
    if (!isFinite(*entity)) {
        return " holds a number that is not finite.";
    }
    return hasNoDirection(*entity) ? " has a direction without length." : "";
}

std::string faultOf(const VrexBaseConstraint& constraint) {
    return hasNull(constraint.getGeometries()) ? " binds an entity that is missing." : "";
}

template <class Objects>
std::string findAmong(const Objects& objects) {
    for (const auto& object : objects) {
        const std::string fault = faultOf(*object);
        if (!fault.empty()) {
            return nsSolverNames::nameOf(*object).append(fault);
        }
    }
    return {};
}

} // namespace

std::string nsSolverFaults::find(const VrexSolverModel::Geometries& geometries,
                                 const VrexSolverModel::Constraints& constraints) {
    const std::string fault = findAmong(geometries);
    return fault.empty() ? findAmong(constraints) : fault;
}
