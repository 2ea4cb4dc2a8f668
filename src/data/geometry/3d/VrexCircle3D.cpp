#include "data/geometry/3d/VrexCircle3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexCircle3D)

std::shared_ptr<VrexCircle3D> VrexCircle3D::create(const VrexVector3DT<double>& center,
                                                   const VrexVector3DT<double>& normal, double radius) {
    return VrexObjectAccess::make<VrexCircle3D>(center, normal, radius);
}

VrexCircle3D::VrexCircle3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& normal,
                           double radius)
    : VrexParametricCurve3D(VrexGeometry3DType::CIRCLE, PARAMETERS_AMOUNT) {
    setCenter(center);
    setNormal(normal);
    setParameter(RADIUS, radius);
}

const char* VrexCircle3D::getNamePrefix() const { return "r"; }

int VrexCircle3D::dof() const { return 6; }

bool VrexCircle3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexCircle3D>();
    if (backup == nullptr) {
        return false;
    }
    return nsChange::isDirectionChanged(getNormal(), backup->getNormal(), linear) ||
           getCenter().distanceTo(backup->getCenter()) > linear ||
           std::fabs(getRadius() - backup->getRadius()) > linear;
}

std::pair<std::optional<double>, std::optional<double>> VrexCircle3D::interval() const {
    return nsInterval::trimmedRange(start(), end(), 0.0, 2.0 * std::numbers::pi);
}

void VrexCircle3D::setCenter(const VrexVector3DT<double>& center) { setVectorParameter(X, center); }

void VrexCircle3D::setNormal(const VrexVector3DT<double>& normal) { setDirectionParameter(POLAR, normal); }

void VrexCircle3D::setRadius(double radius) { setParameter(RADIUS, radius); }

VrexQuaternionT<double> VrexCircle3D::getRotation() const { return makeRotationFromOZ(getNormal()); }

VrexVector3DT<double> VrexCircle3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }
