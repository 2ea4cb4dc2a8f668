#pragma once

#include "data/VrexVariable.h"
#include "data/VrexVariableInsideKernels.h"
#include "data/VrexVariableKernels.h"
#include "data/VrexVariableLogging.h"

namespace nsVariableKernels {

/// True for what nearly all operands are: without a log, and with a store that is inside.
[[gnu::always_inline]] inline bool isPlain(const VrexVariable& a) {
    return a.derivatives().isInside() && !a.hasLog();
}

template <typename Rule, typename Record>
[[gnu::noinline]] void mapOther(VrexVariable& result, const VrexVariable& a, Rule rule, Record record) {
    transform(result.derivatives(), a.derivatives(), rule);
    if (a.hasLog()) {
        record(result);
    }
}

/// A result of one operand, made like it: rule(d) for each entry d. `record` does the log's side.
template <typename Rule, typename Record>
inline VrexVariable mapped(double value, const VrexVariable& a, const Rule& rule, const Record& record) {
    VrexVariable result(value);
    if (isPlain(a)) [[likely]] {
        transformInside(result.derivatives(), a.derivatives(), rule);
    } else {
        mapOther(result, a, rule, record);
    }
    return result;
}

template <typename Rule>
inline VrexVariable unary(double value, const VrexVariable& a, VrexLogOperationType operation,
                          const Rule& rule) {
    return mapped(value, a, rule, [&a, operation](VrexVariable& result) {
        VrexVariableLogging::recordUnary(result, a, operation);
    });
}

/// A result of an operand and a plain number on its right, made like the operand.
template <typename Rule>
inline VrexVariable withRight(double value, const VrexVariable& a, double c, VrexLogOperationType operation,
                              const Rule& rule) {
    return mapped(value, a, rule, [&a, c, operation](VrexVariable& result) {
        VrexVariableLogging::recordRightConstant(result, a, c, operation);
    });
}

/// A result of a plain number and an operand on its right, made like the operand.
template <typename Rule>
inline VrexVariable withLeft(double value, double c, const VrexVariable& a, VrexLogOperationType operation,
                             const Rule& rule) {
    return mapped(value, a, rule, [&a, c, operation](VrexVariable& result) {
        VrexVariableLogging::recordLeftConstant(result, c, a, operation);
    });
}

template <typename Record>
[[gnu::noinline]] void scaleOther(VrexVariable& result, const VrexVariable& a, double c, Record record) {
    result.derivatives() = a.derivatives();
    update(result.derivatives(), [c](double d) { return c * d; });
    if (a.hasLog()) {
        record(result);
    }
}

/// A product with a plain number. Kept: a copy of the store, with a copy's capacity, and no temporary name.
template <typename Record>
inline VrexVariable scaled(double value, const VrexVariable& a, double c, const Record& record) {
    VrexVariable result(value);
    if (isPlain(a)) [[likely]] {
        transformInside(result.derivatives(), a.derivatives(), [c](double d) { return c * d; });
    } else {
        scaleOther(result, a, c, record);
    }
    return result;
}

// What `binary` meets beyond its own loop, each a function that ends in the next one, so that none has to
// keep anything for after a call.

template <typename Rule>
[[gnu::noinline]] void combineAny(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                                  VrexLogOperationType operation, Rule rule) {
    combine(result.derivatives(), a.derivatives(), b.derivatives(), rule);
    if (a.hasLog()) {
        VrexVariableLogging::recordBinary(result, a, b, operation);
    }
}

template <typename Rule>
[[gnu::noinline]] void combineOverlap(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                                      VrexLogOperationType operation, Rule rule) {
    if (!overlayInside(result.derivatives(), a.derivatives(), b.derivatives(), rule)) [[unlikely]] {
        combineAny(result, a, b, operation, rule);
    }
}

template <typename Rule>
[[gnu::noinline]] void combineOther(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                                    VrexLogOperationType operation, Rule rule) {
    const auto& left = a.derivatives();
    const auto& right = b.derivatives();
    if (!isPlain(a) || !right.isInside() || (left.keyBits() & right.keyBits()) == 0) [[unlikely]] {
        return combineAny(result, a, b, operation, rule);
    }
    if (right.size() == 1 && left.size() < Store::INLINE_CAPACITY) {
        return combineOneRight(result.derivatives(), left, right, rule);
    }
    if (left.size() == 1 && right.size() < Store::INLINE_CAPACITY) {
        return combineOneLeft(result.derivatives(), left, right, rule);
    }
    if ((right.keyBits() & ~left.keyBits()) != 0 || !combineSubset(result.derivatives(), left, right, rule)) {
        combineOverlap(result, a, b, operation, rule);
    }
}

/// A result of two operands, made like the first.
template <typename Rule>
inline VrexVariable binary(double value, const VrexVariable& a, const VrexVariable& b,
                           VrexLogOperationType operation, const Rule& rule) {
    VrexVariable result(value);
    if (!isPlain(a) || !b.derivatives().isInside() ||
        !combineInside(result.derivatives(), a.derivatives(), b.derivatives(), rule)) {
        combineOther(result, a, b, operation, rule);
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
inline VrexVariable operator*(const VrexVariable& a, double c) {
    return nsVariableKernels::scaled(a.value() * c, a, c, [&a, c](VrexVariable& result) {
        VrexVariableLogging::recordRightFactor(result, a, c);
    });
}
inline VrexVariable operator*(double c, const VrexVariable& a) {
    return nsVariableKernels::scaled(c * a.value(), a, c, [&a, c](VrexVariable& result) {
        VrexVariableLogging::recordLeftFactor(result, c, a);
    });
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
