#pragma once

#include <string>
#include <string_view>

#include "exchange/VrexUrdfRobot.h"

class VrexUrdfFindings;

namespace nsUrdfLoopFile {

/// Adds the loops that a text in YAML tells: a list `closed_loop` of pairs of frames, each named as a link or
/// as the joint that carries it, and a list `type` with "6d" or "3d" for each pair.
void read(std::string_view text, const std::string& file, VrexUrdfRobot& robot, VrexUrdfFindings& findings);

} // namespace nsUrdfLoopFile
