#pragma once

class VrexInstance3D;
class VrexSolverBuilder;
class VrexSymmetry3D;

/// One entity as the image of another of the same kind: place, direction and sizes agree.
namespace nsImageResiduals {

/// The second entity mirrors the first at the plane. Directions without a side, of all but cones, agree as
/// the alignment says.
void add(VrexSolverBuilder& builder, VrexSymmetry3D& symmetry);
/// The second entity is the first one moved by the steps of the array pattern, which may vary.
void add(VrexSolverBuilder& builder, VrexInstance3D& instance);

} // namespace nsImageResiduals
