#pragma once

#include <cmath>

#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"

/// Hidden: what the change tests of the entities share.
namespace nsChange {

/// Whether two directions, zero where they are no longer than `shortest`, differ by `tolerance` or more in a
/// component.
inline bool isDirectionChanged(const VrexVector3DT<double>& now, const VrexVector3DT<double>& before,
                               double shortest, double tolerance) {
    return !normalized(now, shortest).isEqual(normalized(before, shortest), tolerance);
}

/// The same with one tolerance for both.
inline bool isDirectionChanged(const VrexVector3DT<double>& now, const VrexVector3DT<double>& before,
                               double tolerance) {
    return isDirectionChanged(now, before, tolerance, tolerance);
}

/// The direction from a place to where it was before; zero when it moved by no more than `tolerance`, so that
/// only the way of a real shift counts and not its length.
inline VrexVector3DT<double> shiftDirection(const VrexVector3DT<double>& now,
                                            const VrexVector3DT<double>& before, double tolerance) {
    return normalized(before - now, tolerance);
}

/// Whether two rotations differ: their angles by `angular` or more or, where the angle is no less than
/// `angular`, their axes by `tolerance` or more in a component.
inline bool isRotationChanged(const VrexQuaternionT<double>& now, const VrexQuaternionT<double>& before,
                              double tolerance, double angular) {
    constexpr double axisTolerance = 1e-10;
    const double angle = now.rotationalAngle();
    if (std::fabs(angle - before.rotationalAngle()) >= angular) {
        return true;
    }
    return std::fabs(angle) >= angular && isDirectionChanged(now.rotationalAxis(axisTolerance),
                                                             before.rotationalAxis(axisTolerance), tolerance);
}

} // namespace nsChange
