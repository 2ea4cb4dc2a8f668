#pragma once

#include <string>

/// A line of a file.
struct VrexUrdfPlace {
    std::string file; ///< As it was named; empty for a text.
    int line = 0;     ///< From 1 on.
};
