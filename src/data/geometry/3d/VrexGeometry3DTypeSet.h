#pragma once

#include "data/VrexEnumSetT.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

/// Hidden: a set of entity kinds, known at compile time. A class and no alias, so that it can be declared by
/// name.
class VrexGeometry3DTypeSet : public VrexEnumSetT<VrexGeometry3DType> {
public:
    using VrexEnumSetT::VrexEnumSetT;
    constexpr VrexGeometry3DTypeSet() = default;
    // Implicit: what `|` makes is a set of kinds, too.
    constexpr VrexGeometry3DTypeSet(VrexEnumSetT set) : VrexEnumSetT(set) {}
};
