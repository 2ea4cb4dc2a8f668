#pragma once

#include <cstddef>
#include <memory>
#include <vector>

class VrexBaseObject;

/// Objects lie in memory as they were made, not as they are met, so what a pass asks of them is fetched some
/// steps before it gets there. Where things lie is a guess, which costs time only.
namespace nsPrefetch {

/// How many steps of a pass one fetch takes.
constexpr std::size_t STEPS = 8;

inline void line(const void* address) { __builtin_prefetch(address); }
inline void lineToWrite(const void* address) { __builtin_prefetch(address, 1); }

/// The counters of the shares, which stand before an object.
inline void counters(const void* object) {
    constexpr std::size_t COUNTERS = 16;
    if (object != nullptr) {
        __builtin_prefetch(static_cast<const char*>(object) - COUNTERS, 1);
    }
}

/// What every object is asked for: its identifier, its class and the counters.
inline void object(const VrexBaseObject* object) {
    constexpr std::size_t IDENTIFIER = 32;
    if (object != nullptr) {
        counters(object);
        line(reinterpret_cast<const char*>(object) + IDENTIFIER);
    }
}

/// Gives all shares up.
template <class Object>
void dropAll(std::vector<std::shared_ptr<Object>>& shares) {
    for (std::size_t i = 0; i < shares.size(); ++i) {
        if (i + 2 * STEPS < shares.size()) {
            counters(shares[i + 2 * STEPS].get());
        }
        shares[i] = nullptr;
    }
    shares.clear();
}

} // namespace nsPrefetch
