#include "data/VrexQuaternionT.h"

#include <cmath>

namespace {

constexpr double PI = 3.141592653589793;

template <typename T>
double magnitudeValue(const VrexVector3DT<T>& v) {
    return nsVariableUtils::toValue(v.magnitude());
}

/// The rotation by `angle` about `axis`, whose magnitude is the sine of the angle: no tiny axis is
/// normalised.
template <typename T>
VrexQuaternionT<T> makeSmallRotation(const T& angle, const VrexVector3DT<T>& axis) {
    using std::cos;
    const T h = cos(angle * 0.5);
    return VrexQuaternionT<T>::makeFromScalarAndVector(h, axis / (2.0 * h));
}

/// An axis for a half turn of `from`. Kept: the test takes `from` and `hint` as given, not normalised.
template <typename T>
VrexVector3DT<T> chooseHalfTurnAxis(const VrexVector3DT<T>& from, double eps, const VrexVector3DT<T>& hint) {
    if (std::fabs(nsVariableUtils::toValue(from.dotProduct(hint))) < eps) {
        return hint;
    }
    const VrexVector3DT<T> axis = from.crossProduct(VrexVector3DT<T>::OY());
    return magnitudeValue(axis) < eps ? from.crossProduct(VrexVector3DT<T>::OZ()) : axis;
}

} // namespace

template <typename T>
VrexQuaternionT<T> VrexQuaternionT<T>::makeFromAngleAndAxis(const T& angle, const Vector& axis, double eps) {
    using std::cos;
    using std::sin;
    const T half = angle * 0.5;
    return {cos(half), axis.makeNormalized(eps, Vector::ZERO()) * sin(half)};
}

template <typename T>
VrexQuaternionT<T> VrexQuaternionT<T>::makeRotation(const Vector& from, const Vector& to, double eps,
                                                    const Vector& hint) {
    using std::atan2;
    if (magnitudeValue(from) < eps || magnitudeValue(to) < eps) {
        return ONE();
    }
    const Vector a = from.makeNormalized(eps, Vector::ZERO());
    const Vector b = to.makeNormalized(eps, Vector::ZERO());
    const Vector c = a.crossProduct(b);
    const T sine = c.magnitude();
    const T cosine = nsVectorFormulas::clampToUnitRange(a.dotProduct(b));
    if (nsVariableUtils::toValue(sine) >= eps) {
        return makeFromAngleAndAxis(atan2(sine, cosine), c, eps);
    }
    if (nsVariableUtils::toValue(cosine) > 0.0) {
        return makeSmallRotation<T>(atan2(sine, cosine), c);
    }
    const VrexQuaternionT halfTurn = makeFromAngleAndAxis(T(PI), chooseHalfTurnAxis(from, eps, hint), eps);
    const Vector e = -c;
    return makeSmallRotation<T>(atan2(e.magnitude(), -cosine), e) * halfTurn;
}

template <typename T>
VrexQuaternionT<T>
VrexQuaternionT<T>::makeRotationOfInitialCoordinateSystem(const Vector& a1, const Vector& a2,
                                                          const Vector& b1, const Vector& b2, double eps) {
    const VrexQuaternionT first = makeRotation(a1, b1, eps, Vector::OX());
    const VrexQuaternionT second = makeRotation(rotate(a2, first, false), b2, eps, b1);
    return second * first;
}

template <typename T>
VrexQuaternionT<T> VrexQuaternionT<T>::makeRotationOfCoordinateSystem(const Vector& b1, const Vector& b2,
                                                                      double eps) {
    return makeRotationOfInitialCoordinateSystem(Vector::OX(), Vector::OZ(), b1, b2, eps);
}

template <typename T>
VrexVector3DT<T> VrexQuaternionT<T>::rotate(const Vector& v, const T& angle, const Vector& axis, double eps) {
    return rotate(v, makeFromAngleAndAxis(angle, axis, eps), false);
}

template <typename T>
T VrexQuaternionT<T>::norm() const {
    using std::sqrt;
    return sqrt(normSquared());
}

template <typename T>
VrexQuaternionT<T> VrexQuaternionT<T>::normalized(double eps) const {
    const T length = norm();
    if (std::fabs(nsVariableUtils::toValue(length)) <= eps) {
        return *this;
    }
    return {m_scalar / length, m_vector / length};
}

template <typename T>
T VrexQuaternionT<T>::rotationalAngle() const {
    using std::acos;
    return 2.0 * acos(nsVectorFormulas::clampToUnitRange(m_scalar));
}

template <typename T>
VrexVector3DT<T> VrexQuaternionT<T>::rotationalAxis(double eps) const {
    const Vector axis = m_vector.makeNormalized(eps, Vector::ZERO());
    return magnitudeValue(axis) >= eps ? axis : Vector::OX();
}

template class VrexQuaternionT<double>;
template class VrexQuaternionT<VrexVariable>;
