#pragma once

#include <memory>
#include <vector>

#include "exchange/VrexUrdfRobot.h"

class VrexGeometry3D;

namespace nsUrdfShapes {

/// The shapes of a link that stands at `pose`, in space: a sphere or a cylinder each, of a box the planes of
/// its six faces, normals outwards, in the order +X, -X, +Y, -Y, +Z, -Z.
std::vector<std::shared_ptr<VrexGeometry3D>> membersOf(const VrexUrdfLink& link,
                                                       const VrexTransformation3DT<double>& pose);

} // namespace nsUrdfShapes
