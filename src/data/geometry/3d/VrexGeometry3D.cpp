#include "data/geometry/3d/VrexGeometry3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexCastList.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexGeometry3D)

VrexGeometry3D::VrexGeometry3D(VrexGeometry3DType type, std::uint32_t parameterCount)
    : VrexGeometry(parameterCount), m_type(type) {}

bool VrexGeometry3D::isParametricCurve() const { return false; }

bool VrexGeometry3D::isParametricSurface() const { return false; }

std::vector<std::shared_ptr<VrexGeometry3D>> VrexGeometry3D::geometries() const {
    return keepOnly<VrexGeometry3D>(VrexGeometry::geometries());
}

void VrexGeometry3D::setVectorParameter(int firstSlot, const VrexVector3DT<double>& vector) {
    setParameter(firstSlot, vector.x());
    setParameter(firstSlot + 1, vector.y());
    setParameter(firstSlot + 2, vector.z());
}

VrexVector3DT<double> VrexGeometry3D::getDirectionParameter(int polarSlot) const {
    return VrexVector3DT<double>::sphericalAnglesToCartesian(getParameter(polarSlot),
                                                             getParameter(polarSlot + 1));
}

void VrexGeometry3D::setDirectionParameter(int polarSlot, const VrexVector3DT<double>& direction) {
    setParameter(polarSlot, direction.polarAngle());
    setParameter(polarSlot + 1, direction.azimuthalAngle());
}

VrexQuaternionT<double> VrexGeometry3D::makeRotationFromOZ(const VrexVector3DT<double>& direction) {
    // A hundred times the machine epsilon.
    constexpr double tolerance = 2.220446049250313e-14;
    return VrexQuaternionT<double>::makeRotation(VrexVector3DT<double>::OZ(), direction, tolerance,
                                                 VrexVector3DT<double>::OX());
}

VrexQuaternionT<double> VrexGeometry3D::getRotationParameter(int scalarSlot) const {
    return VrexQuaternionT<double>::makeFromScalarAndVector(getParameter(scalarSlot),
                                                            getVectorParameter(scalarSlot + 1));
}

void VrexGeometry3D::setRotationParameter(int scalarSlot, const VrexQuaternionT<double>& rotation) {
    setParameter(scalarSlot, rotation.scalar());
    setVectorParameter(scalarSlot + 1, rotation.vector());
}

bool VrexGeometry3D::setUnitRotationParameter(int scalarSlot, const VrexQuaternionT<double>& rotation) {
    // Negated, so that a NaN is refused.
    if (!(std::fabs(rotation.norm() - 1.0) <= m_defaultTolerance)) {
        return false;
    }
    setRotationParameter(scalarSlot, rotation);
    return true;
}

bool VrexGeometry3D::setFrameParameter(int scalarSlot, const VrexVector3DT<double>& direction,
                                       const VrexVector3DT<double>& normal) {
    const double angle = direction.angleBetween(normal, m_defaultTolerance);
    // Negated, so that a NaN is refused.
    if (!(std::fabs(angle - std::numbers::pi / 2.0) <= m_defaultTolerance)) {
        return false;
    }
    setRotationParameter(scalarSlot, VrexQuaternionT<double>::makeRotationOfCoordinateSystem(
                                         direction, normal, m_defaultTolerance));
    return true;
}

VrexVector3DT<double> VrexGeometry3D::rotateByParameter(int scalarSlot,
                                                        const VrexVector3DT<double>& vector) const {
    return VrexQuaternionT<double>::rotate(vector, getRotationParameter(scalarSlot), false);
}
