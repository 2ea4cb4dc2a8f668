#include "data/geometry/3d/VrexCone3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexCone3D)

std::shared_ptr<VrexCone3D> VrexCone3D::create(const VrexVector3DT<double>& origin,
                                               const VrexVector3DT<double>& direction, double aperture) {
    return VrexObjectAccess::make<VrexCone3D>(origin, direction, aperture);
}

VrexCone3D::VrexCone3D(const VrexVector3DT<double>& origin, const VrexVector3DT<double>& direction,
                       double aperture)
    : VrexParametricSurface3D(VrexGeometry3DType::CONE, PARAMETERS_AMOUNT) {
    setOrigin(origin);
    setDirection(direction);
    setAperture(aperture);
}

const char* VrexCone3D::getNamePrefix() const { return "cone"; }

int VrexCone3D::dof() const { return 6; }

bool VrexCone3D::checkChanged(double linear, double angular) const {
    const auto backup = getBackupAs<VrexCone3D>();
    if (backup == nullptr) {
        return false;
    }
    return nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear) ||
           getOrigin().distanceTo(backup->getOrigin()) > linear ||
           std::fabs(getAperture() - backup->getAperture()) > angular;
}

std::pair<std::optional<double>, std::optional<double>> VrexCone3D::intervalU() const {
    return nsInterval::trimmedRange(startU(), endU(), 0.0, 2.0 * std::numbers::pi);
}

// Kept: neither end is as elsewhere; a cone starts at its apex and ends nowhere by itself.
std::pair<std::optional<double>, std::optional<double>> VrexCone3D::intervalV() const {
    return {0.0, endV()};
}

void VrexCone3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

void VrexCone3D::setDirection(const VrexVector3DT<double>& direction) {
    setDirectionParameter(POLAR, direction);
}

void VrexCone3D::setAperture(double aperture) {
    constexpr double turn = 2.0 * std::numbers::pi;
    setParameter(ALPHA, aperture - turn * std::floor((aperture + std::numbers::pi) / turn));
}

VrexQuaternionT<double> VrexCone3D::getRotation() const { return makeRotationFromOZ(getDirection()); }

VrexVector3DT<double> VrexCone3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }
