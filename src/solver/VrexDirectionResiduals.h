#pragma once

class VrexAngle3D;
class VrexParallelism3D;
class VrexPerpendicularity3D;
class VrexPlanarAngle3D;
class VrexSolverBuilder;

/// How directions stand to each other. The direction of a line is its own, that of a plane its normal, that
/// of a circle, an ellipse and a surface of revolution its axis, that of a swept surface the line's.
namespace nsDirectionResiduals {

/// The angle between the directions is the value. The alignment `Negative` takes the second one reversed;
/// `Any` does so where that is nearer to how they stand.
void add(VrexSolverBuilder& builder, VrexAngle3D& angle);
/// The first direction turns into the second about the third one by the value. The orientation `Positive`
/// counts as a right-handed screw, `Negative` the other way, everything else the way that is nearer.
void add(VrexSolverBuilder& builder, VrexPlanarAngle3D& angle);
/// The alignments `Positive` and `Negative` ask for the same and for opposite ways.
void add(VrexSolverBuilder& builder, VrexParallelism3D& parallelism);
void add(VrexSolverBuilder& builder, VrexPerpendicularity3D& perpendicularity);

} // namespace nsDirectionResiduals
