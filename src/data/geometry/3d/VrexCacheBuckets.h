#pragma once

#include <cstddef>

/// Hidden: how many buckets the tables of both caches ask for at first. Which near-equal keys share a bucket
/// depends on it, and on the load factor, which is the containers' own 1.0: to set it, even to that, makes
/// the library grow the table at the first insertion.
namespace nsCalculator {

constexpr std::size_t CACHE_BUCKETS = 8;

} // namespace nsCalculator
