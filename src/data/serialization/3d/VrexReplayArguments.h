#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include "data/VrexBaseGeometry.h"

/// Hidden: what a document says an object is made of, handed out as what its class asks for.
namespace nsReplayArguments {

using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;

/// Null where there are fewer arguments, and for one of another class.
template <class Target, class List>
std::shared_ptr<Target> argument(const List& arguments, std::size_t index) {
    return index < arguments.size() ? std::dynamic_pointer_cast<Target>(arguments[index]) : nullptr;
}

/// All of them; empty if one is of another class.
template <class Target, class List>
std::optional<std::vector<std::shared_ptr<Target>>> allArguments(const List& arguments) {
    std::vector<std::shared_ptr<Target>> targets;
    targets.reserve(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        targets.push_back(argument<Target>(arguments, i));
        if (targets.back() == nullptr) {
            return std::nullopt;
        }
    }
    return targets;
}

/// What `create` makes of the first arguments as `Parts`; null unless they are all there.
template <class... Parts, class Create>
auto createOf(const Geometries& arguments, const Create& create)
    -> decltype(create(std::shared_ptr<Parts>()...)) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        const std::tuple parts{argument<Parts>(arguments, I)...};
        return ((std::get<I>(parts) != nullptr) && ...) ? create(std::get<I>(parts)...) : nullptr;
    }
    (std::index_sequence_for<Parts...>());
}

/// Whether there is a row for each type from 0 on, in their order, the last one before `end`.
template <class Row, std::size_t COUNT, class E>
consteval bool areComplete(const Row (&rows)[COUNT], E end) {
    for (std::size_t i = 0; i < COUNT; ++i) {
        if (static_cast<std::size_t>(rows[i].type) != i) {
            return false;
        }
    }
    return static_cast<std::size_t>(end) == COUNT;
}

} // namespace nsReplayArguments
