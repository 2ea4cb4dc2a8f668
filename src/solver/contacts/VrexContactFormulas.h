#pragma once

#include "data/VrexVariable.h"
#include "solver/contacts/VrexSolverCore.h"
#include "solver/system/VrexSolverShape.h"

/// Distances of points from entities, as numbers that vary with both.
namespace nsContactFormulas {

using Vector = VrexSolverShape::Vector;

Vector constant(const VrexVector3DT<double>& v);
VrexVector3DT<double> valueOf(const Vector& v);

/// A length and the direction in which it grows.
struct Reach {
    VrexVariable length;
    Vector direction; ///< Of unit length.
};

/// |v| and v / |v|. Where v vanishes both are those of the part of v along `fallback`, a unit vector, so that
/// the derivatives stay finite and a search finds a way out.
Reach reachOf(const Vector& v, const VrexVector3DT<double>& fallback);

/// How far `point` is from a point, a line, a circle, a plane or a cone, and the way that leads off it. It is
/// positive but for a plane, where it is positive on the side of the normal, and for a cone, where it is
/// negative inside.
///
///   circle   hypot(rho - R, h), with h the height over its plane, rho the distance from its axis;
///            hypot(rho + R, h) to the point of it that lies opposite
///   cone     rho cos(alpha) - h sin(alpha), with h the height over the apex; behind the apex, where no
///            generator is near, the distance from the apex
Reach reachFrom(const VrexSolverCore& core, const Vector& point, bool isOpposite);

/// Numbers that are zero where `point` lies on the core, as many as that takes degrees of freedom; lengths.
/// A circle counts as the point of it on the same side, or on the opposite one.
struct Rows {
    VrexVariable rows[3];
    std::size_t count;
};
Rows touchRows(const VrexSolverCore& core, const Vector& point, bool isOpposite);

} // namespace nsContactFormulas
