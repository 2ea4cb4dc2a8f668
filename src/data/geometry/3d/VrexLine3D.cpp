#include "data/geometry/3d/VrexLine3D.h"

#include <cmath>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"

VREX_OBJECT_BODY(VrexLine3D)

std::shared_ptr<VrexLine3D> VrexLine3D::create(const VrexVector3DT<double>& origin,
                                               const VrexVector3DT<double>& direction) {
    return VrexObjectAccess::make<VrexLine3D>(origin, direction);
}

VrexLine3D::VrexLine3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction)
    : VrexGeometry3D(VrexGeometry3DType::LINE, PARAMETERS_AMOUNT) {
    setOrigin(origin);
    setDirection(direction);
}

const char* VrexLine3D::getNamePrefix() const { return "l"; }

int VrexLine3D::dof() const { return 4; }

bool VrexLine3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexLine3D>();
    if (backup == nullptr) {
        return false;
    }
    if (nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear)) {
        return true;
    }
    const auto direction = normalized(getDirection(), linear);
    const auto shift = nsChange::shiftDirection(getOrigin(), backup->getOrigin(), linear);
    return std::fabs(direction.crossProduct(shift).magnitude()) > linear;
}

void VrexLine3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

VrexVector3DT<double> VrexLine3D::getDirection() const { return getDirectionParameter(POLAR); }

void VrexLine3D::setDirection(const VrexVector3DT<double>& direction) {
    setDirectionParameter(POLAR, direction);
}

std::optional<VrexVector3DT<double>> VrexLine3D::getBackupDirection() const {
    const auto backup = getBackupAs<VrexLine3D>();
    if (backup == nullptr) {
        return std::nullopt;
    }
    return backup->getDirection();
}

VrexQuaternionT<double> VrexLine3D::getRotation() const { return makeRotationFromOZ(getDirection()); }

VrexVector3DT<double> VrexLine3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }
