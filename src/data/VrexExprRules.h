#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include "data/VrexExpr.h"
#include "data/VrexExprOpTable.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableUtils.h"

/// Hidden: the value of each code from those of its operands, for both scalars.
namespace nsExprRules {

using Op = VrexExpr::Op;

template <typename T>
using Argument = std::conditional_t<std::is_same_v<T, double>, double, const T&>;
template <typename T>
using UnaryRule = T (*)(Argument<T>);
template <typename T>
using BinaryRule = T (*)(Argument<T>, Argument<T>);

/// Divisors below give the largest double.
constexpr double LEAST_DIVISOR = 1e-10;
constexpr double LOG10_OF_E = 0.4342944819032518;

/// 0 at 0, -1 for NaN.
inline double sign(double x) { return x == 0.0 ? 0.0 : nsVariableUtils::sign(x); }
/// Kept: -1 at 0.
inline VrexVariable sign(const VrexVariable& x) { return ::sign(x); }

inline double quotient(double a, double b) {
    // Kept: positive whatever the sign of a; a NaN divisor passes.
    return std::fabs(b) < LEAST_DIVISOR ? std::numeric_limits<double>::max() : a / b;
}
inline VrexVariable quotient(const VrexVariable& a, const VrexVariable& b) { return a / b; }

inline double log10(double x) { return std::log10(x); }
inline VrexVariable log10(const VrexVariable& x) { return log(x) * LOG10_OF_E; }

/// Approximation of the Fresnel sine integral. With t = |x|, u = t * t, y = u * pi * 0.5 and
/// f = (t * 0.926 + 1) / (t * 1.792 + 2 + u * 3.104):
/// sign(x) * (0.5 - cos(y) * f - sin(y) * (1 / (u * t * 6.67 + (u * 3.492 + 6.142)))).
template <typename T>
T sfres(Argument<T> x) {
    using std::abs;
    using std::cos;
    using std::sin;
    const T t = abs(x);
    const T u = t * t;
    const T y = u * nsExprOps::PI.value * 0.5;
    const T f = (t * 0.926 + 1.0) / (t * 1.792 + 2.0 + u * 3.104);
    return nsExprRules::sign(x) * (0.5 - cos(y) * f - sin(y) * (1.0 / (u * t * 6.67 + (u * 3.492 + 6.142))));
}

/// Approximation of the Fresnel cosine integral, with the letters of `sfres`:
/// sign(x) * (sin(y) * f + 0.5 - cos(y) * (1 / (t * 4.142 + 2 + u * 3.492 + u * t * 6.67))).
/// Kept: the two denominators are not alike.
template <typename T>
T cfres(Argument<T> x) {
    using std::abs;
    using std::cos;
    using std::sin;
    const T t = abs(x);
    const T u = t * t;
    const T y = u * nsExprOps::PI.value * 0.5;
    const T f = (t * 0.926 + 1.0) / (t * 1.792 + 2.0 + u * 3.104);
    return nsExprRules::sign(x) *
           (sin(y) * f + 0.5 - cos(y) * (1.0 / (t * 4.142 + 2.0 + u * 3.492 + u * t * 6.67)));
}

/// How far a > b is violated: |a - b| - (a - b).
template <typename T>
T lackToGreater(Argument<T> a, Argument<T> b) {
    using std::abs;
    const T difference = a - b;
    return abs(difference) - difference;
}

/// How far a < b is violated: |a - b| - (b - a).
template <typename T>
T lackToLess(Argument<T> a, Argument<T> b) {
    using std::abs;
    const T difference = a - b;
    const T opposite = b - a;
    return abs(difference) - opposite;
}

template <typename Rule>
struct Row {
    Op op;
    Rule rule;
};

template <typename T>
struct Rules {
    using A = Argument<T>;

    static constexpr std::array UNARY{
        Row<UnaryRule<T>>{Op::Neg, [](A x) -> T { return -x; }},
        Row<UnaryRule<T>>{Op::Sqr, [](A x) -> T { return x * x; }},
        Row<UnaryRule<T>>{Op::Sqrt,
                          [](A x) -> T {
                              using std::sqrt;
                              return sqrt(x);
                          }},
        Row<UnaryRule<T>>{Op::Abs,
                          [](A x) -> T {
                              using std::abs;
                              return abs(x);
                          }},
        Row<UnaryRule<T>>{Op::Cos,
                          [](A x) -> T {
                              using std::cos;
                              return cos(x);
                          }},
        Row<UnaryRule<T>>{Op::Sin,
                          [](A x) -> T {
                              using std::sin;
                              return sin(x);
                          }},
        Row<UnaryRule<T>>{Op::Acos,
                          [](A x) -> T {
                              using std::acos;
                              return acos(x);
                          }},
        Row<UnaryRule<T>>{Op::Asin,
                          [](A x) -> T {
                              using std::asin;
                              return asin(x);
                          }},
        Row<UnaryRule<T>>{Op::Cosh,
                          [](A x) -> T {
                              using std::cosh;
                              return cosh(x);
                          }},
        Row<UnaryRule<T>>{Op::Sinh,
                          [](A x) -> T {
                              using std::sinh;
                              return sinh(x);
                          }},
        Row<UnaryRule<T>>{Op::Exp,
                          [](A x) -> T {
                              using std::exp;
                              return exp(x);
                          }},
        Row<UnaryRule<T>>{Op::Sfres, sfres<T>},
        Row<UnaryRule<T>>{Op::Cfres, cfres<T>},
        Row<UnaryRule<T>>{Op::Sign, [](A x) -> T { return nsExprRules::sign(x); }},
        Row<UnaryRule<T>>{Op::Tanh,
                          [](A x) -> T {
                              using std::tanh;
                              return tanh(x);
                          }},
        Row<UnaryRule<T>>{Op::Ceil,
                          [](A x) -> T {
                              using std::ceil;
                              return ceil(x);
                          }},
        Row<UnaryRule<T>>{Op::Floor,
                          [](A x) -> T {
                              using std::floor;
                              return floor(x);
                          }},
        Row<UnaryRule<T>>{Op::Tan,
                          [](A x) -> T {
                              using std::tan;
                              return tan(x);
                          }},
        Row<UnaryRule<T>>{Op::Atan,
                          [](A x) -> T {
                              using std::atan;
                              return atan(x);
                          }},
        Row<UnaryRule<T>>{Op::Expm1,
                          [](A x) -> T {
                              using std::expm1;
                              return expm1(x);
                          }},
        Row<UnaryRule<T>>{Op::Log,
                          [](A x) -> T {
                              using std::log;
                              return log(x);
                          }},
        Row<UnaryRule<T>>{Op::Log10, [](A x) -> T { return nsExprRules::log10(x); }},
        Row<UnaryRule<T>>{Op::Log1p,
                          [](A x) -> T {
                              using std::log1p;
                              return log1p(x);
                          }},
    };

    static constexpr std::array BINARY{
        Row<BinaryRule<T>>{Op::Add, [](A a, A b) -> T { return a + b; }},
        Row<BinaryRule<T>>{Op::Sub, [](A a, A b) -> T { return a - b; }},
        Row<BinaryRule<T>>{Op::Mul, [](A a, A b) -> T { return a * b; }},
        Row<BinaryRule<T>>{Op::Div, [](A a, A b) -> T { return quotient(a, b); }},
        Row<BinaryRule<T>>{Op::Atan2,
                           [](A a, A b) -> T {
                               using std::atan2;
                               return atan2(a, b);
                           }},
        Row<BinaryRule<T>>{Op::Greater, lackToGreater<T>},
        Row<BinaryRule<T>>{Op::Less, lackToLess<T>},
        Row<BinaryRule<T>>{Op::LessEqual, lackToLess<T>},
        Row<BinaryRule<T>>{Op::GreaterEqual, lackToGreater<T>},
        Row<BinaryRule<T>>{Op::Equal, [](A a, A b) -> T { return a - b; }},
        Row<BinaryRule<T>>{Op::Drag, [](A a, A b) -> T { return a - b; }},
        Row<BinaryRule<T>>{Op::Pow,
                           [](A a, A b) -> T {
                               using std::pow;
                               return pow(a, b);
                           }},
        Row<BinaryRule<T>>{Op::Hypot,
                           [](A a, A b) -> T {
                               using std::hypot;
                               return hypot(a, b);
                           }},
        Row<BinaryRule<T>>{Op::Mod,
                           [](A a, A b) -> T {
                               using std::fmod;
                               return fmod(a, b);
                           }},
    };
};

/// Rules by code, null for codes without.
template <typename Rule, std::size_t Count>
constexpr auto byCode(const std::array<Row<Rule>, Count>& rows) {
    std::array<Rule, nsExprOps::ROWS.size()> rules{};
    for (const Row<Rule>& row : rows) {
        rules[static_cast<std::size_t>(row.op)] = row.rule;
    }
    return rules;
}

template <typename T>
constexpr auto UNARY_RULES = byCode(Rules<T>::UNARY);
template <typename T>
constexpr auto BINARY_RULES = byCode(Rules<T>::BINARY);

} // namespace nsExprRules
