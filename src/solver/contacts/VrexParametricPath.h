#pragma once

#include <memory>

#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/contacts/VrexContactPath.h"
#include "solver/model/VrexSolverBuilder.h"

/// Points that run on what has no shape of its own: on a spline, a NURBS surface, an evaluated curve or
/// surface, and on the surfaces that a curve leaves behind where it is spun or swept.
namespace nsParametricPath {

/// Whether there is one for an entity of this kind.
bool isKnown(VrexGeometry3DType kind);
/// Whether it has two parameters.
bool isSurface(VrexGeometry3DType kind);

/// Whether all parts of the entity are the component's, such as control points, and its expressions read what
/// equations can read or what stands still.
bool canRun(const VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& entity);

/// Throws `std::bad_optional_access` without `canRun`. Parameters that the help holds keep their values.
///
///   spline, NURBS        by the library's calculators over the positions of the control points
///   evaluated            o + X x + Y y + Z z, with the expressions' numbers X, Y, Z in the frame (o; x, y,
///   z) spin                 o + M(v) (C(u) - o), with M the turn by v about the axis line through o sweep
///   C(u) + v d
VrexContactPath on(VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& entity,
                   const VrexContactHelp& help);

} // namespace nsParametricPath
