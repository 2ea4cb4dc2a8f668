#include "solver/system/VrexSolverFrame.h"

#include <cmath>

namespace {

constexpr double EPSILON = 1e-14;

} // namespace

VrexSolverFrame VrexSolverFrame::at(const VrexVector3DT<double>& origin) {
    VrexSolverFrame frame;
    frame.origin = origin;
    return frame;
}

VrexSolverFrame VrexSolverFrame::along(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& z) {
    // The axis of space that z is farthest from, so that the cross product is long.
    const double ax = std::abs(z.x());
    const double ay = std::abs(z.y());
    const double az = std::abs(z.z());
    const auto aside = ax <= ay && ax <= az ? VrexVector3DT<double>::OX()
                       : ay <= az           ? VrexVector3DT<double>::OY()
                                            : VrexVector3DT<double>::OZ();
    VrexSolverFrame frame;
    frame.origin = origin;
    frame.axes[0] = aside.crossProduct(z).makeNormalized(EPSILON, VrexVector3DT<double>::OX());
    frame.axes[1] = z.crossProduct(frame.axes[0]);
    frame.axes[2] = z;
    return frame;
}

VrexSolverFrame VrexSolverFrame::turned(const VrexVector3DT<double>& origin,
                                        const VrexQuaternionT<double>& rotation) {
    VrexSolverFrame frame;
    frame.origin = origin;
    for (VrexVector3DT<double>& axis : frame.axes) {
        axis = VrexQuaternionT<double>::rotate(axis, rotation, false);
    }
    return frame;
}

VrexVector3DT<double> VrexSolverFrame::componentsOf(const VrexVector3DT<double>& vector) const {
    return {axes[0].dotProduct(vector), axes[1].dotProduct(vector), axes[2].dotProduct(vector)};
}

VrexVector3DT<double> VrexSolverFrame::coordinatesOf(const VrexVector3DT<double>& point) const {
    return componentsOf(point - origin);
}

VrexVector3DT<double> VrexSolverFrame::vectorOf(const VrexVector3DT<double>& components) const {
    return axes[0] * components.x() + axes[1] * components.y() + axes[2] * components.z();
}

VrexVector3DT<double> VrexSolverFrame::pointAt(const VrexVector3DT<double>& coordinates) const {
    return origin + vectorOf(coordinates);
}

VrexSolverFrame VrexSolverFrame::compose(const VrexSolverFrame& inner) const {
    return {pointAt(inner.origin),
            {vectorOf(inner.axes[0]), vectorOf(inner.axes[1]), vectorOf(inner.axes[2])}};
}

VrexSolverFrame VrexSolverFrame::localOf(const VrexSolverFrame& outer) const {
    return {coordinatesOf(outer.origin),
            {componentsOf(outer.axes[0]), componentsOf(outer.axes[1]), componentsOf(outer.axes[2])}};
}

VrexQuaternionT<double> VrexSolverFrame::rotation() const {
    // Shepperd's method: of the four ways to divide, the one by the largest part. S. W. Shepperd, Quaternion
    // from rotation matrix, Journal of Guidance and Control 1 (1978).
    const double m[3][3] = {{axes[0].x(), axes[1].x(), axes[2].x()},
                            {axes[0].y(), axes[1].y(), axes[2].y()},
                            {axes[0].z(), axes[1].z(), axes[2].z()}};
    const double trace = m[0][0] + m[1][1] + m[2][2];
    double q[4];
    if (trace >= m[0][0] && trace >= m[1][1] && trace >= m[2][2]) {
        const double root = std::sqrt(1.0 + trace);
        const double part = 0.5 / root;
        q[0] = 0.5 * root;
        q[1] = (m[2][1] - m[1][2]) * part;
        q[2] = (m[0][2] - m[2][0]) * part;
        q[3] = (m[1][0] - m[0][1]) * part;
    } else {
        const int i = m[0][0] >= m[1][1] && m[0][0] >= m[2][2] ? 0 : m[1][1] >= m[2][2] ? 1 : 2;
        const int j = (i + 1) % 3;
        const int k = (i + 2) % 3;
        const double root = std::sqrt(1.0 + m[i][i] - m[j][j] - m[k][k]);
        const double part = 0.5 / root;
        q[0] = (m[k][j] - m[j][k]) * part;
        q[i + 1] = 0.5 * root;
        q[j + 1] = (m[j][i] + m[i][j]) * part;
        q[k + 1] = (m[k][i] + m[i][k]) * part;
    }
    return VrexQuaternionT<double>::makeFromScalarAndVector(q[0], {q[1], q[2], q[3]}).normalized(EPSILON);
}

VrexTransformation3DT<double> VrexSolverFrame::motionFrom(const VrexSolverFrame& start) const {
    return VrexTransformation3DT<double>(origin, rotation()) *
           VrexTransformation3DT<double>(start.origin, start.rotation()).getInversed();
}
