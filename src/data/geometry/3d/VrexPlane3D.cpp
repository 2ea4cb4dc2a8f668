#include "data/geometry/3d/VrexPlane3D.h"

#include <cmath>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"

VREX_OBJECT_BODY(VrexPlane3D)

std::shared_ptr<VrexPlane3D> VrexPlane3D::create(const VrexVector3DT<double>& origin,
                                                 const VrexVector3DT<double>& normal) {
    return VrexObjectAccess::make<VrexPlane3D>(origin, normal);
}

VrexPlane3D::VrexPlane3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& normal)
    : VrexGeometry3D(VrexGeometry3DType::PLANE, PARAMETERS_AMOUNT) {
    setOrigin(origin);
    setNormal(normal);
}

const char* VrexPlane3D::getNamePrefix() const { return "pl"; }

int VrexPlane3D::dof() const { return 3; }

bool VrexPlane3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexPlane3D>();
    if (backup == nullptr) {
        return false;
    }
    if (nsChange::isDirectionChanged(getNormal(), backup->getNormal(), linear)) {
        return true;
    }
    const auto normal = normalized(getNormal(), linear);
    const auto shift = nsChange::shiftDirection(getOrigin(), backup->getOrigin(), linear);
    return std::fabs(normal.dotProduct(shift)) > linear;
}

void VrexPlane3D::setOrigin(const VrexVector3DT<double>& origin) {
    m_origin = origin;
    updateDistance();
}

VrexVector3DT<double> VrexPlane3D::getNormal() const { return getDirectionParameter(POLAR); }

void VrexPlane3D::setNormal(const VrexVector3DT<double>& normal) {
    setDirectionParameter(POLAR, normal);
    updateDistance();
}

VrexQuaternionT<double> VrexPlane3D::getRotation() const { return makeRotationFromOZ(getNormal()); }

VrexVector3DT<double> VrexPlane3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }

void VrexPlane3D::updateDistance() { setParameter(DIST, getNormal().dotProduct(m_origin)); }
