#pragma once

#include <memory>
#include <stdexcept>
#include <utility>

#include "data/VrexLog.h"

/// Hidden: what the replays of all kinds share.
namespace nsReplay {

/// The object, if it could be created; else throws `std::runtime_error` with this text.
template <class Object>
std::shared_ptr<Object> created(std::shared_ptr<Object> object, const char* otherwise) {
    if (object == nullptr) {
        VREX_RAISE(std::runtime_error, otherwise);
    }
    return object;
}

constexpr const char* NO_GEOMETRY = "Failed to replay: geometry was not created!";

} // namespace nsReplay
