#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>

#include "data/VrexBaseConstraint.h"

/// Hidden: for walks over many objects, each of which lies somewhere else in memory. What a walk comes to a
/// few steps later is asked for ahead, so that it need not wait there.
namespace nsPrefetch {

/// How many steps ahead an object is asked for, then the list of what a constraint binds, then that.
constexpr std::size_t OBJECT = 8;
constexpr std::size_t LIST = 4;
constexpr std::size_t BOUND = 2;

/// The lines of an object that all of its base kind have. Most constraints are dimensions, whose values come
/// last.
template <class Object>
void lines(const Object* object) {
    constexpr std::size_t LINE = 64;
    constexpr std::size_t LINES = std::is_base_of_v<VrexBaseConstraint, Object> ? 7 : 4;
    for (std::size_t i = 0; i < LINES; ++i) {
        __builtin_prefetch(reinterpret_cast<const char*>(object) + i * LINE);
    }
}

/// What the constraints bind that the walk over a list of pointers comes to after `place`.
template <class Pointers>
void boundAhead(const Pointers& list, std::size_t place) {
    if (place + LIST >= list.size() || list[place + LIST] == nullptr || list[place + BOUND] == nullptr) {
        return;
    }
    __builtin_prefetch(list[place + LIST]->getGeometries().data());
    for (const auto& geometry : list[place + BOUND]->getGeometries()) {
        __builtin_prefetch(geometry.get());
    }
}

/// What the walk over a list of pointers comes to after `place`; constraints with what they bind.
template <class Pointers>
void ahead(const Pointers& list, std::size_t place) {
    using Object = typename std::pointer_traits<typename Pointers::value_type>::element_type;
    if (place + OBJECT < list.size()) {
        lines(std::to_address(list[place + OBJECT]));
    }
    if constexpr (std::is_base_of_v<VrexBaseConstraint, Object>) {
        boundAhead(list, place);
    }
}

} // namespace nsPrefetch
