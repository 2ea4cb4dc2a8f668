#pragma once

#include <cstdint>
#include <memory>

/// The object, with this identifier.
template <class Object>
std::shared_ptr<Object> numbered(std::shared_ptr<Object> object, std::uint64_t id) {
    object->setID(id);
    return object;
}
