#include "data/serialization/VrexOutputLength.h"

std::uint32_t VrexOutputLength::length() { return m_length; }

std::uint32_t VrexOutputLength::position() { return 0; }

std::uint32_t VrexOutputLength::seek(std::uint32_t /*position*/) { return 0; }
