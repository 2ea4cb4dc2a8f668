#include "data/serialization/VrexOutputLength.h"

#include <limits>

std::uint32_t VrexOutputLength::write(const void* /*data*/, std::uint32_t count) {
    if (count > std::numeric_limits<std::uint32_t>::max() - m_length) {
        return 0;
    }
    m_length += count;
    return count;
}

std::uint32_t VrexOutputLength::length() { return m_length; }

std::uint32_t VrexOutputLength::position() { return 0; }

std::uint32_t VrexOutputLength::seek(std::uint32_t /*position*/) { return 0; }
