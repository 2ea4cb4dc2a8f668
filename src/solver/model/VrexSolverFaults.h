#pragma once

#include <string>

#include "solver/model/VrexSolverModel.h"

class VrexTransform3D;

/// What makes a component impossible to solve before anything is tried.
namespace nsSolverFaults {

/// The largest number that is taken: what is larger might overflow where lengths are squared.
constexpr double LARGEST_NUMBER = 1e100;

/// Names the first object that lacks an entity that it is made of or binds, that holds a number that is not
/// finite or too large, or whose direction has no length. Empty where there is none.
std::string find(const VrexSolverModel::Geometries& geometries,
                 const VrexSolverModel::Constraints& constraints);

/// Names the first entity of the model that the drag takes to where no number leads: by a matrix, to a size
/// or to a value with numbers that are not finite or too large. Empty where there is none.
std::string find(const VrexTransform3D& drag, const VrexSolverModel& model);

} // namespace nsSolverFaults
