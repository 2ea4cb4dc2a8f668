#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "data/VrexVector2DT.h"

/// Hash of the parameters of curves and surfaces, for the caches: 64-bit FNV-1a (Fowler, Noll, Vo) of the
/// eight bytes, lowest first; -0.0 hashes as 0.0, which it equals.
///
/// It does not throw, so that the table asks it anew instead of storing hashes, and compares all keys of a
/// bucket.
struct VrexParameterHash {
    std::size_t operator()(double parameter) const noexcept {
        auto bits = std::bit_cast<std::uint64_t>(parameter == 0.0 ? 0.0 : parameter);
        std::uint64_t hash = 0xCBF29CE484222325U;
        for (int byte = 0; byte < 8; ++byte) {
            hash = (hash ^ (bits & 0xFFU)) * 0x100000001B3U;
            bits >>= 8U;
        }
        return hash;
    }

    /// Both hashes, combined as in boost::hash_combine from the seed 1.
    std::size_t operator()(const VrexVector2DT<double>& parameters) const noexcept {
        std::size_t seed = 1;
        for (const double parameter : {parameters.x(), parameters.y()}) {
            seed ^= (*this)(parameter) + 0x9E3779B9U + (seed << 6U) + (seed >> 2U);
        }
        return seed;
    }
};
