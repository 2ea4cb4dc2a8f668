#include "data/geometry/3d/VrexEvaluatedCurve3D.h"

#include "data/VrexDescriptorObjects.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/VrexGeometry.h"
#include "data/geometry/VrexGeometryVariable.h"

VREX_OBJECT_BODY(VrexEvaluatedCurve3D)

namespace {

constexpr const char* PARAMETER_NAMES[] = {"t"};

} // namespace

std::shared_ptr<VrexEvaluatedCurve3D> VrexEvaluatedCurve3D::create(const VrexVector3DT<double>& origin,
                                                                   const VrexQuaternionT<double>& rotation) {
    return VrexObjectAccess::make<VrexEvaluatedCurve3D>(origin, rotation);
}

std::shared_ptr<VrexEvaluatedCurve3D>
VrexEvaluatedCurve3D::create(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation,
                             std::vector<VrexVariableDescriptor> descriptors, const std::string& x,
                             const std::string& y, const std::string& z) {
    return VrexObjectAccess::make<VrexEvaluatedCurve3D>(origin, rotation, std::move(descriptors), x, y, z);
}

VrexEvaluatedCurve3D::VrexEvaluatedCurve3D(const VrexVector3DT<double>& origin,
                                           const VrexQuaternionT<double>& rotation)
    : VrexParametricCurve3D(VrexGeometry3DType::EVAL_CURVE, PARAMETERS_AMOUNT), m_shape(PARAMETER_NAMES) {
    setRotationParameter(SCALAR, VrexQuaternionT<double>::ONE());
    setOrigin(origin);
    setRotation(rotation);
}

VrexEvaluatedCurve3D::VrexEvaluatedCurve3D(const VrexVector3DT<double>& origin,
                                           const VrexQuaternionT<double>& rotation,
                                           std::vector<VrexVariableDescriptor> descriptors,
                                           const std::string& x, const std::string& y, const std::string& z)
    : VrexEvaluatedCurve3D(origin, rotation) {
    m_shape.setDescriptors(std::move(descriptors));
    setX(x);
    setY(y);
    setZ(z);
}

const char* VrexEvaluatedCurve3D::getNamePrefix() const { return "evac_3d"; }

int VrexEvaluatedCurve3D::dof() const { return 6; }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexEvaluatedCurve3D::getGeometries() const {
    const auto entities = distinctObjects<VrexGeometry>(descriptors());
    return {entities.begin(), entities.end()};
}

std::vector<std::shared_ptr<VrexGeometryVariable>> VrexEvaluatedCurve3D::getVariables() const {
    return distinctObjects<VrexGeometryVariable>(descriptors());
}

bool VrexEvaluatedCurve3D::checkChanged(double linear, double angular) const {
    const auto backup = getBackupAs<VrexEvaluatedCurve3D>();
    if (backup == nullptr) {
        return false;
    }
    return !getOrigin().isEqual(backup->getOrigin(), linear) ||
           nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear) ||
           nsChange::isRotationChanged(getRotation(), backup->getRotation(), linear, angular) ||
           checkShapeChanged(linear);
}

std::pair<std::optional<double>, std::optional<double>> VrexEvaluatedCurve3D::interval() const {
    return {start(), end()};
}

const std::vector<VrexVariableDescriptor>& VrexEvaluatedCurve3D::descriptors() const {
    return m_shape.descriptors();
}

void VrexEvaluatedCurve3D::setDescriptors(std::vector<VrexVariableDescriptor> descriptors) {
    m_shape.setDescriptors(std::move(descriptors));
}

bool VrexEvaluatedCurve3D::set(const std::string& x, const std::string& y, const std::string& z,
                               std::vector<VrexVariableDescriptor> descriptors) {
    return m_shape.set(x, y, z, std::move(descriptors));
}

bool VrexEvaluatedCurve3D::setX(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::X, text);
}

bool VrexEvaluatedCurve3D::setY(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::Y, text);
}

bool VrexEvaluatedCurve3D::setZ(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::Z, text);
}

std::shared_ptr<VrexVar> VrexEvaluatedCurve3D::getT() const { return m_shape.getParameter(0); }

void VrexEvaluatedCurve3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

bool VrexEvaluatedCurve3D::setRotation(const VrexQuaternionT<double>& rotation) {
    return setUnitRotationParameter(SCALAR, rotation);
}

bool VrexEvaluatedCurve3D::setRotation(double angle, const VrexVector3DT<double>& axis) {
    return setRotation(VrexQuaternionT<double>::makeFromAngleAndAxis(angle, axis, m_defaultTolerance));
}

double VrexEvaluatedCurve3D::getAngle() const { return getRotation().rotationalAngle(); }

VrexVector3DT<double> VrexEvaluatedCurve3D::getDirection() const {
    return rotateByParameter(SCALAR, canonicalDirection());
}

VrexVector3DT<double> VrexEvaluatedCurve3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }

void VrexEvaluatedCurve3D::doUpdateFrom(const VrexBaseObject& other) {
    std::vector<VrexVariableDescriptor> kept = descriptors();
    VrexParametricCurve3D::doUpdateFrom(other);
    m_shape.setDescriptors(std::move(kept));
}
