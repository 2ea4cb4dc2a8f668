#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/VrexExpr.h"

// Expression trees from operators and functions.

/// `VrexExpr::create` for a constant.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> expr(double value);

// The operators simplify, and nothing else does. Their tests come in the order given; constants are told by
// their value. An operand's own factor of 0 wins over what stands beside it: 0 * NaN is `zero()`.

/// 0 beside anything: `zero()`; 1 beside b: b; -1 beside b: -b; two constants: their product.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> operator*(const std::shared_ptr<VrexExpr>& a,
                                                                   const std::shared_ptr<VrexExpr>& b);
/// 0 beside b: b; a + (-b): a - b; a + (+b): a + b. Two constants stay a sum.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> operator+(const std::shared_ptr<VrexExpr>& a,
                                                                   const std::shared_ptr<VrexExpr>& b);
/// 0 - b: -b; a - 0: a. Two constants stay a difference.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> operator-(const std::shared_ptr<VrexExpr>& a,
                                                                   const std::shared_ptr<VrexExpr>& b);
/// 0: itself; a constant: its negative; -(-a): a itself.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> operator-(const std::shared_ptr<VrexExpr>& a);
/// a / 1: a; 0 / b: `zero()`, for b = 0 too; a / -1: -a. Two constants stay a quotient.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> operator/(const std::shared_ptr<VrexExpr>& a,
                                                                   const std::shared_ptr<VrexExpr>& b);

// Functions make a node of their code as `VrexExpr::create` does, constants not folded.

[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> abs(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> acos(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> asin(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> atan(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> atan2(const std::shared_ptr<VrexExpr>& a,
                                                               const std::shared_ptr<VrexExpr>& b);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> ceil(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> cfres(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> cos(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> cosh(const std::shared_ptr<VrexExpr>& a);
/// a is dragged to b: a " ~ " b.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> drag(const std::shared_ptr<VrexExpr>& a,
                                                              const std::shared_ptr<VrexExpr>& b);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> exp(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> expm1(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> floor(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> hypot(const std::shared_ptr<VrexExpr>& a,
                                                               const std::shared_ptr<VrexExpr>& b);
/// The `If` node: a where the condition is true, b elsewhere.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr>
ifThenElse(const std::shared_ptr<VrexExpr>& condition, const std::shared_ptr<VrexExpr>& a,
           const std::shared_ptr<VrexExpr>& b);
/// The natural logarithm.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> log(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> log10(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> log1p(const std::shared_ptr<VrexExpr>& a);
/// The remainder that `std::fmod` gives.
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> mod(const std::shared_ptr<VrexExpr>& a,
                                                             const std::shared_ptr<VrexExpr>& b);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> norm(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> pow(const std::shared_ptr<VrexExpr>& a,
                                                             const std::shared_ptr<VrexExpr>& b);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sfres(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sign(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sin(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sinh(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sqr(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> sqrt(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> tan(const std::shared_ptr<VrexExpr>& a);
[[nodiscard]] VREX_DATA_EXPORT std::shared_ptr<VrexExpr> tanh(const std::shared_ptr<VrexExpr>& a);
