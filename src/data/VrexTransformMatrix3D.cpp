#include "data/VrexTransformMatrix3D.h"

#include <cmath>
#include <cstddef>

namespace {

constexpr double TRANSFORM_TOLERANCE = 1e-6;
constexpr VrexTransformMatrix3D::Rows IDENTITY{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

VrexQuaternionT<double> makeQuaternion(double w, double i, double j, double k) {
    return VrexQuaternionT<double>::makeFromScalarAndVector(w, {i, j, k});
}

} // namespace

VrexTransformMatrix3D::VrexTransformMatrix3D() : m_transformation(IDENTITY) {}

VrexTransformMatrix3D::VrexTransformMatrix3D(const Rows& rows) : m_transformation(rows) {}

VrexTransformMatrix3D VrexTransformMatrix3D::makeFromQuaternion(const VrexQuaternionT<double>& q) {
    const double w = q.scalar();
    const double i = q.i();
    const double j = q.j();
    const double k = q.k();
    const double X = 2.0 * i;
    const double Y = 2.0 * j;
    const double Z = 2.0 * k;
    return VrexTransformMatrix3D(Rows{{{1.0 - (Z * k + Y * j), Y * i - Z * w, Z * i + Y * w, 0.0},
                                       {Y * i + Z * w, 1.0 - (Z * k + X * i), Z * j - X * w, 0.0},
                                       {Z * i - Y * w, Z * j + X * w, 1.0 - (Y * j + X * i), 0.0},
                                       {0.0, 0.0, 0.0, 1.0}}});
}

VrexTransformMatrix3D VrexTransformMatrix3D::translate(const VrexVector3DT<double>& v) {
    VrexTransformMatrix3D result;
    result[0][3] = v.x();
    result[1][3] = v.y();
    result[2][3] = v.z();
    return result;
}

VrexTransformMatrix3D VrexTransformMatrix3D::operator*(const VrexTransformMatrix3D& o) const {
    VrexTransformMatrix3D result;
    for (std::size_t column = 0; column < 4; ++column) {
        const Row product = *this * Row{o[0][column], o[1][column], o[2][column], o[3][column]};
        for (std::size_t row = 0; row < 4; ++row) {
            result[row][column] = product[row];
        }
    }
    return result;
}

VrexTransformMatrix3D::Row VrexTransformMatrix3D::operator*(const Row& column) const {
    Row result{};
    for (std::size_t row = 0; row < 4; ++row) {
        const Row& r = m_transformation[row];
        result[row] = r[0] * column[0] + r[1] * column[1] + r[2] * column[2] + r[3] * column[3];
    }
    return result;
}

bool VrexTransformMatrix3D::isTransformMatrix() const {
    const Row& r = m_transformation[3];
    return std::fabs(r[0]) < TRANSFORM_TOLERANCE && std::fabs(r[1]) < TRANSFORM_TOLERANCE &&
           std::fabs(r[2]) < TRANSFORM_TOLERANCE && std::fabs(r[3] - 1.0) < TRANSFORM_TOLERANCE;
}

VrexTransformMatrix3D VrexTransformMatrix3D::getInverseMatrix() const {
    const Rows& m = m_transformation;
    const VrexTransformMatrix3D rotation(Rows{{{m[0][0], m[1][0], m[2][0], 0.0},
                                               {m[0][1], m[1][1], m[2][1], 0.0},
                                               {m[0][2], m[1][2], m[2][2], 0.0},
                                               {0.0, 0.0, 0.0, 1.0}}});
    return rotation * translate({-m[0][3], -m[1][3], -m[2][3]});
}

VrexQuaternionT<double> VrexTransformMatrix3D::toQuaternion() const {
    const Rows& m = m_transformation;
    const double trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0) {
        const double S = 2.0 * std::sqrt(trace + 1.0);
        return makeQuaternion(S / 4.0, (m[2][1] - m[1][2]) / S, (m[0][2] - m[2][0]) / S,
                              (m[1][0] - m[0][1]) / S);
    }
    if (m[0][0] > m[1][1] && m[0][0] > m[2][2]) {
        const double S = 2.0 * std::sqrt(m[0][0] + 1.0 - m[1][1] - m[2][2]);
        return makeQuaternion((m[2][1] - m[1][2]) / S, S / 4.0, (m[1][0] + m[0][1]) / S,
                              (m[2][0] + m[0][2]) / S);
    }
    if (m[1][1] > m[2][2]) {
        const double S = 2.0 * std::sqrt(m[1][1] + 1.0 - m[0][0] - m[2][2]);
        return makeQuaternion((m[0][2] - m[2][0]) / S, (m[1][0] + m[0][1]) / S, S / 4.0,
                              (m[1][2] + m[2][1]) / S);
    }
    const double S = 2.0 * std::sqrt(m[2][2] + 1.0 - m[0][0] - m[1][1]);
    return makeQuaternion((m[1][0] - m[0][1]) / S, (m[0][2] + m[2][0]) / S, (m[1][2] + m[2][1]) / S, S / 4.0);
}
