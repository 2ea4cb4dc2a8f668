#pragma once

#include "data/VrexVariable.h"
#include "data/VrexVariableKernels.h"
#include "data/VrexVariableLogging.h"

namespace nsVariableKernels {

/// A result of one operand, made like it.
template <typename Rule>
inline VrexVariable unary(double value, const VrexVariable& a, VrexLogOperationType operation,
                          const Rule& rule) {
    VrexVariable result(value);
    transform(result.derivatives(), a.derivatives(), rule);
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordUnary(result, a, operation);
    }
    return result;
}

/// A result of an operand and a plain number on its right, made like the operand.
template <typename Rule>
inline VrexVariable withRight(double value, const VrexVariable& a, double c, VrexLogOperationType operation,
                              const Rule& rule) {
    VrexVariable result(value);
    transform(result.derivatives(), a.derivatives(), rule);
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordRightConstant(result, a, c, operation);
    }
    return result;
}

/// A result of a plain number and an operand on its right, made like the operand.
template <typename Rule>
inline VrexVariable withLeft(double value, double c, const VrexVariable& a, VrexLogOperationType operation,
                             const Rule& rule) {
    VrexVariable result(value);
    transform(result.derivatives(), a.derivatives(), rule);
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordLeftConstant(result, c, a, operation);
    }
    return result;
}

/// A result of two operands, made like the first.
template <typename Rule>
inline VrexVariable binary(double value, const VrexVariable& a, const VrexVariable& b,
                           VrexLogOperationType operation, const Rule& rule) {
    VrexVariable result(value);
    if (!combineAligned(result.derivatives(), a.derivatives(), b.derivatives(), rule)) {
        combineUnaligned(result.derivatives(), a.derivatives(), b.derivatives(), rule);
    }
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordBinary(result, a, b, operation);
    }
    return result;
}

} // namespace nsVariableKernels

// Arithmetic. The result holds the first operand's keys in their order, then those that only the second has;
// no key is ever dropped, a - a keeps all with the value zero. An operand without derivatives counts as a
// plain number, in the log too.

inline VrexVariable operator-(const VrexVariable& a) {
    return nsVariableKernels::unary(-a.value(), a, VrexLogOperationType::Negate, [](double d) { return -d; });
}

inline VrexVariable operator+(const VrexVariable& a, double c) {
    return nsVariableKernels::withRight(a.value() + c, a, c, VrexLogOperationType::Add,
                                        [](double d) { return d; });
}
inline VrexVariable operator+(double c, const VrexVariable& a) {
    return nsVariableKernels::withLeft(c + a.value(), c, a, VrexLogOperationType::Add,
                                       [](double d) { return d; });
}
inline VrexVariable operator-(const VrexVariable& a, double c) {
    return nsVariableKernels::withRight(a.value() - c, a, c, VrexLogOperationType::Subtract,
                                        [](double d) { return d; });
}
inline VrexVariable operator-(double c, const VrexVariable& a) {
    return nsVariableKernels::withLeft(c - a.value(), c, a, VrexLogOperationType::Subtract,
                                       [](double d) { return -d; });
}
// Kept: a product with a plain number copies the store, with a copy's capacity, and draws no temporary name.
inline VrexVariable operator*(const VrexVariable& a, double c) {
    VrexVariable result(a.value() * c);
    nsVariableKernels::scaledCopy(result.derivatives(), a.derivatives(), c);
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordRightFactor(result, a, c);
    }
    return result;
}
inline VrexVariable operator*(double c, const VrexVariable& a) {
    VrexVariable result(c * a.value());
    nsVariableKernels::scaledCopy(result.derivatives(), a.derivatives(), c);
    if (a.hasLog()) [[unlikely]] {
        VrexVariableLogging::recordLeftFactor(result, c, a);
    }
    return result;
}
inline VrexVariable operator/(const VrexVariable& a, double c) {
    return nsVariableKernels::withRight(a.value() / c, a, c, VrexLogOperationType::Divide,
                                        [c](double d) { return d / c; });
}
inline VrexVariable operator/(double c, const VrexVariable& a) {
    const double squared = a.value() * a.value();
    return nsVariableKernels::withLeft(c / a.value(), c, a, VrexLogOperationType::Divide,
                                       [c, squared](double d) { return -(d * c) / squared; });
}

namespace nsVariableKernels {

// The forms of two variables one of which has no derivatives: it counts as a plain number, the first one
// first.

[[gnu::noinline]] inline VrexVariable plainSum(const VrexVariable& a, const VrexVariable& b) {
    return a.derivatives().empty() ? a.value() + b : a + b.value();
}
[[gnu::noinline]] inline VrexVariable plainDifference(const VrexVariable& a, const VrexVariable& b) {
    return a.derivatives().empty() ? a.value() - b : a - b.value();
}
[[gnu::noinline]] inline VrexVariable plainProduct(const VrexVariable& a, const VrexVariable& b) {
    return a.derivatives().empty() ? a.value() * b : a * b.value();
}
[[gnu::noinline]] inline VrexVariable plainQuotient(const VrexVariable& a, const VrexVariable& b) {
    return a.derivatives().empty() ? a.value() / b : a / b.value();
}

} // namespace nsVariableKernels

inline VrexVariable operator+(const VrexVariable& a, const VrexVariable& b) {
    if (a.derivatives().empty() || b.derivatives().empty()) {
        return nsVariableKernels::plainSum(a, b);
    }
    return nsVariableKernels::binary(a.value() + b.value(), a, b, VrexLogOperationType::Add,
                                     [](double da, double db) { return da + db; });
}
inline VrexVariable operator-(const VrexVariable& a, const VrexVariable& b) {
    if (a.derivatives().empty() || b.derivatives().empty()) {
        return nsVariableKernels::plainDifference(a, b);
    }
    return nsVariableKernels::binary(a.value() - b.value(), a, b, VrexLogOperationType::Subtract,
                                     [](double da, double db) { return da - db; });
}
inline VrexVariable operator*(const VrexVariable& a, const VrexVariable& b) {
    if (a.derivatives().empty() || b.derivatives().empty()) {
        return nsVariableKernels::plainProduct(a, b);
    }
    const double left = a.value();
    const double right = b.value();
    return nsVariableKernels::binary(left * right, a, b, VrexLogOperationType::Multiply,
                                     [left, right](double da, double db) { return da * right + db * left; });
}
inline VrexVariable operator/(const VrexVariable& a, const VrexVariable& b) {
    if (a.derivatives().empty() || b.derivatives().empty()) {
        return nsVariableKernels::plainQuotient(a, b);
    }
    const double left = a.value();
    const double right = b.value();
    const double squared = right * right;
    return nsVariableKernels::binary(
        left / right, a, b, VrexLogOperationType::Divide,
        [left, right, squared](double da, double db) { return (da * right - db * left) / squared; });
}
