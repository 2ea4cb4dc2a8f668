#pragma once

#include <tuple>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableUtils.h"
#include "data/VrexVectorFormulas.h"

/// A vector of space over `double` or `VrexVariable`; zero by default. A plain value: nothing is checked, and
/// degenerate input ends in the named fallback or in what the floating-point unit gives.
///
/// Angles are radians; a direction is a polar angle from the Z axis and an azimuthal angle from the X axis.
/// Comparisons look at values alone, derivatives play no part. Tolerances (`eps`) are plain doubles.
template <typename T>
class VREX_DATA_EXPORT VrexVector3DT {
public:
    using Scalar = T;

    VrexVector3DT() : m_x(0.0), m_y(0.0), m_z(0.0) {}
    VrexVector3DT(const T& x, const T& y, const T& z) : m_x(x), m_y(y), m_z(z) {}

    static VrexVector3DT OX() { return {T(1.0), T(0.0), T(0.0)}; }
    static VrexVector3DT OY() { return {T(0.0), T(1.0), T(0.0)}; }
    static VrexVector3DT OZ() { return {T(0.0), T(0.0), T(1.0)}; }
    static VrexVector3DT ZERO() { return {}; }

    const T& x() const { return m_x; }
    const T& y() const { return m_y; }
    const T& z() const { return m_z; }
    T& x() { return m_x; }
    T& y() { return m_y; }
    T& z() { return m_z; }
    /// Component x for 0, y for 1, z for every other index.
    const T& operator[](int index) const { return index == 0 ? m_x : index == 1 ? m_y : m_z; }
    T& operator[](int index) { return index == 0 ? m_x : index == 1 ? m_y : m_z; }

    VrexVector3DT operator+(const VrexVector3DT& o) const {
        return {PerComponent(), [](const T& a, const T& b) { return a + b; }, *this, o};
    }
    VrexVector3DT operator-(const VrexVector3DT& o) const {
        return {PerComponent(), [](const T& a, const T& b) { return a - b; }, *this, o};
    }
    VrexVector3DT operator-() const {
        return {PerComponent(), [](const T& a) { return -a; }, *this};
    }
    template <VrexScaleFactor<T> S>
    VrexVector3DT operator*(const S& factor) const {
        const auto& by = nsVectorFormulas::toFactor(factor);
        return {PerComponent(), [&by](const T& a) { return a * by; }, *this};
    }
    template <VrexScaleFactor<T> S>
    VrexVector3DT operator/(const S& divisor) const {
        const auto& by = nsVectorFormulas::toFactor(divisor);
        return {PerComponent(), [&by](const T& a) { return a / by; }, *this};
    }

    VrexVector3DT& operator+=(const VrexVector3DT& o);
    VrexVector3DT& operator-=(const VrexVector3DT& o);
    VrexVector3DT& operator*=(const VrexVector3DT& o); ///< Component by component.
    VrexVector3DT& operator/=(const VrexVector3DT& o); ///< Component by component.
    template <VrexScaleFactor<T> S>
    VrexVector3DT& operator*=(const S& factor);
    template <VrexScaleFactor<T> S>
    VrexVector3DT& operator/=(const S& divisor);

    T dotProduct(const VrexVector3DT& o) const { return nsVectorFormulas::dotProduct(*this, o); }
    VrexVector3DT crossProduct(const VrexVector3DT& o) const {
        return nsVectorFormulas::crossProduct(*this, o);
    }
    /// (a x b) . c
    static T mixedProduct(const VrexVector3DT& a, const VrexVector3DT& b, const VrexVector3DT& c) {
        return a.crossProduct(b).dotProduct(c);
    }
    T magnitudeSquared() const { return nsVectorFormulas::magnitudeSquared(*this); }
    T magnitude() const { return nsVectorFormulas::magnitude(*this); }
    T distanceTo(const VrexVector3DT& o) const { return nsVectorFormulas::distance(*this, o); }

    /// The angle from the Z axis, in [0, pi].
    T polarAngle() const;
    /// The angle about the Z axis from the X axis, in (-pi, pi].
    T azimuthalAngle() const;
    /// The cosine of the angle to `o`, in [-1, 1]; 0 when either magnitude is at most `eps`.
    T cos(const VrexVector3DT& o, double eps) const;
    /// The angle to `o`, in [0, pi]; 0 when either magnitude is at most `eps`.
    T angleBetween(const VrexVector3DT& o, double eps) const;

    /// The vector divided by its magnitude when that is greater than `eps`, else `fallback`.
    VrexVector3DT makeNormalized(double eps, const VrexVector3DT& fallback) const {
        return nsVectorFormulas::makeNormalized(*this, eps, fallback);
    }
    /// The projection on the plane through the origin with this normal, which need not be a unit vector; zero
    /// when the magnitude of (normal x this) x normal is at most `eps`.
    VrexVector3DT projectOnPlaneAtOrigin(const VrexVector3DT& normal, double eps) const;
    /// True when each component differs by strictly less than `eps`; so never for an `eps` of 0.
    bool isEqual(const VrexVector3DT& o, double eps) const;

    /// The unit vector at these angles.
    static VrexVector3DT sphericalAnglesToCartesian(const T& polar, const T& azimuthal);
    /// The derivative of that unit vector by the polar angle.
    static VrexVector3DT sphericalAnglesToCartesianPolarDerivative(const T& polar, const T& azimuthal);
    /// (-cos p sin a, cos p cos a, 0): a tangent along the azimuthal angle.
    static VrexVector3DT sphericalAnglesToCartesianAzimuthalDerivative(const T& polar, const T& azimuthal);

    /// The images of the X, Y and Z axes under the shortest rotation that takes Z to these angles.
    static std::tuple<VrexVector3DT, VrexVector3DT, VrexVector3DT> getRotatedBasisVectors(const T& polar,
                                                                                          const T& azimuthal);
    /// The images of the X, Y and Z axes under the inverse of that rotation: element i holds component i of
    /// the three vectors above.
    static std::tuple<VrexVector3DT, VrexVector3DT, VrexVector3DT>
    getInverseRotatedBasisVectors(const T& polar, const T& azimuthal);
    /// The images of the X, Y and Z axes under the rotation about `axis`, which has to be a unit vector.
    static std::tuple<VrexVector3DT, VrexVector3DT, VrexVector3DT>
    getRotationMatrixAroundAxis(const VrexVector3DT& axis, const T& angle);

private:
    template <typename>
    friend class VrexVector3DT;
    template <typename>
    friend class VrexQuaternionT;

    struct PerComponent {};
    struct PerIndex {};
    /// An angle by its sine and cosine, so that these are computed once for several vectors.
    struct Angle {
        explicit Angle(const T& radians);
        T sine;
        T cosine;
    };

    /// The first vector is named by its type, so that no list of numbers fits here.
    template <typename F, typename... Others>
    VrexVector3DT(PerComponent /*tag*/, F f, const VrexVector3DT& v, const Others&... others)
        : m_x(f(v.m_x, others.m_x...)), m_y(f(v.m_y, others.m_y...)), m_z(f(v.m_z, others.m_z...)) {}

    /// Component i is `make(i)`, built in place.
    template <typename F>
    VrexVector3DT(PerIndex /*tag*/, F make) : m_x(make(0)), m_y(make(1)), m_z(make(2)) {}

    static VrexVector3DT getRotatedXBasisVector(const Angle& polar, const Angle& azimuthal);
    static VrexVector3DT getRotatedYBasisVector(const Angle& polar, const Angle& azimuthal);
    static VrexVector3DT getRotatedZBasisVector(const Angle& polar, const Angle& azimuthal);

    T m_x;
    T m_y;
    T m_z;
};

/// a x b
template <typename T>
inline VrexVector3DT<T> crossProduct(const VrexVector3DT<T>& a, const VrexVector3DT<T>& b) {
    return a.crossProduct(b);
}

/// The vector divided by its magnitude when that is greater than `eps`, else the zero vector.
template <typename T>
inline VrexVector3DT<T> normalized(const VrexVector3DT<T>& v, double eps) {
    return v.makeNormalized(eps, VrexVector3DT<T>::ZERO());
}

template <typename T>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator+=(const VrexVector3DT& o) {
    m_x += o.m_x;
    m_y += o.m_y;
    m_z += o.m_z;
    return *this;
}

template <typename T>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator-=(const VrexVector3DT& o) {
    m_x -= o.m_x;
    m_y -= o.m_y;
    m_z -= o.m_z;
    return *this;
}

template <typename T>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator*=(const VrexVector3DT& o) {
    m_x *= o.m_x;
    m_y *= o.m_y;
    m_z *= o.m_z;
    return *this;
}

template <typename T>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator/=(const VrexVector3DT& o) {
    m_x /= o.m_x;
    m_y /= o.m_y;
    m_z /= o.m_z;
    return *this;
}

template <typename T>
template <VrexScaleFactor<T> S>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator*=(const S& factor) {
    const auto by = nsVectorFormulas::toFactor(factor); // a copy: the factor may be one of the components
    m_x *= by;
    m_y *= by;
    m_z *= by;
    return *this;
}

template <typename T>
template <VrexScaleFactor<T> S>
inline VrexVector3DT<T>& VrexVector3DT<T>::operator/=(const S& divisor) {
    const auto by = nsVectorFormulas::toFactor(divisor); // a copy: the divisor may be one of the components
    m_x /= by;
    m_y /= by;
    m_z /= by;
    return *this;
}

// Evaluated in one step; VrexVectorsInOneStep.cpp.
template <>
VREX_DATA_EXPORT VrexVariable VrexVector3DT<VrexVariable>::dotProduct(const VrexVector3DT& o) const;
template <>
VREX_DATA_EXPORT VrexVector3DT<VrexVariable>
VrexVector3DT<VrexVariable>::crossProduct(const VrexVector3DT& o) const;
template <>
VREX_DATA_EXPORT VrexVariable VrexVector3DT<VrexVariable>::magnitudeSquared() const;
template <>
VREX_DATA_EXPORT VrexVariable VrexVector3DT<VrexVariable>::magnitude() const;
template <>
VREX_DATA_EXPORT VrexVariable VrexVector3DT<VrexVariable>::distanceTo(const VrexVector3DT& o) const;
template <>
VREX_DATA_EXPORT VrexVector3DT<VrexVariable>
VrexVector3DT<VrexVariable>::makeNormalized(double eps, const VrexVector3DT& fallback) const;
template <>
VREX_DATA_EXPORT VrexVector3DT<VrexVariable>
VrexVector3DT<VrexVariable>::sphericalAnglesToCartesian(const VrexVariable& polar,
                                                        const VrexVariable& azimuthal);
template <>
VREX_DATA_EXPORT
    std::tuple<VrexVector3DT<VrexVariable>, VrexVector3DT<VrexVariable>, VrexVector3DT<VrexVariable>>
    VrexVector3DT<VrexVariable>::getRotatedBasisVectors(const VrexVariable& polar,
                                                        const VrexVariable& azimuthal);

extern template class VrexVector3DT<double>;
extern template class VrexVector3DT<VrexVariable>;
