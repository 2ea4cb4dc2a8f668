#pragma once

#include "exchange/VrexUrdfRobot.h"

class VrexUrdfElement;

namespace nsUrdfLinks {

/// Reads a <link> with the shapes of its looks.
VrexUrdfLink read(const VrexUrdfElement& element);

} // namespace nsUrdfLinks
