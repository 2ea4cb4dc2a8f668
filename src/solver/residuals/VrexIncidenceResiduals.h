#pragma once

class VrexIncidence3D;
class VrexSolverBuilder;

/// What an incidence asks for: that the entity of lower dimension lies in the other one, two of the same kind
/// that they are one.
///
/// A circle lies on a torus about its axis (a parallel) or around the tube (a meridian): the type
/// `AroundSpine` says around, without it the circle goes the way that its axis is nearer to. The type
/// `ToSpine` stands for the torus's spine in the place of the torus.
namespace nsIncidenceResiduals {

void add(VrexSolverBuilder& builder, VrexIncidence3D& incidence);

} // namespace nsIncidenceResiduals
