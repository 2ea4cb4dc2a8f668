#pragma once

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

/// Hidden: `objects` and all that they are made of, each once, parts before what is made of them, otherwise
/// in the order given. Nulls are left out; a ring is cut where it closes. `partsOf(object)` gives a vector of
/// shared pointers to the parts of one object.
///
/// The walk has a stack of its own: parts may go as deep as there are objects.
template <class Object, class PartsOf>
std::vector<std::shared_ptr<Object>> inDependencyOrder(const std::vector<std::shared_ptr<Object>>& objects,
                                                       const PartsOf& partsOf) {
    struct Step {
        std::shared_ptr<Object> object;
        std::vector<std::shared_ptr<Object>> parts;
        std::size_t next = 0;
    };
    std::vector<std::shared_ptr<Object>> ordered;
    ordered.reserve(objects.size());
    std::unordered_set<const Object*> visited(objects.size());
    std::vector<Step> steps;
    const auto enter = [&](const std::shared_ptr<Object>& object) {
        if (object != nullptr && visited.insert(object.get()).second) {
            steps.push_back({object, partsOf(*object)});
        }
    };
    const auto advance = [&] {
        Step& step = steps.back();
        if (step.next < step.parts.size()) {
            enter(std::shared_ptr<Object>(step.parts[step.next++]));
        } else {
            ordered.push_back(std::move(step.object));
            steps.pop_back();
        }
    };
    for (const std::shared_ptr<Object>& object : objects) {
        enter(object);
        while (!steps.empty()) {
            advance();
        }
    }
    return ordered;
}
