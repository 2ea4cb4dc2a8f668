#pragma once

#include <stdexcept>
#include <string>

#include "data/VrexExport.h"

/// Corrupt or contradictory data handed to the library, where a refusal by code is not possible.
class VREX_DATA_EXPORT VrexInvalidArgumentException : public std::invalid_argument {
public:
    explicit VrexInvalidArgumentException(const std::string& message);
    ~VrexInvalidArgumentException() override;
};
