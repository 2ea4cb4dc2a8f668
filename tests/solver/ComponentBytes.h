#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "data/graph/VrexConnectedComponent.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"

/// All that a stream tells of the component: numbers to the last bit, statuses, groups.
inline std::string bytesOf(const std::shared_ptr<VrexConnectedComponent>& component) {
    VrexStreamGraphEncoder3D encoder;
    if (!encoder.encodeConstraintGraphs({component})) {
        throw std::runtime_error("A component that cannot be written.");
    }
    unsigned int size = 0;
    unsigned char* const buffer = encoder.dumpBuffer(size);
    std::string bytes(buffer, buffer + size);
    VrexStreamGraphEncoder::freeBuffer(buffer);
    return bytes;
}
