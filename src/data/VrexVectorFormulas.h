#pragma once

#include <cmath>
#include <concepts>
#include <type_traits>

#include "data/VrexVariable.h"
#include "data/VrexVariableUtils.h"

/// What may scale a vector or a quaternion over T: any built-in number, or a T.
template <typename S, typename T>
concept VrexScaleFactor = std::is_arithmetic_v<S> || std::derived_from<S, T>;

/// The formulas of the vectors and quaternions, by plain operators of the scalar and in the order that fixes
/// the rounding. The classes call them; for `VrexVariable` the same value, keys and derivatives come in one
/// step where no operand keeps a log and the result is finite (VrexVectorsInOneStep.cpp,
/// VrexQuaternionsInOneStep.cpp), else from here.
namespace nsVectorFormulas {

/// The factor as the scalar's operators take it: a built-in number as a double, anything else as it is.
template <typename S>
decltype(auto) toFactor(const S& factor) {
    if constexpr (std::is_arithmetic_v<S>) {
        return static_cast<double>(factor);
    } else {
        return (factor);
    }
}

/// The value within [-1, 1]. Only a value strictly outside is replaced, by a bound without derivatives, so
/// that exactly 1 keeps its derivatives; a NaN passes.
template <typename T>
T clampToUnitRange(const T& value) {
    if (nsVariableUtils::toValue(value) > 1.0) {
        return nsVariableUtils::initializeValue(1.0, value);
    }
    if (nsVariableUtils::toValue(value) < -1.0) {
        return -nsVariableUtils::initializeValue(1.0, value);
    }
    return value;
}

template <typename Vector>
auto dotProduct(const Vector& a, const Vector& b) {
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

template <typename Vector>
Vector crossProduct(const Vector& a, const Vector& b) {
    return Vector(a.y() * b.z() - b.y() * a.z(), b.x() * a.z() - a.x() * b.z(),
                  b.y() * a.x() - b.x() * a.y());
}

template <typename Vector>
auto magnitudeSquared(const Vector& v) {
    return v.x() * v.x() + v.y() * v.y() + v.z() * v.z();
}

template <typename Vector>
auto magnitude(const Vector& v) {
    using std::sqrt;
    return sqrt(magnitudeSquared(v));
}

template <typename Vector>
auto distance(const Vector& a, const Vector& b) {
    return magnitude(a - b);
}

template <typename Vector>
Vector makeNormalized(const Vector& v, double eps, const Vector& fallback) {
    const auto length = v.magnitude();
    return nsVariableUtils::toValue(length) > eps ? v / length : fallback;
}

/// The Hamilton product.
template <typename Quaternion>
Quaternion product(const Quaternion& a, const Quaternion& b) {
    return Quaternion::makeFromScalarAndVector(a.scalar() * b.scalar() - dotProduct(a.vector(), b.vector()),
                                               b.vector() * a.scalar() + a.vector() * b.scalar() +
                                                   crossProduct(a.vector(), b.vector()));
}

template <typename Quaternion>
auto normSquared(const Quaternion& q) {
    return q.scalar() * q.scalar() + magnitudeSquared(q.vector());
}

/// The vector part of q (0, v) q*, or of q (0, v) q⁻¹ when `useReciprocal` is set.
template <typename Vector, typename Quaternion>
Vector rotate(const Vector& v, const Quaternion& q, bool useReciprocal) {
    const auto turned = product(q, Quaternion::makeFromScalarAndVector(typename Quaternion::Scalar(0.0), v));
    return product(turned, useReciprocal ? q.reciprocal() : q.conjugate()).vector();
}

} // namespace nsVectorFormulas
