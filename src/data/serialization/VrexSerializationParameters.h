#pragma once

#include <cstdint>

/// How a document is written and read.
struct VrexSerializationParameters {
    bool writeEmptyArrays = false; ///< In the text: also the arrays of the root that have no entries.
    bool ignoreObjectIds = false; ///< Identifiers are neither written nor read; what is read gets fresh ones.
    std::uint64_t indentWidth = 4;   ///< In the text: blanks a level.
    bool generateMissingIds = false; ///< Objects without identifier are given one before they are written.
    bool writeRegularStatus = false; ///< Constraints also tell the status `Regular`.
};
