#pragma once

#include <memory>
#include <utility>
#include <vector>

/// Hidden: the elements of a list that are a `Target`, in order; others, and nulls, are left out.
template <class Target, class List>
std::vector<std::shared_ptr<Target>> keepOnly(const List& list) {
    std::vector<std::shared_ptr<Target>> kept;
    kept.reserve(list.size());
    for (const auto& element : list) {
        if (auto target = std::dynamic_pointer_cast<Target>(element)) {
            kept.push_back(std::move(target));
        }
    }
    return kept;
}
