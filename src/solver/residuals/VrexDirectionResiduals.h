#pragma once

class VrexAngle3D;
class VrexParallelism3D;
class VrexPerpendicularity3D;
class VrexPlanarAngle3D;
class VrexSolverBuilder;

/// How directions stand to each other. The direction of a line is its own, that of a plane its normal, that
/// of a circle, an ellipse and a surface of revolution its axis, that of a swept surface the line's.
///
/// A plane and what runs straight (a line, a cylinder, a cone, a spin or swept surface) stand to each other
/// as the direction and the plane itself do: parallel where the direction lies in the plane, perpendicular
/// where it is normal to it. Circles, ellipses and tori stand to a plane as a plane does.
namespace nsDirectionResiduals {

/// The angle between the directions is the value; between a direction and a plane that of the direction above
/// the plane, up to a right angle, negative below. The alignment `Negative` takes the second one reversed;
/// `Any` does so where that is nearer to how they stand.
void add(VrexSolverBuilder& builder, VrexAngle3D& angle);
/// The first direction turns into the second about the third one by the value. The orientation `Positive`
/// counts as a right-handed screw, `Negative` the other way, everything else the way that is nearer.
void add(VrexSolverBuilder& builder, VrexPlanarAngle3D& angle);
/// Parallel directions point the same way for the alignment `Positive`, opposite ways for `Negative`.
void add(VrexSolverBuilder& builder, VrexParallelism3D& parallelism);
/// Where perpendicular means that directions agree, the alignment says which way, as for parallel ones.
void add(VrexSolverBuilder& builder, VrexPerpendicularity3D& perpendicularity);

} // namespace nsDirectionResiduals
