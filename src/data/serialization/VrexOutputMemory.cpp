#include "data/serialization/VrexOutputMemory.h"

#include <algorithm>
#include <cstring>
#include <utility>

VrexOutputMemory::VrexOutputMemory(unsigned char* buffer, std::uint32_t capacity)
    : m_buffer(buffer), m_capacity(buffer != nullptr ? capacity : 0) {}

std::uint32_t VrexOutputMemory::write(const void* data, std::uint32_t count) {
    unsigned char* const place = data != nullptr && count != 0 ? claim(count) : nullptr;
    if (place == nullptr) {
        return 0;
    }
    std::memcpy(place, data, count);
    return count;
}

std::uint32_t VrexOutputMemory::length() { return m_length; }

std::uint32_t VrexOutputMemory::position() { return m_position; }

std::uint32_t VrexOutputMemory::seek(std::uint32_t position) {
    return std::exchange(m_position, std::min(position, m_capacity));
}
