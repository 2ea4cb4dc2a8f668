#include "exchange/VrexUrdfFrames.h"

namespace {

using Vector = VrexVector3DT<double>;
using Quaternion = VrexQuaternionT<double>;

} // namespace

VrexQuaternionT<double> nsUrdfFrames::turnBy(const Vector& rollPitchYaw) {
    const auto about = [](const Vector& axis, double angle) {
        return Quaternion::makeFromAngleAndAxis(angle, axis, SHORTEST);
    };
    return about(Vector::OZ(), rollPitchYaw.z()) * about(Vector::OY(), rollPitchYaw.y()) *
           about(Vector::OX(), rollPitchYaw.x());
}

VrexTransformation3DT<double> nsUrdfFrames::turnTo(const Vector& axis) {
    return {Vector::ZERO(), Quaternion::makeRotation(Vector::OZ(), axis, SHORTEST, Vector::OX())};
}

VrexTransformation3DT<double> nsUrdfFrames::alongZ(double distance, double angle) {
    return {Vector::OZ() * distance, Quaternion::makeFromAngleAndAxis(angle, Vector::OZ(), SHORTEST)};
}
