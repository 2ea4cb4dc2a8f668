#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "data/geometry/3d/VrexConnector3D.h"

/// Hidden: a mate with the limits of its dimensions, in the order of their indices.
template <class Mate, class... Limits>
std::shared_ptr<Mate> makeMate(const std::shared_ptr<VrexConnector3D>& connector1,
                               const std::shared_ptr<VrexConnector3D>& connector2, const Limits&... limits) {
    static_assert(sizeof...(limits) == Mate::DIMENSIONS_AMOUNT, "one pair of limits for each dimension");
    auto mate = VrexObjectAccess::make<Mate>(connector1, connector2);
    [[maybe_unused]] std::uint64_t index = 0;
    ((mate->getDimension(index++).limits = limits), ...);
    return mate;
}

/// Hidden: defines what every class of mates has: the body of an object, the constructor from two connectors,
/// and the degree of constraint.
#define VREX_MATE_BODY(CLASS, KIND, DOC)                                                                     \
    VREX_OBJECT_BODY(CLASS)                                                                                  \
    CLASS::CLASS(const std::shared_ptr<VrexConnector3D>& connector1,                                         \
                 const std::shared_ptr<VrexConnector3D>& connector2)                                         \
        : VrexMate3D(KIND, connector1, connector2, DIMENSIONS_AMOUNT) {}                                     \
    int CLASS::doc() const { return DOC; }
