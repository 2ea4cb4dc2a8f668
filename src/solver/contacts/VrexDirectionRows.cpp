#include "solver/contacts/VrexDirectionRows.h"

#include "data/constraint/VrexConstraint.h"
#include "solver/model/VrexSolverDirections.h"

bool nsDirectionRows::isAsked(const VrexConstraint& constraint) {
    return constraint.alignment() == VrexConstraintAlignment::Positive ||
           constraint.alignment() == VrexConstraintAlignment::Negative;
}

double nsDirectionRows::senseOf(const VrexConstraint& constraint, const VrexSolverShape& first,
                                const VrexSolverShape& second) {
    return nsSolverDirections::senseOf(constraint.alignment(),
                                       first.frame().axes[2].dotProduct(second.frame().axes[2]));
}

void nsDirectionRows::addParallel(VrexSolverBuilder& builder, double sense, const VrexSolverShape& first,
                                  const VrexSolverShape& second) {
    builder.add(2, [first = &first, second = &second, sense](VrexVariable* rows) {
        const auto axis = second->axisZ() * sense;
        rows[0] = nsSolverDirections::tilt(*first, axis, 0);
        rows[1] = nsSolverDirections::tilt(*first, axis, 1);
    });
}

void nsDirectionRows::addParallel(VrexSolverBuilder& builder, const VrexConstraint& constraint,
                                  const VrexSolverShape& first, const VrexSolverShape& second) {
    addParallel(builder, senseOf(constraint, first, second), first, second);
}

void nsDirectionRows::addPerpendicular(VrexSolverBuilder& builder, const VrexSolverShape& first,
                                       const VrexSolverShape& second) {
    builder.add(1, [first = &first, second = &second](VrexVariable* rows) {
        rows[0] = first->axisZ().dotProduct(second->axisZ());
    });
}
