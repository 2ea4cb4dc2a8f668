#pragma once

#include <filesystem>

/// How a robot description is read.
struct VrexUrdfOptions {
    /// Whether doubtful content (a joint without limits, a link that is not declared, a tag that the format
    /// does not know, a joint of a kind that has no counterpart) is an error or is worked around with a
    /// warning.
    bool isStrict = true;
    /// The file with the pairs of frames that close loops. Empty: the one named as the robot file and ending
    /// in ".yaml", if there is one.
    std::filesystem::path loopFile;
};
