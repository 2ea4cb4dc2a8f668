#pragma once

#include <cstdint>
#include <limits>

#include "data/VrexExport.h"
#include "data/serialization/VrexOutputStream.h"

/// Measures what is written and keeps nothing of it, so that a buffer of the right size can be made.
class VREX_DATA_EXPORT VrexOutputLength final : public VrexOutputStream {
public:
    /// Refuses what would not fit into 2^32 - 1 bytes in all. Does not look at the data.
    std::uint32_t write(const void* /*data*/, std::uint32_t count) override {
        if (count > std::numeric_limits<std::uint32_t>::max() - m_length) {
            return 0;
        }
        m_length += count;
        return count;
    }
    std::uint32_t length() override;
    /// Kept: 0, and `seek` does nothing and tells 0. Lengths of blocks come out right all the same, as they
    /// are counted when they are written.
    std::uint32_t position() override;
    std::uint32_t seek(std::uint32_t position) override;

private:
    std::uint32_t m_length = 0;
};
