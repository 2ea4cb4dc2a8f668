#pragma once

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexVariableDescriptor.h"

/// Hidden: the objects named by a list of descriptors that are a `Target`, each once, in the order of first
/// use.
template <class Target>
std::vector<std::shared_ptr<Target>> distinctObjects(const std::vector<VrexVariableDescriptor>& descriptors) {
    std::vector<std::shared_ptr<Target>> objects;
    std::unordered_set<const VrexBaseObject*> seen;
    for (const VrexVariableDescriptor& descriptor : descriptors) {
        auto object = std::dynamic_pointer_cast<Target>(descriptor.object());
        if (object != nullptr && seen.insert(object.get()).second) {
            objects.push_back(std::move(object));
        }
    }
    return objects;
}
