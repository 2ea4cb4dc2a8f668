#pragma once

#include <cstdint>
#include <string>

#include "tools/vrex/VrexExitCode.h"

class VrexConsole;

/// `vrex convert`: a system from one form into another, or anew into the same.
struct VrexConvertCommand {
    enum class Form { DOCUMENT, STREAM };

    std::string input;
    std::string output = "-";
    Form form = Form::DOCUMENT;
    std::uint64_t indentWidth = 4; ///< Of documents.

    VrexExitCode run(const VrexConsole& console) const;
};
