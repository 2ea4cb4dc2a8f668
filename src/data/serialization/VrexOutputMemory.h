#pragma once

#include <cstdint>

#include "data/VrexExport.h"
#include "data/serialization/VrexOutputStream.h"

/// Writes into a buffer of the caller's, which must outlive it.
class VREX_DATA_EXPORT VrexOutputMemory final : public VrexOutputStream {
public:
    /// Without a buffer there is no room.
    VrexOutputMemory(unsigned char* buffer, std::uint32_t capacity);

    /// Refuses what does not fit.
    std::uint32_t write(const void* data, std::uint32_t count) override;
    /// The room for `count` bytes, which count as written; null where they do not fit.
    unsigned char* claim(std::uint32_t count) {
        if (count > m_capacity - m_position) {
            return nullptr;
        }
        m_length += count;
        m_position += count;
        return m_buffer + (m_position - count);
    }
    /// Kept: counts what was written over as well, and not what was passed over by `seek`.
    std::uint32_t length() override;
    std::uint32_t position() override;
    /// Stops at the end of the buffer.
    std::uint32_t seek(std::uint32_t position) override;

private:
    unsigned char* m_buffer;
    std::uint32_t m_capacity;
    std::uint32_t m_length = 0;
    std::uint32_t m_position = 0;
};
