#pragma once

#include <cstddef>
#include <memory>

/// Hidden: for walks over many objects, each of which lies somewhere else.
namespace nsPrefetch {

/// Asks for the object that the walk over a list of pointers comes to a few steps after `place`, so that it
/// need not wait for it there. Its first lines suffice: they hold what is common to all objects.
template <class List>
void ahead(const List& list, std::size_t place) {
    constexpr std::size_t STEPS = 6;
    constexpr std::size_t LINE = 64;
    constexpr std::size_t LINES = 4;
    if (place + STEPS < list.size()) {
        const auto* const object = reinterpret_cast<const char*>(std::to_address(list[place + STEPS]));
        for (std::size_t line = 0; line < LINES; ++line) {
            __builtin_prefetch(object + line * LINE);
        }
    }
}

} // namespace nsPrefetch
