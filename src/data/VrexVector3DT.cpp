#include "data/VrexVector3DT.h"

#include <cmath>

template <typename T>
T VrexVector3DT<T>::polarAngle() const {
    using std::atan2;
    using std::sqrt;
    return atan2(sqrt(m_x * m_x + m_y * m_y), m_z);
}

template <typename T>
T VrexVector3DT<T>::azimuthalAngle() const {
    using std::atan2;
    return atan2(m_y, m_x);
}

template <typename T>
T VrexVector3DT<T>::cos(const VrexVector3DT& o, double eps) const {
    return nsVectorFormulas::clampToUnitRange(normalized(*this, eps).dotProduct(normalized(o, eps)));
}

template <typename T>
T VrexVector3DT<T>::angleBetween(const VrexVector3DT& o, double eps) const {
    using std::atan2;
    const VrexVector3DT a = normalized(*this, eps);
    const VrexVector3DT b = normalized(o, eps);
    return atan2(a.crossProduct(b).magnitude(), nsVectorFormulas::clampToUnitRange(a.dotProduct(b)));
}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::projectOnPlaneAtOrigin(const VrexVector3DT& normal, double eps) const {
    const VrexVector3DT direction = normalized(normal.crossProduct(*this).crossProduct(normal), eps);
    return direction * dotProduct(direction);
}

template <typename T>
bool VrexVector3DT<T>::isEqual(const VrexVector3DT& o, double eps) const {
    using nsVariableUtils::toValue;
    return std::fabs(toValue(m_x) - toValue(o.m_x)) < eps && std::fabs(toValue(m_y) - toValue(o.m_y)) < eps &&
           std::fabs(toValue(m_z) - toValue(o.m_z)) < eps;
}

namespace {

// The member `cos` hides the function inside the class, even from lookup by argument; out here it does not.
template <typename T>
T cosineOf(const T& radians) {
    using std::cos;
    return cos(radians);
}

template <typename T>
T sineOf(const T& radians) {
    using std::sin;
    return sin(radians);
}

} // namespace

template <typename T>
VrexVector3DT<T>::Angle::Angle(const T& radians) : sine(sineOf(radians)), cosine(cosineOf(radians)) {}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::sphericalAnglesToCartesian(const T& polar, const T& azimuthal) {
    return getRotatedZBasisVector(Angle(polar), Angle(azimuthal));
}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::sphericalAnglesToCartesianPolarDerivative(const T& polar,
                                                                             const T& azimuthal) {
    const Angle p(polar);
    const Angle a(azimuthal);
    return {p.cosine * a.cosine, p.cosine * a.sine, -p.sine};
}

// Kept: cos p, where the strict derivative of sphericalAnglesToCartesian has sin p.
template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::sphericalAnglesToCartesianAzimuthalDerivative(const T& polar,
                                                                                 const T& azimuthal) {
    const T cosPolar = cosineOf(polar);
    const Angle a(azimuthal);
    return {-cosPolar * a.sine, cosPolar * a.cosine, T(0.0)};
}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::getRotatedXBasisVector(const Angle& polar, const Angle& azimuthal) {
    const T& cosP = polar.cosine;
    const T& cosA = azimuthal.cosine;
    const T& sinA = azimuthal.sine;
    return {cosP * cosA * cosA + sinA * sinA, cosP * cosA * sinA - cosA * sinA, -polar.sine * cosA};
}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::getRotatedYBasisVector(const Angle& polar, const Angle& azimuthal) {
    const T& cosP = polar.cosine;
    const T& cosA = azimuthal.cosine;
    const T& sinA = azimuthal.sine;
    return {cosP * cosA * sinA - cosA * sinA, cosP * sinA * sinA + cosA * cosA, -polar.sine * sinA};
}

template <typename T>
VrexVector3DT<T> VrexVector3DT<T>::getRotatedZBasisVector(const Angle& polar, const Angle& azimuthal) {
    return {polar.sine * azimuthal.cosine, polar.sine * azimuthal.sine, polar.cosine};
}

template <typename T>
std::tuple<VrexVector3DT<T>, VrexVector3DT<T>, VrexVector3DT<T>>
VrexVector3DT<T>::getRotatedBasisVectors(const T& polar, const T& azimuthal) {
    const Angle p(polar);
    const Angle a(azimuthal);
    return {getRotatedXBasisVector(p, a), getRotatedYBasisVector(p, a), getRotatedZBasisVector(p, a)};
}

template <typename T>
std::tuple<VrexVector3DT<T>, VrexVector3DT<T>, VrexVector3DT<T>>
VrexVector3DT<T>::getInverseRotatedBasisVectors(const T& polar, const T& azimuthal) {
    const auto [x, y, z] = getRotatedBasisVectors(polar, azimuthal);
    return {VrexVector3DT(x.m_x, y.m_x, z.m_x), VrexVector3DT(x.m_y, y.m_y, z.m_y),
            VrexVector3DT(x.m_z, y.m_z, z.m_z)};
}

// Kept: the three vectors are the columns of the usual rotation matrix, not its rows.
template <typename T>
std::tuple<VrexVector3DT<T>, VrexVector3DT<T>, VrexVector3DT<T>>
VrexVector3DT<T>::getRotationMatrixAroundAxis(const VrexVector3DT& axis, const T& angle) {
    const T& x = axis.m_x;
    const T& y = axis.m_y;
    const T& z = axis.m_z;
    const T c = cosineOf(angle);
    const T s = sineOf(angle);
    const T t = 1.0 - c;
    return {VrexVector3DT(x * x * t + c, z * s + y * x * t, x * z * t - y * s),
            VrexVector3DT(y * x * t - z * s, y * y * t + c, x * s + y * z * t),
            VrexVector3DT(y * s + x * z * t, y * z * t - x * s, z * z * t + c)};
}

template class VrexVector3DT<double>;
template class VrexVector3DT<VrexVariable>;
