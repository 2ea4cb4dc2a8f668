#pragma once

#include <cmath>

#include "data/VrexTransformation3DT.h"
#include "data/VrexVector3DT.h"

/// Frames of links and joints.
namespace nsUrdfFrames {

/// What is shorter has no direction.
inline constexpr double SHORTEST = 1e-9;

/// Whether sums and squares of lengths and angles like this one stay finite; not for NaN.
inline bool isModest(double number) { return std::abs(number) <= 1e100; }

/// The rotation of roll, pitch and yaw: about X, then Y, then Z of what does not turn.
VrexQuaternionT<double> turnBy(const VrexVector3DT<double>& rollPitchYaw);

/// Takes Z to `axis`, a unit vector, on the shortest way.
VrexTransformation3DT<double> turnTo(const VrexVector3DT<double>& axis);

/// Moves along Z and turns about it.
VrexTransformation3DT<double> alongZ(double distance, double angle);

} // namespace nsUrdfFrames
