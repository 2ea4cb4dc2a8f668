#include "data/VrexVector2DT.h"

template <typename T>
VrexVector2DT<T> VrexVector2DT<T>::fromAngle(const T& angle) {
    using std::cos;
    using std::sin;
    return {cos(angle), sin(angle)};
}

template <typename T>
VrexVector2DT<T> VrexVector2DT<T>::cwiseMax(const VrexVector2DT& a, const VrexVector2DT& b) {
    const auto greater = [](const T& p, const T& q) -> const T& { return valueOf(q) > valueOf(p) ? q : p; };
    return {greater(a.m_x, b.m_x), greater(a.m_y, b.m_y)};
}

template <typename T>
VrexVector2DT<T> VrexVector2DT<T>::cwiseMin(const VrexVector2DT& a, const VrexVector2DT& b) {
    const auto smaller = [](const T& p, const T& q) -> const T& { return valueOf(q) < valueOf(p) ? q : p; };
    return {smaller(a.m_x, b.m_x), smaller(a.m_y, b.m_y)};
}

template <typename T>
T VrexVector2DT<T>::angle() const {
    using std::atan2;
    return atan2(m_y, m_x);
}

template <typename T>
T VrexVector2DT<T>::signedAngleToDirection(const VrexVector2DT& o) const {
    using std::atan2;
    return atan2(extProduct(o), dotProduct(o));
}

template <typename T>
VrexVector2DT<T> VrexVector2DT<T>::makeRotated(const T& angle) const {
    using std::cos;
    using std::sin;
    const T cosine = cos(angle);
    const T sine = sin(angle);
    return {cosine * m_x - sine * m_y, sine * m_x + cosine * m_y};
}

template <typename T>
bool VrexVector2DT<T>::isEqual(const VrexVector2DT& o, double eps) const {
    return std::fabs(valueOf(m_x) - valueOf(o.m_x)) < eps && std::fabs(valueOf(m_y) - valueOf(o.m_y)) < eps;
}

template class VrexVector2DT<double>;
template class VrexVector2DT<VrexVariable>;
