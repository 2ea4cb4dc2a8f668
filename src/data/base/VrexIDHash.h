#pragma once

#include <cstddef>
#include <cstdint>

/// Hash of an identifier: neighbours stay neighbours, so that a system numbered from 1 is laid out in order,
/// and whatever stands above the lowest 16 bits is mixed, so that identifiers chosen at a stride (a multiple
/// of a bucket count) do not all meet in one bucket.
///
/// The mixing step is the finaliser of SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number
/// generators, OOPSLA 2014).
struct VrexIDHash {
    std::size_t operator()(std::uint64_t id) const noexcept {
        std::uint64_t high = id >> 16U;
        high = (high ^ (high >> 30U)) * 0xBF58476D1CE4E5B9U;
        high = (high ^ (high >> 27U)) * 0x94D049BB133111EBU;
        return static_cast<std::size_t>(id + (high ^ (high >> 31U)));
    }
};
