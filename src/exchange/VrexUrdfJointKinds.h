#pragma once

#include <string_view>

#include "exchange/VrexUrdfRobot.h"

namespace nsUrdfJointKinds {

/// `Other` for a type without counterpart.
VrexUrdfJointKind ofJoint(std::string_view type);
VrexUrdfJointKind ofLoop(std::string_view type);

/// Whether a joint of this kind has one number for a value.
bool hasValue(VrexUrdfJointKind kind);

} // namespace nsUrdfJointKinds
