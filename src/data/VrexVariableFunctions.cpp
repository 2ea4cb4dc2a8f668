#include "data/VrexVariableFunctions.h"

#include <cmath>

#include "data/VrexVariable.h"

// Factors that stand in brackets of their own in a rule are computed once for all entries. Where a function
// needs two of the standard library's, both get the same local number, so that the compiler may call them as
// one.

namespace {

using nsVariableKernels::unary;
using enum VrexLogOperationType;

constexpr double TWO_BY_ROOT_PI = 1.1283791670955126;

/// A piecewise constant function: the result has room for derivatives and none of them.
VrexVariable step(double value, const VrexVariable& a, VrexLogOperationType operation) {
    VrexVariable result(value);
    result.derivatives().reserve(a.derivatives().size());
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordUnary(result, a, operation);
    }
    return result;
}

VrexVariable timesFactor(double value, const VrexVariable& a, VrexLogOperationType operation, double factor) {
    return unary(value, a, operation, [factor](double d) { return factor * d; });
}

VrexVariable byDivisor(double value, const VrexVariable& a, VrexLogOperationType operation, double divisor) {
    return unary(value, a, operation, [divisor](double d) { return d / divisor; });
}

} // namespace

VrexVariable abs(const VrexVariable& a) {
    // Kept: the negative branch at 0 and for NaN.
    const bool positive = a.value() > 0.0;
    return unary(std::fabs(a.value()), a, Abs, [positive](double d) { return positive ? d : -d; });
}

VrexVariable sign(const VrexVariable& a) {
    // Kept: -1 at 0 and for NaN; the keys stay.
    return unary(a.value() > 0.0 ? 1.0 : -1.0, a, Sign, [](double) { return 0.0; });
}

VrexVariable sqrt(const VrexVariable& a) {
    const double root = std::sqrt(a.value());
    return timesFactor(root, a, Sqrt, 0.5 / root);
}

VrexVariable square(const VrexVariable& a) {
    const double x = a.value();
    return unary(x * x, a, Square, [x](double d) { return (d + d) * x; });
}

VrexVariable exp(const VrexVariable& a) {
    const double y = std::exp(a.value());
    return timesFactor(y, a, Exp, y);
}

VrexVariable expm1(const VrexVariable& a) {
    const double y = std::expm1(a.value());
    return timesFactor(y, a, Expm1, y + 1.0);
}

VrexVariable log(const VrexVariable& a) { return byDivisor(std::log(a.value()), a, Log, a.value()); }

VrexVariable log1p(const VrexVariable& a) {
    return byDivisor(std::log1p(a.value()), a, Log1p, a.value() + 1.0);
}

VrexVariable sin(const VrexVariable& a) {
    const double x = a.value();
    return timesFactor(std::sin(x), a, Sin, std::cos(x));
}

VrexVariable cos(const VrexVariable& a) {
    const double x = a.value();
    const double sine = std::sin(x);
    return unary(std::cos(x), a, Cos, [sine](double d) { return sine * -d; });
}

VrexVariable tan(const VrexVariable& a) {
    const double cosine = std::cos(a.value());
    return byDivisor(std::tan(a.value()), a, Tan, cosine * cosine);
}

VrexVariable asin(const VrexVariable& a) {
    const double x = a.value();
    return timesFactor(std::asin(x), a, Asin, 1.0 / std::sqrt(1.0 - x * x));
}

VrexVariable acos(const VrexVariable& a) {
    const double x = a.value();
    return timesFactor(std::acos(x), a, Acos, -1.0 / std::sqrt(1.0 - x * x));
}

VrexVariable atan(const VrexVariable& a) {
    // Kept: with a root in the denominator, which the true derivative lacks.
    const double x = a.value();
    return timesFactor(std::atan(x), a, Atan, 1.0 / std::sqrt(x * x + 1.0));
}

VrexVariable sinh(const VrexVariable& a) {
    return timesFactor(std::sinh(a.value()), a, Sinh, std::cosh(a.value()));
}

VrexVariable cosh(const VrexVariable& a) {
    return timesFactor(std::cosh(a.value()), a, Cosh, std::sinh(a.value()));
}

VrexVariable tanh(const VrexVariable& a) {
    const double cosine = std::cosh(a.value());
    return byDivisor(std::tanh(a.value()), a, Tanh, cosine * cosine);
}

VrexVariable erf(const VrexVariable& a) {
    const double x = a.value();
    return timesFactor(std::erf(x), a, Erf, std::exp(-x * x) * TWO_BY_ROOT_PI);
}

VrexVariable erfc(const VrexVariable& a) {
    const double x = a.value();
    return timesFactor(std::erfc(x), a, Erfc, std::exp(-x * x) * -TWO_BY_ROOT_PI);
}

VrexVariable floor(const VrexVariable& a) { return step(std::floor(a.value()), a, Floor); }

VrexVariable ceil(const VrexVariable& a) { return step(std::ceil(a.value()), a, Ceil); }

VrexVariable trunc(const VrexVariable& a) { return step(std::trunc(a.value()), a, Trunc); }

VrexVariable frac(const VrexVariable& a) {
    return unary(a.value() - std::trunc(a.value()), a, Frac, [](double d) { return d; });
}
