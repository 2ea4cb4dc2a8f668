#include "data/geometry/3d/VrexEllipse3D.h"

#include <cmath>
#include <numbers>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexEllipse3D)

std::shared_ptr<VrexEllipse3D> VrexEllipse3D::create(const VrexVector3DT<double>& center,
                                                     const VrexVector3DT<double>& direction,
                                                     const VrexVector3DT<double>& normal, double majorRadius,
                                                     double minorRadius) {
    return VrexObjectAccess::make<VrexEllipse3D>(center, direction, normal, majorRadius, minorRadius);
}

VrexEllipse3D::VrexEllipse3D(const VrexVector3DT<double>& center, const VrexVector3DT<double>& direction,
                             const VrexVector3DT<double>& normal, double majorRadius, double minorRadius)
    : VrexParametricCurve3D(VrexGeometry3DType::ELLIPSE, PARAMETERS_AMOUNT) {
    setCenter(center);
    setRotationParameter(SCALAR, VrexQuaternionT<double>::makeRotationOfCoordinateSystem(direction, normal,
                                                                                         m_defaultTolerance));
    setMajorRadius(majorRadius);
    setMinorRadius(minorRadius);
}

const char* VrexEllipse3D::getNamePrefix() const { return "el"; }

int VrexEllipse3D::dof() const { return 8; }

bool VrexEllipse3D::checkChanged(double linear, double angular) const {
    const auto backup = getBackupAs<VrexEllipse3D>();
    if (backup == nullptr) {
        return false;
    }
    return nsChange::isDirectionChanged(getNormal(), backup->getNormal(), linear, angular) ||
           nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear, angular) ||
           getCenter().distanceTo(backup->getCenter()) > linear ||
           std::fabs(getMajorRadius() - backup->getMajorRadius()) > linear ||
           std::fabs(getMinorRadius() - backup->getMinorRadius()) > linear;
}

std::pair<std::optional<double>, std::optional<double>> VrexEllipse3D::interval() const {
    return nsInterval::trimmedRange(start(), end(), 0.0, 2.0 * std::numbers::pi);
}

void VrexEllipse3D::setCenter(const VrexVector3DT<double>& center) { setVectorParameter(X, center); }

void VrexEllipse3D::setMajorRadius(double majorRadius) { setParameter(R1, majorRadius); }

void VrexEllipse3D::setMinorRadius(double minorRadius) { setParameter(R2, minorRadius); }

bool VrexEllipse3D::setRotation(const VrexQuaternionT<double>& rotation) {
    return setUnitRotationParameter(SCALAR, rotation);
}

bool VrexEllipse3D::setRotation(const VrexVector3DT<double>& direction, const VrexVector3DT<double>& normal) {
    return setFrameParameter(SCALAR, direction, normal);
}

VrexVector3DT<double> VrexEllipse3D::getDirection() const {
    return rotateByParameter(SCALAR, canonicalDirection());
}

VrexVector3DT<double> VrexEllipse3D::getNormal() const {
    return rotateByParameter(SCALAR, canonicalNormal());
}

VrexVector3DT<double> VrexEllipse3D::canonicalDirection() { return VrexVector3DT<double>::OX(); }

VrexVector3DT<double> VrexEllipse3D::canonicalNormal() { return VrexVector3DT<double>::OZ(); }
