#pragma once

#include <cmath>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableUtils.h"
#include "data/VrexVectorFormulas.h"

/// A vector of the plane over `double` or `VrexVariable`; zero by default. A plain value: nothing is checked,
/// and degenerate input ends in the named fallback or in what the floating-point unit gives.
///
/// Comparisons look at values alone, derivatives play no part. Tolerances (`eps`) are plain doubles.
template <typename T>
class VREX_DATA_EXPORT VrexVector2DT {
public:
    using Scalar = T;

    VrexVector2DT() : m_x(0.0), m_y(0.0) {}
    VrexVector2DT(const T& x, const T& y) : m_x(x), m_y(y) {}

    static VrexVector2DT OX() { return {T(1.0), T(0.0)}; }
    static VrexVector2DT OY() { return {T(0.0), T(1.0)}; }
    static VrexVector2DT Zero() { return {}; }
    /// The unit vector at `angle` radians from the X axis.
    static VrexVector2DT fromAngle(const T& angle);
    /// Per component a copy of the greater one, derivatives and all; that of `a` when neither is greater,
    /// as when either is NaN.
    static VrexVector2DT cwiseMax(const VrexVector2DT& a, const VrexVector2DT& b);
    /// Per component a copy of the smaller one, derivatives and all; that of `a` when neither is smaller,
    /// as when either is NaN.
    static VrexVector2DT cwiseMin(const VrexVector2DT& a, const VrexVector2DT& b);

    const T& x() const { return m_x; }
    const T& y() const { return m_y; }
    T& x() { return m_x; }
    T& y() { return m_y; }
    /// Component x for 0, y for every other index.
    const T& operator[](int index) const { return index == 0 ? m_x : m_y; }
    T& operator[](int index) { return index == 0 ? m_x : m_y; }

    VrexVector2DT operator+(const VrexVector2DT& o) const {
        return {PerComponent(), [](const T& a, const T& b) { return a + b; }, *this, o};
    }
    VrexVector2DT operator-(const VrexVector2DT& o) const {
        return {PerComponent(), [](const T& a, const T& b) { return a - b; }, *this, o};
    }
    VrexVector2DT operator-() const {
        return {PerComponent(), [](const T& a) { return -a; }, *this};
    }
    template <VrexScaleFactor<T> S>
    VrexVector2DT operator*(const S& factor) const {
        const auto& by = nsVectorFormulas::toFactor(factor);
        return {PerComponent(), [&by](const T& a) { return a * by; }, *this};
    }
    template <VrexScaleFactor<T> S>
    VrexVector2DT operator/(const S& divisor) const {
        const auto& by = nsVectorFormulas::toFactor(divisor);
        return {PerComponent(), [&by](const T& a) { return a / by; }, *this};
    }

    VrexVector2DT& operator+=(const VrexVector2DT& o);
    VrexVector2DT& operator-=(const VrexVector2DT& o);
    VrexVector2DT& operator*=(const VrexVector2DT& o); ///< Component by component.
    VrexVector2DT& operator/=(const VrexVector2DT& o); ///< Component by component.
    template <VrexScaleFactor<T> S>
    VrexVector2DT& operator*=(const S& factor);
    template <VrexScaleFactor<T> S>
    VrexVector2DT& operator/=(const S& divisor);

    T dotProduct(const VrexVector2DT& o) const { return m_x * o.m_x + m_y * o.m_y; }
    /// The scalar cross product: positive when `o` lies counter-clockwise of this vector.
    T extProduct(const VrexVector2DT& o) const { return m_x * o.m_y - m_y * o.m_x; }
    T magnitudeSquared() const { return m_x * m_x + m_y * m_y; }
    T magnitude() const;
    T distanceTo(const VrexVector2DT& o) const { return (*this - o).magnitude(); }
    /// The angle from the X axis, in (-pi, pi].
    T angle() const;
    /// The counter-clockwise angle from this direction to `o`, in (-pi, pi].
    T signedAngleToDirection(const VrexVector2DT& o) const;
    /// The vector divided by its magnitude when that is greater than `eps`, else `fallback`.
    VrexVector2DT makeNormalized(double eps, const VrexVector2DT& fallback) const {
        return nsVectorFormulas::makeNormalized(*this, eps, fallback);
    }
    /// The vector turned counter-clockwise by a right angle.
    VrexVector2DT makeOrthogonal() const { return {-m_y, m_x}; }
    /// The vector turned counter-clockwise by `angle` radians.
    VrexVector2DT makeRotated(const T& angle) const;
    /// True when each component differs by strictly less than `eps`; so never for an `eps` of 0.
    bool isEqual(const VrexVector2DT& o, double eps) const;

private:
    struct PerComponent {};

    /// The first vector is named by its type, so that no list of numbers fits here.
    template <typename F, typename... Others>
    VrexVector2DT(PerComponent /*tag*/, F f, const VrexVector2DT& v, const Others&... others)
        : m_x(f(v.m_x, others.m_x...)), m_y(f(v.m_y, others.m_y...)) {}

    static double valueOf(const T& number) { return nsVariableUtils::toValue(number); }

    T m_x;
    T m_y;
};

template <typename T>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator+=(const VrexVector2DT& o) {
    m_x += o.m_x;
    m_y += o.m_y;
    return *this;
}

template <typename T>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator-=(const VrexVector2DT& o) {
    m_x -= o.m_x;
    m_y -= o.m_y;
    return *this;
}

template <typename T>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator*=(const VrexVector2DT& o) {
    m_x *= o.m_x;
    m_y *= o.m_y;
    return *this;
}

template <typename T>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator/=(const VrexVector2DT& o) {
    m_x /= o.m_x;
    m_y /= o.m_y;
    return *this;
}

template <typename T>
template <VrexScaleFactor<T> S>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator*=(const S& factor) {
    const auto by = nsVectorFormulas::toFactor(factor); // a copy: the factor may be one of the components
    m_x *= by;
    m_y *= by;
    return *this;
}

template <typename T>
template <VrexScaleFactor<T> S>
inline VrexVector2DT<T>& VrexVector2DT<T>::operator/=(const S& divisor) {
    const auto by = nsVectorFormulas::toFactor(divisor); // a copy: the divisor may be one of the components
    m_x /= by;
    m_y /= by;
    return *this;
}

template <typename T>
inline T VrexVector2DT<T>::magnitude() const {
    using std::sqrt;
    return sqrt(magnitudeSquared());
}

extern template class VrexVector2DT<double>;
extern template class VrexVector2DT<VrexVariable>;
