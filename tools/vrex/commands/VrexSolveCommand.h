#pragma once

#include <string>
#include <vector>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex solve`: moves what is in a document so that its constraints hold.
struct VrexSolveCommand {
    std::string input;
    std::string output;                ///< Where the solved document goes; empty: nowhere.
    std::vector<std::string> settings; ///< `label=value`: variables and what they are held at.
    std::vector<std::string> moves;    ///< `label=x,y,z`: entities and where they are drawn.
    bool followsDrags = false;         ///< Those of the document.
    bool isToBeDetermined = false;     ///< Freedom that is left is a failure.
    bool allowsRedundancy = false;     ///< Constraints that repeat others, and hold, are no failure.
    double tolerance = 1e-10;          ///< See `VrexSolverOptions`.
    int maxIterations = 200;

    VrexExitCode run(const VrexConsole& console) const;
};
