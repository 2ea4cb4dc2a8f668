#pragma once

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/VrexPrefetch.h"

/// Hidden: passes `objects` and all that they are made of to `append`, each once, parts before what is made
/// of them, otherwise in the order given. Nulls are left out; a ring is cut where it closes.
/// `append(pointer)` may end the walk by false, which is then the answer. `partsOf(object)` gives a vector of
/// shared pointers to the parts of one object, `isNew(object)` tells whether it is asked for the first time.
///
/// The walk has a stack of its own: parts may go as deep as there are objects.
template <class Object, class PartsOf, class IsNew, class Append>
bool walkInDependencyOrder(const std::vector<std::shared_ptr<Object>>& objects, const PartsOf& partsOf,
                           IsNew isNew, Append append) {
    struct Step {
        std::shared_ptr<Object> object;
        std::vector<std::shared_ptr<Object>> parts;
        std::size_t next = 0;
    };
    std::vector<Step> steps;
    const auto enter = [&](const std::shared_ptr<Object>& object) {
        if (object == nullptr || !isNew(*object)) {
            return true;
        }
        auto parts = partsOf(*object);
        if (parts.empty()) {
            return append(object);
        }
        steps.push_back({object, std::move(parts)});
        return true;
    };
    const auto advance = [&] {
        Step& step = steps.back();
        if (step.next < step.parts.size()) {
            return enter(std::shared_ptr<Object>(step.parts[step.next++]));
        }
        const std::shared_ptr<Object> object = std::move(step.object);
        steps.pop_back();
        return append(object);
    };
    bool goesOn = true;
    for (std::size_t i = 0; goesOn && i < objects.size(); ++i) {
        nsPrefetch::ahead(objects, i);
        goesOn = enter(objects[i]);
        while (goesOn && !steps.empty()) {
            goesOn = advance();
        }
    }
    return goesOn;
}

/// Hidden: the same as a list.
template <class Object, class PartsOf>
std::vector<std::shared_ptr<Object>> inDependencyOrder(const std::vector<std::shared_ptr<Object>>& objects,
                                                       const PartsOf& partsOf) {
    std::vector<std::shared_ptr<Object>> ordered;
    ordered.reserve(objects.size());
    std::unordered_set<const Object*> visited(objects.size());
    walkInDependencyOrder(
        objects, partsOf, [&](const Object& object) { return visited.insert(&object).second; },
        [&](const std::shared_ptr<Object>& object) {
            ordered.push_back(object);
            return true;
        });
    return ordered;
}
