#pragma once

#include "solver/VrexSolverBuilder.h"

class VrexDimension3D;

/// What all dimensions ask for, whatever they measure.
namespace nsDimensionResiduals {

/// Keeps `measure` at the value of the dimension and within its limits; a value beyond them contradicts
/// itself. `unit` is what one row is of it: the component's length for a length, 1 for an angle.
///
/// The value is the dimension's number; with a bound variable it is that of the variable, which may vary
/// unless the dimension is rigid; in an equality of dimensions it is the common one, and is written into the
/// dimension in the end. Throws `std::invalid_argument` for a value that is not finite.
void add(VrexSolverBuilder& builder, VrexDimension3D& dimension, const VrexSolverBuilder::Measure& measure,
         double unit);

} // namespace nsDimensionResiduals
