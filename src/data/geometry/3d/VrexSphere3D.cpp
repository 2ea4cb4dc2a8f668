#include "data/geometry/3d/VrexSphere3D.h"

#include <cmath>

#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexSphere3D)

std::shared_ptr<VrexSphere3D> VrexSphere3D::create(const VrexVector3DT<double>& center, double radius) {
    return VrexObjectAccess::make<VrexSphere3D>(center, radius);
}

VrexSphere3D::VrexSphere3D(const VrexVector3DT<double>& center, double radius)
    : VrexGeometry3D(VrexGeometry3DType::SPHERE, PARAMETERS_AMOUNT) {
    setCenter(center);
    setRadius(radius);
}

const char* VrexSphere3D::getNamePrefix() const { return "s"; }

int VrexSphere3D::dof() const { return 4; }

bool VrexSphere3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexSphere3D>();
    if (backup == nullptr) {
        return false;
    }
    return getCenter().distanceTo(backup->getCenter()) > linear ||
           std::fabs(getRadius() - backup->getRadius()) > linear;
}

void VrexSphere3D::setCenter(const VrexVector3DT<double>& center) { setVectorParameter(X, center); }

void VrexSphere3D::setRadius(double radius) { setParameter(RADIUS, radius); }
