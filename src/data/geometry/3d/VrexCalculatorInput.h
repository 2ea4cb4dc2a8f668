#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"

/// Hidden: how the calculators read their list of parameters, which has the slots of the entity.
namespace nsCalculator {

/// Throws `std::invalid_argument` for fewer than `count` parameters. Asked once a call, before any is read.
inline void requireParameters(const std::vector<VrexVariable>& parameters, std::size_t count) {
    if (parameters.size() < count) {
        VREX_RAISE(std::invalid_argument, "Too few parameters: " + std::to_string(parameters.size()) +
                                              " instead of " + std::to_string(count) + ".");
    }
}

/// The order of the highest derivative of a curve, which is not negative here. Throws `std::invalid_argument`
/// where the result, one vector an order, would be beyond all use.
inline std::size_t requireOrder(int order) {
    constexpr int highest = 100'000;
    if (order > highest) {
        VREX_RAISE(std::invalid_argument, "Too high an order: " + std::to_string(order) + ".");
    }
    return static_cast<std::size_t>(order);
}

/// The three slots from `firstSlot` on.
inline VrexVector3DT<VrexVariable> getVector(const std::vector<VrexVariable>& parameters,
                                             std::size_t firstSlot) {
    const VrexVariable* slot = parameters.data() + firstSlot;
    return {slot[0], slot[1], slot[2]};
}

/// The unit vector of the two angles in the slots from `polarSlot` on.
inline VrexVector3DT<VrexVariable> getDirection(const std::vector<VrexVariable>& parameters, int polarSlot) {
    const VrexVariable* slot = parameters.data() + polarSlot;
    return VrexVector3DT<VrexVariable>::sphericalAnglesToCartesian(slot[0], slot[1]);
}

/// The four slots from `scalarSlot` on, the scalar first.
inline VrexQuaternionT<VrexVariable> getRotation(const std::vector<VrexVariable>& parameters,
                                                 std::size_t scalarSlot) {
    return VrexQuaternionT<VrexVariable>::makeFromScalarAndVector(parameters[scalarSlot],
                                                                  getVector(parameters, scalarSlot + 1));
}

} // namespace nsCalculator
