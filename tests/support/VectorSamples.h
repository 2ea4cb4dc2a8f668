#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

#include "data/VrexQuaternionT.h"
#include "data/VrexVariable.h"
#include "data/VrexVector2DT.h"
#include "data/VrexVector3DT.h"

/// Vectors and quaternions over both scalars, and their values, for tests.
namespace nsVectorSamples {

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double PI = 3.141592653589793;

using Scalars = ::testing::Types<double, VrexVariable>;

inline double valueOf(double number) { return number; }
inline double valueOf(const VrexVariable& number) { return number.value(); }

/// A number; a VrexVariable is the independent variable of index `key`.
template <typename T>
T number(double value, std::size_t key) {
    T result(value);
    if constexpr (std::is_same_v<T, VrexVariable>) {
        result.derivatives().set(key, 1.0);
    }
    return result;
}

template <typename T>
VrexVector2DT<T> vector2(double x, double y, std::size_t firstKey = 0) {
    return {number<T>(x, firstKey), number<T>(y, firstKey + 1)};
}

template <typename T>
VrexVector3DT<T> vector3(double x, double y, double z, std::size_t firstKey = 0) {
    return {number<T>(x, firstKey), number<T>(y, firstKey + 1), number<T>(z, firstKey + 2)};
}

template <typename T>
VrexQuaternionT<T> quaternion(double w, double i, double j, double k, std::size_t firstKey = 0) {
    return VrexQuaternionT<T>::makeFromScalarAndVector(number<T>(w, firstKey),
                                                       vector3<T>(i, j, k, firstKey + 1));
}

using Values2 = std::array<double, 2>;
using Values3 = std::array<double, 3>;
using Values4 = std::array<double, 4>;

template <typename T>
Values2 valuesOf(const VrexVector2DT<T>& v) {
    return {valueOf(v.x()), valueOf(v.y())};
}

template <typename T>
Values3 valuesOf(const VrexVector3DT<T>& v) {
    return {valueOf(v.x()), valueOf(v.y()), valueOf(v.z())};
}

/// Scalar first.
template <typename T>
Values4 valuesOf(const VrexQuaternionT<T>& q) {
    return {valueOf(q.scalar()), valueOf(q.i()), valueOf(q.j()), valueOf(q.k())};
}

template <std::size_t N>
void expectNear(const std::array<double, N>& actual, const std::array<double, N>& expected,
                double tolerance) {
    for (std::size_t i = 0; i < N; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
    }
}

/// The rotation of `v` about a unit axis by Rodrigues' formula.
inline Values3 rodrigues(const Values3& v, const Values3& n, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double along = (n[0] * v[0] + n[1] * v[1] + n[2] * v[2]) * (1.0 - c);
    return {v[0] * c + (n[1] * v[2] - n[2] * v[1]) * s + n[0] * along,
            v[1] * c + (n[2] * v[0] - n[0] * v[2]) * s + n[1] * along,
            v[2] * c + (n[0] * v[1] - n[1] * v[0]) * s + n[2] * along};
}

} // namespace nsVectorSamples
