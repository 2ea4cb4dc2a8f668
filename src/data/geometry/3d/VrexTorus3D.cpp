#include "data/geometry/3d/VrexTorus3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexTorus3D)

std::shared_ptr<VrexTorus3D> VrexTorus3D::create(const VrexVector3DT<double>& center,
                                                 const VrexVector3DT<double>& normal, double majorRadius,
                                                 double minorRadius) {
    return VrexObjectAccess::make<VrexTorus3D>(center, normal, majorRadius, minorRadius);
}

VrexTorus3D::VrexTorus3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& normal,
                         double majorRadius, double minorRadius)
    : VrexParametricSurface3D(VrexGeometry3DType::TORUS, PARAMETERS_AMOUNT) {
    setCenter(center);
    setNormal(normal);
    setMajorRadius(majorRadius);
    setMinorRadius(minorRadius);
}

const char* VrexTorus3D::getNamePrefix() const { return "tor"; }

int VrexTorus3D::dof() const { return 7; }

bool VrexTorus3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexTorus3D>();
    if (backup == nullptr) {
        return false;
    }
    return nsChange::isDirectionChanged(getNormal(), backup->getNormal(), linear) ||
           getCenter().distanceTo(backup->getCenter()) > linear ||
           std::fabs(getMajorRadius() - backup->getMajorRadius()) > linear ||
           std::fabs(getMinorRadius() - backup->getMinorRadius()) > linear;
}

std::pair<std::optional<double>, std::optional<double>> VrexTorus3D::intervalU() const {
    return nsInterval::trimmedRange(startU(), endU(), 0.0, 2.0 * std::numbers::pi);
}

std::pair<std::optional<double>, std::optional<double>> VrexTorus3D::intervalV() const {
    return nsInterval::trimmedRange(startV(), endV(), 0.0, 2.0 * std::numbers::pi);
}

void VrexTorus3D::setCenter(const VrexVector3DT<double>& center) { setVectorParameter(X, center); }

void VrexTorus3D::setNormal(const VrexVector3DT<double>& normal) { setDirectionParameter(POLAR, normal); }

void VrexTorus3D::setMajorRadius(double majorRadius) { setParameter(MAJOR_RAD, majorRadius); }

void VrexTorus3D::setMinorRadius(double minorRadius) { setParameter(MINOR_RAD, minorRadius); }

VrexQuaternionT<double> VrexTorus3D::getRotation() const { return makeRotationFromOZ(getNormal()); }

VrexVector3DT<double> VrexTorus3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }
