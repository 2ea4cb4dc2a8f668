#pragma once

#include <cstddef>

/// Hidden: how the tables of both caches start. Which near-equal keys share a bucket depends on it.
namespace nsCalculator {

constexpr std::size_t CACHE_BUCKETS = 8;
constexpr float CACHE_LOAD = 1.0F;

} // namespace nsCalculator
