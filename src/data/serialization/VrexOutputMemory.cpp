#include "data/serialization/VrexOutputMemory.h"

VrexOutputMemory::VrexOutputMemory(unsigned char* buffer, std::uint32_t capacity)
    : m_buffer(buffer), m_capacity(buffer != nullptr ? capacity : 0) {}

std::uint32_t VrexOutputMemory::length() { return m_length; }
