#pragma once

// Not for a name used here: a compiler that meets the functions below first no longer takes those of the
// standard library, of the same names, for its own, and calls each instead of writing it as an instruction or
// two as one.
#include <cmath> // IWYU pragma: keep

#include "data/VrexExport.h"
#include "data/VrexVariable.h"

// Functions of differentiable scalars. The comment gives the entry of the result, where x is the operand's
// value, y the result's, d, da and db the operands' entries, zero for a key that a store lacks. A
// two-argument form whose operand has no derivatives is the form with that operand's value as a plain number.
//
// Warning: a template over both number types that forgets `using nsVariableUtils::square;` (likewise sign,
// frac, hypot2) may still compile for double, which then silently turns into a VrexVariable.

VREX_DATA_EXPORT VrexVariable abs(const VrexVariable& a); ///< d for x > 0, otherwise (at 0 too) -d
VREX_DATA_EXPORT VrexVariable
sign(const VrexVariable& a); ///< 1 for x > 0, otherwise -1; the entries become 0
VREX_DATA_EXPORT VrexVariable sqrt(const VrexVariable& a);   ///< (0.5 / y) * d
VREX_DATA_EXPORT VrexVariable square(const VrexVariable& a); ///< x * x; (d + d) * x
VREX_DATA_EXPORT VrexVariable exp(const VrexVariable& a);    ///< y * d
VREX_DATA_EXPORT VrexVariable expm1(const VrexVariable& a);  ///< (y + 1) * d
VREX_DATA_EXPORT VrexVariable log(const VrexVariable& a);    ///< d / x
VREX_DATA_EXPORT VrexVariable log1p(const VrexVariable& a);  ///< d / (x + 1)
VREX_DATA_EXPORT VrexVariable sin(const VrexVariable& a);    ///< cos(x) * d
VREX_DATA_EXPORT VrexVariable cos(const VrexVariable& a);    ///< sin(x) * -d
VREX_DATA_EXPORT VrexVariable tan(const VrexVariable& a);    ///< d / (cos(x) * cos(x))
VREX_DATA_EXPORT VrexVariable asin(const VrexVariable& a);   ///< (1 / sqrt(1 - x * x)) * d
VREX_DATA_EXPORT VrexVariable acos(const VrexVariable& a);   ///< (-1 / sqrt(1 - x * x)) * d
VREX_DATA_EXPORT VrexVariable atan(const VrexVariable& a); ///< Kept: (1 / sqrt(x * x + 1)) * d, with the root
VREX_DATA_EXPORT VrexVariable sinh(const VrexVariable& a); ///< cosh(x) * d
VREX_DATA_EXPORT VrexVariable cosh(const VrexVariable& a); ///< sinh(x) * d
VREX_DATA_EXPORT VrexVariable tanh(const VrexVariable& a); ///< d / (cosh(x) * cosh(x))
VREX_DATA_EXPORT VrexVariable erf(const VrexVariable& a);  ///< d * (exp(-x * x) * 2 / sqrt(pi))
/// d * (exp(-x * x) * -2 / sqrt(pi)). Kept: a log that holds it cannot be printed.
VREX_DATA_EXPORT VrexVariable erfc(const VrexVariable& a);
VREX_DATA_EXPORT VrexVariable floor(const VrexVariable& a); ///< no derivatives
VREX_DATA_EXPORT VrexVariable ceil(const VrexVariable& a);  ///< no derivatives
VREX_DATA_EXPORT VrexVariable trunc(const VrexVariable& a); ///< no derivatives
VREX_DATA_EXPORT VrexVariable frac(const VrexVariable& a);  ///< x - trunc(x); d

/// pow(A, B) * (log(A) * db) + pow(A, B - 1) * (B * da): NaN or infinite entries for a base that is not
/// positive.
VREX_DATA_EXPORT VrexVariable pow(const VrexVariable& a, const VrexVariable& b);
VREX_DATA_EXPORT VrexVariable pow(const VrexVariable& a, double c);
VREX_DATA_EXPORT VrexVariable pow(double c, const VrexVariable& a);
/// (da * B - db * A) / (A * A + B * B)
VREX_DATA_EXPORT VrexVariable atan2(const VrexVariable& a, const VrexVariable& b);
VREX_DATA_EXPORT VrexVariable atan2(const VrexVariable& a, double c);
VREX_DATA_EXPORT VrexVariable atan2(double c, const VrexVariable& a);
/// A * A + B * B, without a root; twice (da * A + db * B)
VREX_DATA_EXPORT VrexVariable hypot2(const VrexVariable& a, const VrexVariable& b);
VREX_DATA_EXPORT VrexVariable hypot2(const VrexVariable& a, double c);
VREX_DATA_EXPORT VrexVariable hypot2(double c, const VrexVariable& a);
/// h = sqrt(A * A + B * B); (da * A) / h + (db * B) / h. Kept: a log that holds it cannot be printed.
VREX_DATA_EXPORT VrexVariable hypot(const VrexVariable& a, const VrexVariable& b);
/// Kept: A * db + m * da, where m is 0 unless fabs(A) > fabs(B), then -1 for B > 0 and 1 otherwise.
VREX_DATA_EXPORT VrexVariable fmod(const VrexVariable& a, const VrexVariable& b);
VREX_DATA_EXPORT VrexVariable fmod(const VrexVariable& a, double c);
VREX_DATA_EXPORT VrexVariable fmod(double c, const VrexVariable& a);
/// A copy of a unless A > B, so also where one of them is NaN.
VREX_DATA_EXPORT VrexVariable fmin(const VrexVariable& a, const VrexVariable& b);
/// A copy of a unless B > A, so also where one of them is NaN.
VREX_DATA_EXPORT VrexVariable fmax(const VrexVariable& a, const VrexVariable& b);
