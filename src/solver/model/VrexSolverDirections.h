#pragma once

#include <memory>

#include "data/VrexVariable.h"
#include "data/constraint/VrexConstraintAlignment.h"
#include "data/constraint/VrexConstraintOrientation.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "solver/system/VrexSolverShape.h"

class VrexBaseGeometry;
class VrexSolverBuilder;

/// Directions and the angles between them, in forms whose derivatives are finite wherever a search begins.
namespace nsSolverDirections {

using Vector = VrexSolverShape::Vector;

/// The shape whose third axis is the direction of the entity: its own, that of the axis of a spin surface or
/// of the line along which a profile is swept. Null for what has no direction, such as a point.
const VrexSolverShape* directed(const VrexSolverBuilder& builder,
                                const std::shared_ptr<VrexBaseGeometry>& geometry);

/// 1 where two directions are to point the same way, -1 for opposite ways; what the alignment leaves open is
/// as it stands, told by the cosine between them.
double senseOf(VrexConstraintAlignment alignment, double cosine);

/// 1 for the side that a normal points to, -1 for the other; what the orientation leaves open is as it
/// stands, told by the sign of `height`.
double sideOf(VrexConstraintOrientation orientation, double height);

/// Of the angles that differ by whole turns the one next to `known`.
VrexVariable nearTo(VrexVariable angle, double known);

/// Of the angles that differ by whole turns the one that lies within the limits, next to `known` where there
/// are several, else the one that is least beyond them. Limits that leave room for a whole turn count turns:
/// from a `known` within them the angle goes on without a jump.
VrexVariable within(const VrexDimensionLimits& limits, const VrexVariable& angle, double known);

/// One of two numbers, of index 0 and 1, that vanish where the unit vector `direction` points along the third
/// axis of `shape`, and there alone. With t the angle between them, their root of squares is 2 tan(t / 2) up
/// to a right angle and 2 + 2 (t - pi / 2) beyond, so that a search turns the right way round also from
/// where they are opposite.
VrexVariable tilt(const VrexSolverShape& shape, const Vector& direction, int index);

/// The angle between the third axis of `shape` and the unit vector `direction`, from 0 to pi. Where they are
/// parallel, and the angle has no derivative, it has that of a turn about the second axis.
VrexVariable angleTo(const VrexSolverShape& shape, const Vector& direction);

/// The angle by which `from` turns into `to` about the unit vector `axis`, counted as a right-handed screw,
/// from -pi to pi. 0 without derivatives where either is parallel to the axis.
VrexVariable angleAbout(const Vector& axis, const Vector& from, const Vector& to);

} // namespace nsSolverDirections
