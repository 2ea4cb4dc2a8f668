#pragma once

#include <cmath>

#include "data/VrexVariable.h"

/// Bridges between both number types for templates over them.
namespace nsVariableUtils {

/// A constant of the same kind as the second argument.
inline VrexVariable initializeValue(double value, const VrexVariable& like) {
    return VrexVariable(value, like);
}
inline double initializeValue(double value, const double& /*like*/) { return value; }

inline double toValue(const double& number) { return number; }
inline double toValue(const VrexVariable& variable) { return variable.value(); }

// The functions of VrexVariable that the standard library lacks, for plain numbers. A template says
// `using nsVariableUtils::square;` in the block and calls `square(x)`.

/// Kept: -1 at 0 and for NaN.
inline double sign(double x) { return x > 0.0 ? 1.0 : -1.0; }
inline double square(double x) { return x * x; }
inline double hypot2(double x, double y) { return x * x + y * y; }
inline double frac(double x) { return x - std::trunc(x); }

} // namespace nsVariableUtils
