#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/serialization/3d/VrexImmutableSystem3D.h"
#include "exchange/VrexUrdfFinding.h"

/// What came of reading a robot description.
struct VrexUrdfImport {
    std::string robotName;
    /// None where a finding is an error. Objects carry identifiers from 1 on and the names of the file as
    /// labels; lengths are metres, angles radians.
    std::optional<VrexImmutableSystem3D> system;
    /// Those of the robot description in the order of its lines, then those of the loop file.
    std::vector<VrexUrdfFinding> findings;
};
