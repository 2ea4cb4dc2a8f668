#include "data/geometry/3d/VrexCylinder3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexCylinder3D)

std::shared_ptr<VrexCylinder3D> VrexCylinder3D::create(const VrexVector3DT<double>& origin,
                                                       const VrexVector3DT<double>& direction,
                                                       double radius) {
    return VrexObjectAccess::make<VrexCylinder3D>(origin, direction, radius);
}

VrexCylinder3D::VrexCylinder3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction,
                               double radius)
    : VrexParametricSurface3D(VrexGeometry3DType::CYLINDER, PARAMETERS_AMOUNT) {
    setOrigin(origin);
    setDirection(direction);
    setRadius(radius);
}

const char* VrexCylinder3D::getNamePrefix() const { return "cyl"; }

int VrexCylinder3D::dof() const { return 5; }

bool VrexCylinder3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexCylinder3D>();
    if (backup == nullptr) {
        return false;
    }
    // Kept: the shift counts by its length, unlike that of a line or a plane.
    const auto shift = backup->getOrigin() - getOrigin();
    return nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear) ||
           getDirection().crossProduct(shift).magnitude() > linear ||
           std::fabs(getRadius() - backup->getRadius()) > linear;
}

std::pair<std::optional<double>, std::optional<double>> VrexCylinder3D::intervalU() const {
    return nsInterval::trimmedRange(startU(), endU(), 0.0, 2.0 * std::numbers::pi);
}

std::pair<std::optional<double>, std::optional<double>> VrexCylinder3D::intervalV() const {
    // A cylinder has no end of its own; these stand for one.
    return nsInterval::trimmedRange(startV(), endV(), -500.0, 500.0);
}

void VrexCylinder3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

void VrexCylinder3D::setDirection(const VrexVector3DT<double>& direction) {
    setDirectionParameter(POLAR, direction);
}

void VrexCylinder3D::setRadius(double radius) { setParameter(RADIUS, radius); }

VrexQuaternionT<double> VrexCylinder3D::getRotation() const { return makeRotationFromOZ(getDirection()); }

VrexVector3DT<double> VrexCylinder3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }
