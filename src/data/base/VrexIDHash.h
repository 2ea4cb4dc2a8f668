#pragma once

#include <cstddef>
#include <cstdint>

/// Hash of an identifier: neighbours stay neighbours, so that a system numbered from 1 is laid out in order,
/// and whatever stands above the lowest 24 bits is mixed, so that identifiers chosen at a stride (a multiple
/// of the bucket count) do not all meet in one bucket: within 24 bits there are too few multiples to matter.
///
/// The mixing step is the finaliser of SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number
/// generators, OOPSLA 2014), which leaves 0 at 0.
struct VrexIDHash {
    std::size_t operator()(std::uint64_t id) const noexcept {
        std::uint64_t high = id >> 24U;
        if (high == 0) { // spares the usual case two multiplications on the way to its bucket
            return static_cast<std::size_t>(id);
        }
        high = (high ^ (high >> 30U)) * 0xBF58476D1CE4E5B9U;
        high = (high ^ (high >> 27U)) * 0x94D049BB133111EBU;
        return static_cast<std::size_t>(id + (high ^ (high >> 31U)));
    }
};
