#include "solver/model/VrexSolverFaults.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexGeometrySet3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "solver/model/VrexSolverEntity.h"
#include "solver/model/VrexSolverNames.h"

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

bool isLarge(const VrexVector3DT<double>& v) {
    return std::max({std::abs(v.x()), std::abs(v.y()), std::abs(v.z())}) > nsSolverFaults::LARGEST_NUMBER;
}

bool isLarge(const VrexSolverEntity& entity) {
    return isLarge(entity.frame.origin) || isLarge({entity.sizes[0], entity.sizes[1], 0.0});
}

/// As of a rotation that is zero.
bool hasNoDirection(const VrexSolverEntity& entity) {
    constexpr double least = 1e-12;
    return entity.frame.axes[2].magnitude() < least;
}

/// Whether it stands nowhere for the sake of what carries it, which is an entity of its own.
bool isCarriedNowhere(const VrexBaseGeometry& entity) {
    const auto* const connector = dynamic_cast<const VrexConnector3D*>(&entity);
    return connector != nullptr && connector->getRigidSet() != nullptr &&
           !isFinite(*VrexSolverEntity::of(*connector->getRigidSet()));
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
    if (!isFinite(*entity) && !isCarriedNowhere(geometry)) {
        return " holds a number that is not finite.";
    }
    if (isLarge(*entity)) {
        return " holds a number beyond 1e100.";
    }
    return hasNoDirection(*entity) ? " has a direction without length." : "";
}

std::string faultOf(const VrexBaseConstraint& constraint) {
    return hasNull(constraint.getGeometries()) ? " binds an entity that is missing." : "";
}

/// Of an entity that is dragged by these numbers, if it is one of the model.
std::string faultOf(const std::shared_ptr<VrexBaseGeometry>& dragged, std::span<const double> numbers,
                    const VrexSolverModel& model) {
    if (dragged == nullptr || model.shape(*dragged) == nullptr) {
        return {};
    }
    if (!std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); })) {
        return nsSolverNames::nameOf(*dragged).append(" is dragged to a number that is not finite.");
    }
    const bool isBeyond = std::ranges::any_of(
        numbers, [](double number) { return std::abs(number) > nsSolverFaults::LARGEST_NUMBER; });
    return isBeyond ? nsSolverNames::nameOf(*dragged).append(" is dragged to a number beyond 1e100.") : "";
}

std::string faultOf(const VrexDragTransform3D& transform, const VrexSolverModel& model) {
    for (std::uint64_t row = 0; row < 3; ++row) { // the last one holds no motion
        std::string fault = faultOf(transform.geometry, transform.matrix[row], model);
        if (!fault.empty()) {
            return fault;
        }
    }
    return {};
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

std::string nsSolverFaults::find(const VrexTransform3D& drag, const VrexSolverModel& model) {
    std::string fault;
    for (const VrexDragTransform3D& transform : drag.transformations()) {
        fault = fault.empty() ? faultOf(transform, model) : fault;
    }
    for (const VrexDragParameter3D& parameter : drag.transformParameters()) {
        fault = fault.empty() ? faultOf(parameter.geometry, {&parameter.value, 1}, model) : fault;
    }
    for (const VrexDragVariable& variable : drag.variableTransformations()) {
        fault = fault.empty() ? faultOf(variable.variable, {&variable.value, 1}, model) : fault;
    }
    return fault;
}
