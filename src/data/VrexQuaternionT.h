#pragma once

#include "data/VrexExport.h"
#include "data/VrexVector3DT.h"
#include "data/VrexVectorFormulas.h"

/// A quaternion over `double` or `VrexVariable`: a scalar and a vector (i, j, k). The rotation by `angle`
/// about a unit axis n is (cos(angle / 2), n sin(angle / 2)); q and -q are the same rotation.
///
/// A plain value that nothing keeps at unit length. Nothing is checked: degenerate input ends in the named
/// fallback or in what the floating-point unit gives (the reciprocal of zero is NaN). Angles are radians,
/// comparisons with a tolerance (`eps`) look at values alone.
template <typename T>
class VREX_DATA_EXPORT VrexQuaternionT {
public:
    using Scalar = T;
    using Vector = VrexVector3DT<T>;

    /// No rotation: (1, 0, 0, 0).
    static VrexQuaternionT ONE() { return {T(1.0), Vector::ZERO()}; }
    static VrexQuaternionT makeFromScalarAndVector(const T& scalar, const Vector& vector) {
        return {scalar, vector};
    }
    /// The rotation about `axis`, which need not be a unit vector. An axis of magnitude `eps` or less counts
    /// as zero, and the result is then (cos(angle / 2), 0, 0, 0).
    static VrexQuaternionT makeFromAngleAndAxis(const T& angle, const Vector& axis, double eps);
    /// The shortest rotation that takes the direction `from` to the direction `to`; `ONE()` when either is
    /// shorter than `eps`. Opposite directions are reached by a half turn about `hint` when `hint` is
    /// orthogonal to `from` within `eps`, else about `from` x OY or, when that is shorter than `eps`,
    /// `from` x OZ.
    ///
    /// Between exactly equal or opposite directions the derivatives by the keys of either are NaN: the root
    /// of zero has none.
    static VrexQuaternionT makeRotation(const Vector& from, const Vector& to, double eps, const Vector& hint);
    /// The rotation that takes `a1` to `b1` and, as far as that leaves it free, `a2` to `b2`.
    static VrexQuaternionT makeRotationOfInitialCoordinateSystem(const Vector& a1, const Vector& a2,
                                                                 const Vector& b1, const Vector& b2,
                                                                 double eps);
    /// The rotation that takes the X axis to `b1` and, as far as that leaves it free, the Z axis to `b2`.
    static VrexQuaternionT makeRotationOfCoordinateSystem(const Vector& b1, const Vector& b2, double eps);

    /// `v` turned by `q`. Without `useReciprocal` the conjugate stands for the inverse, so that a `q` that is
    /// not of unit length scales by its squared norm; with it any `q` but zero turns exactly.
    static Vector rotate(const Vector& v, const VrexQuaternionT& q, bool useReciprocal) {
        return nsVectorFormulas::rotate(v, q, useReciprocal);
    }
    /// `v` turned by `angle` about `axis`; see makeFromAngleAndAxis.
    static Vector rotate(const Vector& v, const T& angle, const Vector& axis, double eps);

    const T& scalar() const { return m_scalar; }
    const Vector& vector() const { return m_vector; }
    const T& i() const { return m_vector.x(); }
    const T& j() const { return m_vector.y(); }
    const T& k() const { return m_vector.z(); }
    T& scalar() { return m_scalar; }
    Vector& vector() { return m_vector; }
    T& i() { return m_vector.x(); }
    T& j() { return m_vector.y(); }
    T& k() { return m_vector.z(); }

    VrexQuaternionT conjugate() const { return {m_scalar, m_vector * -1.0}; }
    T normSquared() const { return nsVectorFormulas::normSquared(*this); }
    T norm() const;
    /// All parts divided by the norm; an unchanged copy when the norm is at most `eps`.
    VrexQuaternionT normalized(double eps) const;
    /// The inverse: conjugate() / normSquared().
    VrexQuaternionT reciprocal() const { return conjugate() * (1.0 / normSquared()); }

    /// The Hamilton product: turns by `o` first, then by this.
    VrexQuaternionT operator*(const VrexQuaternionT& o) const { return nsVectorFormulas::product(*this, o); }
    template <VrexScaleFactor<T> S>
    VrexQuaternionT operator*(const S& factor) const {
        return {m_scalar * nsVectorFormulas::toFactor(factor), m_vector * factor};
    }

    /// The angle of the rotation, in [0, 2 pi]; the scalar counts as within [-1, 1].
    T rotationalAngle() const;
    /// The unit axis of the rotation; the X axis when the vector is not longer than `eps`.
    /// Kept: the unit vector, or zero in place of a vector too short, is tested against `eps` once more. So
    /// every `eps` above 1 gives the X axis, and an `eps` of 0 the zero vector for no rotation.
    Vector rotationalAxis(double eps) const;

private:
    struct PerPart {};

    /// The parts built in place: `makeScalar()`, and `makeComponent(0)` to `makeComponent(2)`.
    template <typename F, typename G>
    VrexQuaternionT(PerPart /*tag*/, F makeScalar, G makeComponent)
        : m_scalar(makeScalar()), m_vector(typename Vector::PerIndex(), makeComponent) {}
    VrexQuaternionT(const T& scalar, const Vector& vector) : m_scalar(scalar), m_vector(vector) {}

    T m_scalar;
    Vector m_vector;
};

// Evaluated in one step; VrexQuaternionsInOneStep.cpp.
template <>
VREX_DATA_EXPORT VrexQuaternionT<VrexVariable>
VrexQuaternionT<VrexVariable>::operator*(const VrexQuaternionT& o) const;
template <>
VREX_DATA_EXPORT VrexVariable VrexQuaternionT<VrexVariable>::normSquared() const;
template <>
VREX_DATA_EXPORT VrexVector3DT<VrexVariable>
VrexQuaternionT<VrexVariable>::rotate(const Vector& v, const VrexQuaternionT& q, bool useReciprocal);

extern template class VrexQuaternionT<double>;
extern template class VrexQuaternionT<VrexVariable>;
