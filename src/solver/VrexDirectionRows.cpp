#include "solver/VrexDirectionRows.h"

#include "data/constraint/VrexConstraint.h"

bool nsDirectionRows::isAsked(const VrexConstraint& constraint) {
    return constraint.alignment() == VrexConstraintAlignment::Positive ||
           constraint.alignment() == VrexConstraintAlignment::Negative;
}

double nsDirectionRows::senseOf(const VrexConstraint& constraint, const VrexSolverShape& first,
                                const VrexSolverShape& second) {
    if (isAsked(constraint)) {
        return constraint.alignment() == VrexConstraintAlignment::Positive ? 1.0 : -1.0;
    }
    return first.frame().axes[2].dotProduct(second.frame().axes[2]) < 0.0 ? -1.0 : 1.0;
}

void nsDirectionRows::addParallel(VrexSolverBuilder& builder, const VrexConstraint& constraint,
                                  const VrexSolverShape& first, const VrexSolverShape& second) {
    addParallel(builder, senseOf(constraint, first, second), first, second);
}

void nsDirectionRows::addParallel(VrexSolverBuilder& builder, double sense, const VrexSolverShape& first,
                                  const VrexSolverShape& second) {
    builder.add(2, [first = &first, second = &second, sense](VrexVariable* rows) {
        // Grows without bounds towards the opposite way, so that a search turns away from it.
        constexpr double least = 1e-3;
        const auto axis = second->axisZ() * sense;
        const VrexVariable weight = 2.0 / (first->axisZ().dotProduct(axis) + (1.0 + least));
        rows[0] = first->axisX().dotProduct(axis) * weight;
        rows[1] = first->axisY().dotProduct(axis) * weight;
    });
}

void nsDirectionRows::addPerpendicular(VrexSolverBuilder& builder, const VrexSolverShape& first,
                                       const VrexSolverShape& second) {
    builder.add(1, [first = &first, second = &second](VrexVariable* rows) {
        rows[0] = first->axisZ().dotProduct(second->axisZ());
    });
}
