#pragma once

#include "exchange/VrexUrdfRobot.h"

class VrexUrdfElement;

/// Reads what joins links.
namespace nsUrdfJoints {

VrexUrdfJoint read(const VrexUrdfElement& element);
VrexUrdfLoop readLoop(const VrexUrdfElement& element);
VrexUrdfCoupling readCoupling(const VrexUrdfElement& element);

} // namespace nsUrdfJoints
