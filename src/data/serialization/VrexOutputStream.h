#pragma once

#include <cstdint>

#include "data/VrexExport.h"

/// Where an encoder writes: at most 2^32 - 1 bytes.
class VREX_DATA_EXPORT VrexOutputStream {
public:
    virtual ~VrexOutputStream();
    /// Writes `count` bytes at the position and moves it behind them. The count, or 0 where they were
    /// refused; so 0 bytes are never written.
    virtual std::uint32_t write(const void* data, std::uint32_t count) = 0;
    /// How many bytes were written.
    virtual std::uint32_t length() = 0;
    virtual std::uint32_t position() = 0;
    /// Moves the position and tells the one before.
    virtual std::uint32_t seek(std::uint32_t position) = 0;

protected:
    VrexOutputStream() = default;
    VrexOutputStream(const VrexOutputStream&) = default;
    VrexOutputStream& operator=(const VrexOutputStream&) = default;
};
