#pragma once

class VrexUrdfFindings;
class VrexUrdfTree;
struct VrexUrdfRobot;

namespace nsUrdfFollowers {

/// Turns couplings of links into followings of joints, drops what cannot follow, and sets the shifts of the
/// joints. What is dropped goes to the findings.
void settle(VrexUrdfRobot& robot, const VrexUrdfTree& tree, VrexUrdfFindings& findings);

} // namespace nsUrdfFollowers
