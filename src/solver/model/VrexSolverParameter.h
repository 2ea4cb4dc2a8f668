#pragma once

#include "solver/model/VrexSolverBuilder.h"

class VrexVariableDescriptor;

/// A single parameter of an entity, as equations name it, while bodies move.
namespace nsSolverParameter {

/// Reads the parameter with its derivatives by the unknowns. Angles of a direction are told by where it
/// points: the polar one from 0 to pi, the azimuthal one from -pi to pi. Empty for what has no shape, and for
/// the components of a rotation.
VrexSolverBuilder::Measure measureOf(const VrexSolverBuilder& builder,
                                     const VrexVariableDescriptor& descriptor);

} // namespace nsSolverParameter
