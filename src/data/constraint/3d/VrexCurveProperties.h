#pragma once

#include <cstddef>
#include <iterator>
#include <optional>

#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexCurveProperty3DType.h"

/// Hidden: the types of constraints of curve properties.
namespace nsCurveProperties {

/// In the order of the properties.
inline constexpr VrexConstraint3DType CONSTRAINT_TYPES[] = {
    VrexConstraint3DType::EqualDirection3D,           VrexConstraint3DType::EqualCurvature3D,
    VrexConstraint3DType::EqualFirstDerivative3D,     VrexConstraint3DType::EqualSecondDerivative3D,
    VrexConstraint3DType::EqualCurvatureDerivative3D,
};

/// `Unknown` for a value beyond the five.
constexpr VrexConstraint3DType constraintType(VrexCurveProperty3DType property) {
    const auto index = static_cast<std::size_t>(property);
    return index < std::size(CONSTRAINT_TYPES) ? CONSTRAINT_TYPES[index] : VrexConstraint3DType::Unknown;
}

/// Empty for a constraint of another type.
constexpr std::optional<VrexCurveProperty3DType> property(VrexConstraint3DType type) {
    for (std::size_t i = 0; i < std::size(CONSTRAINT_TYPES); ++i) {
        if (CONSTRAINT_TYPES[i] == type) {
            return static_cast<VrexCurveProperty3DType>(i);
        }
    }
    return std::nullopt;
}

} // namespace nsCurveProperties
