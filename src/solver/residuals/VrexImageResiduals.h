#pragma once

#include <memory>

class VrexGeometry3D;
class VrexInstance3D;
class VrexSolverBuilder;
class VrexSymmetry3D;

/// One entity as the image of another of the same make: place, direction and sizes agree. What is made of
/// others is the image where its parts are, see `nsImagePairs`.
namespace nsImageResiduals {

/// The second entity mirrors the first at the plane. Directions without a side, of all but cones, agree as
/// the alignment says. Evaluated shapes have no mirror image.
void add(VrexSolverBuilder& builder, VrexSymmetry3D& symmetry);
/// The second entity is the first one moved by the steps of the array pattern, which may vary.
void add(VrexSolverBuilder& builder, VrexInstance3D& instance);

/// Makes the two one, part by part. False, and nothing is added, where they are not of the same make.
bool addSame(VrexSolverBuilder& builder, const std::shared_ptr<VrexGeometry3D>& first,
             const std::shared_ptr<VrexGeometry3D>& second);

} // namespace nsImageResiduals
