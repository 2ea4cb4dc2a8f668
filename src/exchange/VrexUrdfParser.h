#pragma once

#include <string>
#include <string_view>

#include "exchange/VrexUrdfRobot.h"

class VrexUrdfFindings;

namespace nsUrdfParser {

/// Reads the text of a robot description. What is refused is left out or stands with its default.
VrexUrdfRobot parse(std::string_view text, const std::string& file, VrexUrdfFindings& findings);

} // namespace nsUrdfParser
