#include "solver/residuals/VrexDimensionResiduals.h"

#include <cmath>
#include <stdexcept>
#include <string>

#include "data/VrexEnumTable.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "solver/model/VrexSolverFaults.h"

namespace {

[[noreturn]] void refuse(const VrexDimension3D& dimension, const char* reason) {
    std::string text = nsEnum::toText(dimension.type());
    text.append(" ").append(std::to_string(dimension.getID())).append(reason);
    throw std::invalid_argument(text);
}

void check(const VrexDimension3D& dimension, bool isHeld) {
    const double value = dimension.value();
    const auto& [low, high] = dimension.getLimits();
    if (!std::isfinite(value)) {
        refuse(dimension, " has a value that is not finite.");
    }
    if (std::abs(value) > nsSolverFaults::LARGEST_NUMBER) {
        refuse(dimension, " has a value beyond 1e100.");
    }
    if (std::isnan(low.value_or(value)) || std::isnan(high.value_or(value))) {
        refuse(dimension, " has a limit that is no number.");
    }
    if (low.has_value() && high.has_value() && *low > *high) {
        refuse(dimension, " has a lower limit above the upper one.");
    }
    if (isHeld && (low.value_or(value) > value || high.value_or(value) < value)) {
        refuse(dimension, " has a value outside its limits.");
    }
}

/// The number that varies in place of the dimension's own; null where that holds.
const VrexSolverShape* numberOf(const VrexSolverBuilder& builder, const VrexDimension3D& dimension) {
    return dimension.getVariable() != nullptr ? builder.shape(dimension.getVariable())
                                              : builder.model().commonValue(dimension);
}

} // namespace

VrexSolverBuilder::Measure nsDimensionResiduals::valueOf(const VrexSolverBuilder& builder,
                                                         const VrexDimension3D& dimension) {
    if (const VrexSolverShape* const number = numberOf(builder, dimension)) {
        return [number] { return number->size(0); };
    }
    return [value = dimension.value()] { return VrexVariable(value); };
}

void nsDimensionResiduals::add(VrexSolverBuilder& builder, const VrexDimension3D& dimension,
                               const VrexSolverBuilder::Measure& measure, double unit) {
    const bool isNumber = numberOf(builder, dimension) == nullptr;
    check(dimension, isNumber || dimension.isRigid());
    if (!measure) {
        return;
    }
    const auto value = valueOf(builder, dimension);
    builder.addTarget(measure, value, unit);
    if (isNumber) {
        return; // within its limits it stays so
    }
    if (dimension.isRigid()) {
        builder.addTarget(
            value, [held = dimension.value()] { return VrexVariable(held); }, unit);
    } else {
        builder.addLimits(dimension.getLimits(), value, unit);
    }
}

bool nsDimensionResiduals::isAlwaysZero(const VrexSolverBuilder& builder, const VrexDimension3D& dimension) {
    return dimension.value() == 0.0 && numberOf(builder, dimension) == nullptr;
}
