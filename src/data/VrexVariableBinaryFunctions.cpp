#include <cmath>

#include "data/VrexVariable.h"

namespace {

using nsVariableKernels::binary;
using nsVariableKernels::withLeft;
using nsVariableKernels::withRight;
using enum VrexLogOperationType;

/// The functions of two arguments whose operands count as plain numbers when they have no derivatives.
template <typename Function, typename General>
VrexVariable forwarding(const VrexVariable& a, const VrexVariable& b, Function function, General general) {
    if (a.derivatives().empty()) {
        return function(a.value(), b);
    }
    if (b.derivatives().empty()) {
        return function(a, b.value());
    }
    return general();
}

} // namespace

VrexVariable pow(const VrexVariable& a, const VrexVariable& b) {
    return forwarding(
        a, b, [](const auto& x, const auto& y) { return pow(x, y); },
        [&] {
            const double exponent = b.value();
            const double value = std::pow(a.value(), exponent);
            const double logarithm = std::log(a.value());
            const double lower = std::pow(a.value(), exponent - 1.0);
            return binary(value, a, b, Pow, [=](double da, double db) {
                return value * (logarithm * db) + lower * (exponent * da);
            });
        });
}

VrexVariable pow(const VrexVariable& a, double c) {
    const double lower = std::pow(a.value(), c - 1.0);
    return withRight(std::pow(a.value(), c), a, c, Pow, [=](double d) { return lower * (c * d); });
}

VrexVariable pow(double c, const VrexVariable& a) {
    const double value = std::pow(c, a.value());
    const double logarithm = std::log(c);
    return withLeft(value, c, a, Pow, [=](double d) { return value * (logarithm * d); });
}

VrexVariable atan2(const VrexVariable& a, const VrexVariable& b) {
    return forwarding(
        a, b, [](const auto& x, const auto& y) { return atan2(x, y); },
        [&] {
            const double left = a.value();
            const double right = b.value();
            const double squares = left * left + right * right;
            return binary(std::atan2(left, right), a, b, Atan2,
                          [=](double da, double db) { return (da * right - db * left) / squares; });
        });
}

VrexVariable atan2(const VrexVariable& a, double c) {
    const double squares = a.value() * a.value() + c * c;
    return withRight(std::atan2(a.value(), c), a, c, Atan2, [=](double d) { return (c * d) / squares; });
}

VrexVariable atan2(double c, const VrexVariable& a) {
    const double squares = a.value() * a.value() + c * c;
    return withLeft(std::atan2(c, a.value()), c, a, Atan2, [=](double d) { return (-d * c) / squares; });
}

VrexVariable hypot2(const VrexVariable& a, const VrexVariable& b) {
    return forwarding(
        a, b, [](const auto& x, const auto& y) { return hypot2(x, y); },
        [&] {
            const double left = a.value();
            const double right = b.value();
            return binary(left * left + right * right, a, b, Hypot2,
                          [=](double da, double db) { return 2.0 * (da * left + db * right); });
        });
}

VrexVariable hypot2(const VrexVariable& a, double c) {
    const double x = a.value();
    return withRight(x * x + c * c, a, c, Hypot2, [x](double d) { return 2.0 * (d * x); });
}

VrexVariable hypot2(double c, const VrexVariable& a) {
    const double x = a.value();
    return withLeft(x * x + c * c, c, a, Hypot2, [x](double d) { return 2.0 * (d * x); });
}

// Kept: no forwarding; operands without derivatives go the general way too.
VrexVariable hypot(const VrexVariable& a, const VrexVariable& b) {
    const double left = a.value();
    const double right = b.value();
    const double length = std::sqrt(left * left + right * right);
    return binary(length, a, b, Hypot,
                  [=](double da, double db) { return (da * left) / length + (db * right) / length; });
}

namespace {

// Kept: this factor, a mere sign, and the dividend's value on db are not the true derivatives.
double remainderFactor(double dividend, double divisor) {
    if (!(std::fabs(dividend) > std::fabs(divisor))) {
        return 0.0;
    }
    return divisor > 0.0 ? -1.0 : 1.0;
}

} // namespace

VrexVariable fmod(const VrexVariable& a, const VrexVariable& b) {
    return forwarding(
        a, b, [](const auto& x, const auto& y) { return fmod(x, y); },
        [&] {
            const double left = a.value();
            const double factor = remainderFactor(left, b.value());
            return binary(std::fmod(left, b.value()), a, b, Fmod,
                          [=](double da, double db) { return left * db + factor * da; });
        });
}

VrexVariable fmod(const VrexVariable& a, double c) {
    const double factor = remainderFactor(a.value(), c);
    return withRight(std::fmod(a.value(), c), a, c, Fmod, [factor](double d) { return factor * d; });
}

VrexVariable fmod(double c, const VrexVariable& a) {
    return withLeft(std::fmod(c, a.value()), c, a, Fmod, [c](double d) { return c * d; });
}

// Kept: written with the comparison negated, so that NaN gives a.
VrexVariable fmin(const VrexVariable& a, const VrexVariable& b) {
    VrexVariable result(!(a.value() > b.value()) ? a : b);
    if (a.hasLog() && b.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordChoice(result, a, b, Min);
    }
    return result;
}

VrexVariable fmax(const VrexVariable& a, const VrexVariable& b) {
    VrexVariable result(!(b.value() > a.value()) ? a : b);
    if (a.hasLog() && b.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordChoice(result, a, b, Max);
    }
    return result;
}
