#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>

#include "data/VrexBaseConstraint.h"

/// For passes over many objects, which lie in memory as they were made, not as they are met: what a pass
/// comes to some steps later is asked for ahead, so that it need not wait there. Where things lie is a guess,
/// which costs time only.
namespace nsPrefetch {

/// How many steps of a pass one fetch takes.
constexpr std::size_t STEPS = 8;

/// The line at `address`, which may be anything.
inline void line(const void* address) {
    __builtin_prefetch(address);
    asm volatile(
        ""); // or GCC takes a function that does nothing else for one without effect, and drops its calls
}
inline void lineToWrite(const void* address) {
    __builtin_prefetch(address, 1);
    asm volatile("");
}

/// The counters of the shares, which stand before an object.
inline void counters(const void* object) {
    constexpr std::size_t COUNTERS = 16;
    if (object != nullptr) {
        lineToWrite(static_cast<const char*>(object) - COUNTERS);
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

/// The lines of an object that all of its base kind have. Most constraints are dimensions, whose values come
/// last.
template <class Object>
void wholeObject(const Object* object) {
    constexpr std::size_t LINE = 64;
    constexpr std::size_t LINES = std::is_base_of_v<VrexBaseConstraint, Object> ? 7 : 4;
    for (std::size_t i = 0; i < LINES; ++i) {
        line(reinterpret_cast<const char*>(object) + i * LINE);
    }
}

/// What the constraints bind that the walk over a list of pointers comes to after `place`.
template <class Pointers>
void boundAhead(const Pointers& list, std::size_t place) {
    constexpr std::size_t LIST = STEPS / 2, BOUND = STEPS / 4;
    if (place + LIST >= list.size() || list[place + LIST] == nullptr || list[place + BOUND] == nullptr) {
        return;
    }
    line(list[place + LIST]->getGeometries().data());
    for (const auto& geometry : list[place + BOUND]->getGeometries()) {
        line(geometry.get());
    }
}

/// What the walk over a list of pointers comes to after `place`: the whole of it, constraints with what they
/// bind.
template <class Pointers>
void ahead(const Pointers& list, std::size_t place) {
    using Object = typename std::pointer_traits<typename Pointers::value_type>::element_type;
    if (place + STEPS < list.size()) {
        wholeObject(std::to_address(list[place + STEPS]));
    }
    if constexpr (std::is_base_of_v<VrexBaseConstraint, Object>) {
        boundAhead(list, place);
    }
}

/// Gives up all shares of a list.
template <class Pointers>
void dropAll(Pointers& shares) {
    for (std::size_t i = 0; i < shares.size(); ++i) {
        if (i + 2 * STEPS < shares.size()) {
            counters(shares[i + 2 * STEPS].get());
        }
        shares[i] = nullptr;
    }
    shares.clear();
}

} // namespace nsPrefetch
