#include "data/geometry/3d/VrexRigidSet3D.h"

#include <utility>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"

VREX_OBJECT_BODY(VrexRigidSet3D)

std::shared_ptr<VrexRigidSet3D> VrexRigidSet3D::create(std::vector<std::shared_ptr<VrexGeometry3D>> members) {
    return VrexObjectAccess::make<VrexRigidSet3D>(std::move(members));
}

VrexRigidSet3D::VrexRigidSet3D(std::vector<std::shared_ptr<VrexGeometry3D>> members)
    : VrexGeometrySet3D(VrexGeometry3DType::RIGID_SET, PARAMETERS_AMOUNT) {
    geometries() = std::move(members);
    setRotationParameter(SCALAR, VrexQuaternionT<double>::ONE());
}

const char* VrexRigidSet3D::getNamePrefix() const { return "rs"; }

int VrexRigidSet3D::dof() const { return 6; }

bool VrexRigidSet3D::checkChanged(double linear, double angular) const {
    const auto backup = getBackupAs<VrexRigidSet3D>();
    if (backup == nullptr) {
        return false;
    }
    return !getOrigin().isEqual(backup->getOrigin(), linear) ||
           nsChange::isRotationChanged(getRotation(), backup->getRotation(), linear, angular);
}

void VrexRigidSet3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

bool VrexRigidSet3D::setRotation(const VrexQuaternionT<double>& rotation) {
    return setUnitRotationParameter(SCALAR, rotation);
}

bool VrexRigidSet3D::setRotation(const VrexVector3DT<double>& direction,
                                 const VrexVector3DT<double>& normal) {
    return setFrameParameter(SCALAR, direction, normal);
}

bool VrexRigidSet3D::setRotation(double angle, const VrexVector3DT<double>& axis) {
    // Kept: the angle counts with its sign, so a negative one about no axis is stored as it comes.
    if (angle > m_defaultTolerance && axis.magnitude() < m_defaultTolerance) {
        return false;
    }
    setRotationParameter(SCALAR,
                         VrexQuaternionT<double>::makeFromAngleAndAxis(angle, axis, m_defaultTolerance));
    return true;
}

double VrexRigidSet3D::getAngle() const { return getRotation().rotationalAngle(); }

VrexVector3DT<double> VrexRigidSet3D::getAxis() const { return getTransformation().getAxis(); }

VrexVector3DT<double> VrexRigidSet3D::getDirection() const {
    return rotateByParameter(SCALAR, canonicalDirection());
}

VrexVector3DT<double> VrexRigidSet3D::getNormal() const {
    return rotateByParameter(SCALAR, canonicalNormal());
}

VrexVector3DT<double> VrexRigidSet3D::canonicalDirection() { return VrexVector3DT<double>::OX(); }

VrexVector3DT<double> VrexRigidSet3D::canonicalNormal() { return VrexVector3DT<double>::OZ(); }

VrexTransformation3DT<double> VrexRigidSet3D::getTransformation() const {
    return {getOrigin(), getRotation()};
}

bool VrexRigidSet3D::setTransformation(const VrexTransformation3DT<double>& transformation) {
    setOrigin(transformation.getTranslation());
    return setRotation(transformation.getRotation());
}
