#include "data/VrexTransformation3DT.h"

#include <cmath>

namespace {

/// The axis of a given rotation counts as zero up to this magnitude.
constexpr double GIVEN_AXIS_TOLERANCE = 1e-6;
/// The vector of a stored rotation counts as zero up to this magnitude.
constexpr double STORED_AXIS_TOLERANCE = 1e-10;
/// A composed rotation of this norm or less is left as it is: a hundred times the spacing of doubles at 1.
constexpr double COMPOSITION_TOLERANCE = 2.220446049250313e-14;

template <typename T>
VrexQuaternionT<T> toScalar(const VrexQuaternionT<double>& q) {
    return VrexQuaternionT<T>::makeFromScalarAndVector(T(q.scalar()), {T(q.i()), T(q.j()), T(q.k())});
}

} // namespace

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT() : m_rotation(Quaternion::ONE()) {}

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT(const Vector& translation, const Quaternion& rotation)
    : m_translation(translation), m_rotation(rotation) {}

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT(const Vector& translation, const T& angle, const Vector& axis)
    : m_translation(translation),
      m_rotation(Quaternion::makeFromAngleAndAxis(angle, axis, GIVEN_AXIS_TOLERANCE)) {}

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT(const T& angle, const Vector& axis)
    : VrexTransformation3DT(Vector::ZERO(), angle, axis) {}

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT(const Vector& translation, const T& w, const T& x, const T& y,
                                                const T& z)
    : m_translation(translation), m_rotation(Quaternion::makeFromScalarAndVector(w, {x, y, z})) {}

template <typename T>
VrexTransformation3DT<T>::VrexTransformation3DT(const VrexTransformMatrix3D& matrix)
    : m_translation(T(matrix[0][3]), T(matrix[1][3]), T(matrix[2][3])),
      m_rotation(toScalar<T>(matrix.toQuaternion())) {}

template <typename T>
void VrexTransformation3DT<T>::setRotation(const T& angle, const Vector& axis) {
    m_rotation = Quaternion::makeFromAngleAndAxis(angle, axis, GIVEN_AXIS_TOLERANCE);
}

template <typename T>
T VrexTransformation3DT<T>::getAngle() const {
    return m_rotation.rotationalAngle();
}

template <typename T>
VrexVector3DT<T> VrexTransformation3DT<T>::getAxis() const {
    return m_rotation.rotationalAxis(STORED_AXIS_TOLERANCE);
}

template <typename T>
VrexTransformation3DT<T> VrexTransformation3DT<T>::getInversed() const {
    const Quaternion back = m_rotation.conjugate();
    return {Quaternion::rotate(-m_translation, back, true), back};
}

template <typename T>
VrexTransformation3DT<T> VrexTransformation3DT<T>::operator*(const VrexTransformation3DT& o) const {
    return {Quaternion::rotate(o.m_translation, m_rotation, true) + m_translation,
            (m_rotation * o.m_rotation).normalized(COMPOSITION_TOLERANCE)};
}

template <typename T>
bool VrexTransformation3DT<T>::isEqual(const VrexTransformation3DT& o, double eps1, double eps2) const {
    using nsVariableUtils::toValue;
    return m_translation.isEqual(o.m_translation, eps1) &&
           m_rotation.vector().isEqual(o.m_rotation.vector(), eps1) &&
           std::fabs(toValue(m_rotation.scalar()) - toValue(o.m_rotation.scalar())) < eps2;
}

template class VrexTransformation3DT<double>;
template class VrexTransformation3DT<VrexVariable>;
