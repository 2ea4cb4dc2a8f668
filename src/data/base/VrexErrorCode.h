#pragma once

#include <cstdint>

#include "data/VrexExport.h"

/// Why an input was refused: domain in bits 31 to 28, index in bits 27 to 16, category in bits 15 to 0.
///
/// The vocabulary is shared with the solver, which uses most of the codes.
enum class VrexErrorCode : std::uint32_t {
    VREX_NO_ERROR = 0,
#define VREX_ERROR_CODE(NAME, DOMAIN, INDEX, CATEGORY)                                                       \
    NAME = (std::uint32_t{DOMAIN} << 28U) | (std::uint32_t{INDEX} << 16U) | std::uint32_t{CATEGORY},
#include "data/base/VrexErrorCodes.def"
};

/// The name of a code, such as "ID_EXISTED"; null for a number that is no code.
VREX_DATA_EXPORT const char* findErrorCodeName(VrexErrorCode code);
