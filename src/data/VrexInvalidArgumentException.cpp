#include "data/VrexInvalidArgumentException.h"

VrexInvalidArgumentException::VrexInvalidArgumentException(const std::string& message)
    : std::invalid_argument(message) {}

VrexInvalidArgumentException::~VrexInvalidArgumentException() = default;
