#include "data/serialization/VrexOutputLength.h"

std::uint32_t VrexOutputLength::length() { return m_length; }
