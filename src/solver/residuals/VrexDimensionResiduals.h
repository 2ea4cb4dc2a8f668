#pragma once

#include "solver/model/VrexSolverBuilder.h"

class VrexDimension3D;

/// What all dimensions share: a value that is given or driven by a variable, and limits.
namespace nsDimensionResiduals {

/// Keeps `measure` at the value. With a bound variable the two follow each other: the variable stays within
/// the limits, and where the dimension is rigid it stays at its value. In an equality of dimensions so does
/// the value that it has with the others. `unit` is what one row is of it: the
/// component's length for a length, 1 for an angle. Without a measure nothing is added.
///
/// Throws `std::invalid_argument` that names the dimension where the value is not finite or the limits leave
/// no room for it.
void add(VrexSolverBuilder& builder, const VrexDimension3D& dimension,
         const VrexSolverBuilder::Measure& measure, double unit);

/// The value as a number that varies where a variable is bound, and in an equality of dimensions.
VrexSolverBuilder::Measure valueOf(const VrexSolverBuilder& builder, const VrexDimension3D& dimension);

/// Whether the value is the number zero for good.
bool isAlwaysZero(const VrexSolverBuilder& builder, const VrexDimension3D& dimension);

} // namespace nsDimensionResiduals
