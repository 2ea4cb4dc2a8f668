#pragma once

#include "data/VrexLog.h"
#include "data/VrexQuaternionT.h"

/// Hidden: rotations that calculations have led away from unit length.
namespace nsUnitRotation {

/// Stores `rotation` by `setRotation`; what that refuses is normalised first, and the log tells. False, and
/// nothing stored, for what cannot be normalised: zero, or not a number.
template <class Framed>
bool store(Framed& target, const VrexQuaternionT<double>& rotation) {
    if (target.setRotation(rotation)) {
        return true;
    }
    // A hundred times the machine epsilon.
    constexpr double SHORTEST = 2.220446049250313e-14;
    const bool isStored = target.setRotation(rotation.normalized(SHORTEST));
    VREX_LOG(nsLog::REFUSAL, "Object(%llu): a rotation of norm %.17g is %s.",
             static_cast<unsigned long long>(target.getID()), rotation.norm(),
             isStored ? "normalised" : "not stored");
    return isStored;
}

} // namespace nsUnitRotation
