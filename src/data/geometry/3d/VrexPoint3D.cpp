#include "data/geometry/3d/VrexPoint3D.h"

#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexPoint3D)

std::shared_ptr<VrexPoint3D> VrexPoint3D::create(double x, double y, double z) {
    return VrexObjectAccess::make<VrexPoint3D>(x, y, z);
}

VrexPoint3D::VrexPoint3D(double x, double y, double z)
    : VrexGeometry3D(VrexGeometry3DType::POINT, PARAMETERS_AMOUNT) {
    assign(x, y, z);
}

const char* VrexPoint3D::getNamePrefix() const { return "p"; }

int VrexPoint3D::dof() const { return 3; }

bool VrexPoint3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexPoint3D>();
    if (backup == nullptr) {
        return false;
    }
    // Kept: not strict, as against the distances of the other entities, so a tolerance of 0 makes every point
    // changed.
    return (getPosition() - backup->getPosition()).magnitudeSquared() >= linear * linear;
}

void VrexPoint3D::setPosition(const VrexVector3DT<double>& position) { setVectorParameter(X, position); }

void VrexPoint3D::assign(double x, double y, double z) { setPosition({x, y, z}); }

void VrexPoint3D::setX(double x) { setParameter(X, x); }

void VrexPoint3D::setY(double y) { setParameter(Y, y); }

void VrexPoint3D::setZ(double z) { setParameter(Z, z); }
