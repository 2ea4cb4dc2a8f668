#pragma once

class VrexConcentricity3D;
class VrexIncidenceToCenter3D;
class VrexMidPoint3D;
class VrexSolverBuilder;

/// Centres, axes and middles.
namespace nsCenterResiduals {

/// Centres of points and spheres coincide; such a centre lies on the axis of any other entity; axes
/// coincide, which way they point told by the alignment.
void add(VrexSolverBuilder& builder, VrexConcentricity3D& concentricity);
/// Points and centres coincide; that of a cone is its apex.
void add(VrexSolverBuilder& builder, VrexIncidenceToCenter3D& incidence);
/// The point is in the middle of two points, or as far from two planes and between them. Planes bound what
/// lies between them with normals the same way round, with the alignment `Negative` opposite ways; else as
/// they stand.
void add(VrexSolverBuilder& builder, VrexMidPoint3D& midPoint);

} // namespace nsCenterResiduals
