#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"

/// What the targets over streams share. Callbacks are refused: they are addresses.
namespace nsStreamTarget {

inline void require(bool isTrue) {
    if (!isTrue) {
        std::abort();
    }
}

/// Runs `decode` with a decoder on the bytes. False also for an object kind that there is not, for which it
/// throws.
template <class Decode>
bool isDecoded(std::size_t size, Decode decode) {
    if (size > std::numeric_limits<unsigned int>::max()) {
        return false;
    }
    VrexStreamGraphDecoder3D decoder;
    decoder.setCallbacksAllowed(false);
    try {
        return decode(decoder, static_cast<unsigned int>(size));
    } catch (const std::bad_optional_access&) {
        return false;
    }
}

/// Runs `read` on the bytes, and on the same with the length of the outermost block put right, without which
/// hardly any change would get further than to that.
template <class Read>
void readAsIsAndMended(const std::uint8_t* data, std::size_t size, Read read) {
    read(data, size);
    if (size >= 5 && size <= std::numeric_limits<std::uint32_t>::max()) {
        std::vector<std::uint8_t> mended(data, data + size);
        const auto length = static_cast<std::uint32_t>(size - 5);
        std::memcpy(mended.data() + 1, &length, sizeof length);
        read(mended.data(), size);
    }
}

/// Runs `encode` with an encoder. What was decoded can be encoded, in a block that is all there is.
template <class Encode>
void encodeAgain(Encode encode) {
    VrexStreamGraphEncoder3D encoder;
    require(encode(encoder));
    unsigned int size = 0;
    unsigned char* const buffer = encoder.dumpBuffer(size);
    require(size >= 5 && buffer[0] == 0x30);
    require(buffer[1] + (buffer[2] << 8U) + (buffer[3] << 16U) + (std::size_t{buffer[4]} << 24U) == size - 5);
    VrexStreamGraphEncoder::freeBuffer(buffer);
}

} // namespace nsStreamTarget
