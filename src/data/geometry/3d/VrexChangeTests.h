#pragma once

#include "data/VrexVector3DT.h"

/// Hidden: what the change tests of the entities share.
namespace nsChange {

/// Whether two directions differ by `tolerance` or more in a component.
inline bool isDirectionChanged(const VrexVector3DT<double>& now, const VrexVector3DT<double>& before,
                               double tolerance) {
    return !normalized(now, tolerance).isEqual(normalized(before, tolerance), tolerance);
}

/// The direction from a place to where it was before; zero when it moved by no more than `tolerance`, so that
/// only the way of a real shift counts and not its length.
inline VrexVector3DT<double> shiftDirection(const VrexVector3DT<double>& now,
                                            const VrexVector3DT<double>& before, double tolerance) {
    return normalized(before - now, tolerance);
}

} // namespace nsChange
