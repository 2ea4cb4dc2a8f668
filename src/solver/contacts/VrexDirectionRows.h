#pragma once

#include "solver/model/VrexSolverBuilder.h"
#include "solver/system/VrexSolverShape.h"

class VrexConstraint;

/// How the axes of two entities stand to each other: the rows that contacts add, two angles or one.
namespace nsDirectionRows {

/// Whether the alignment says which way parallel axes point.
bool isAsked(const VrexConstraint& constraint);

/// 1 for axes that are to point the same way, -1 for opposite ones: by the alignment, else as they stand.
double senseOf(const VrexConstraint& constraint, const VrexSolverShape& first, const VrexSolverShape& second);

/// Makes the axes parallel, in the sense of `senseOf` or in this one; the opposite one is no solution.
void addParallel(VrexSolverBuilder& builder, const VrexConstraint& constraint, const VrexSolverShape& first,
                 const VrexSolverShape& second);
void addParallel(VrexSolverBuilder& builder, double sense, const VrexSolverShape& first,
                 const VrexSolverShape& second);

/// Puts the axes at a right angle.
void addPerpendicular(VrexSolverBuilder& builder, const VrexSolverShape& first,
                      const VrexSolverShape& second);

} // namespace nsDirectionRows
