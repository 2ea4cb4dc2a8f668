#include "data/geometry/3d/VrexEvaluatedSurface3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"

VREX_OBJECT_BODY(VrexEvaluatedSurface3D)

namespace {

constexpr const char* PARAMETER_NAMES[] = {"u", "v"};

} // namespace

std::shared_ptr<VrexEvaluatedSurface3D>
VrexEvaluatedSurface3D::create(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation) {
    return VrexObjectAccess::make<VrexEvaluatedSurface3D>(origin, rotation);
}

std::shared_ptr<VrexEvaluatedSurface3D>
VrexEvaluatedSurface3D::create(const VrexVector3DT<double>& origin, const VrexQuaternionT<double>& rotation,
                               std::vector<VrexVariableDescriptor> descriptors, const std::string& x,
                               const std::string& y, const std::string& z) {
    return VrexObjectAccess::make<VrexEvaluatedSurface3D>(origin, rotation, std::move(descriptors), x, y, z);
}

VrexEvaluatedSurface3D::VrexEvaluatedSurface3D(const VrexVector3DT<double>& origin,
                                               const VrexQuaternionT<double>& rotation)
    : VrexParametricSurface3D(VrexGeometry3DType::EVAL_SURFACE, PARAMETERS_AMOUNT), m_shape(PARAMETER_NAMES) {
    setRotationParameter(SCALAR, VrexQuaternionT<double>::ONE());
    setOrigin(origin);
    setRotation(rotation);
}

VrexEvaluatedSurface3D::VrexEvaluatedSurface3D(const VrexVector3DT<double>& origin,
                                               const VrexQuaternionT<double>& rotation,
                                               std::vector<VrexVariableDescriptor> descriptors,
                                               const std::string& x, const std::string& y,
                                               const std::string& z)
    : VrexEvaluatedSurface3D(origin, rotation) {
    m_shape.setDescriptors(std::move(descriptors));
    setX(x);
    setY(y);
    setZ(z);
}

const char* VrexEvaluatedSurface3D::getNamePrefix() const { return "eval_surf_3d"; }

int VrexEvaluatedSurface3D::dof() const { return 6; }

bool VrexEvaluatedSurface3D::checkChanged(double linear, double) const {
    const auto backup = getBackupAs<VrexEvaluatedSurface3D>();
    if (backup == nullptr) {
        return false;
    }
    return !getOrigin().isEqual(backup->getOrigin(), linear) ||
           nsChange::isDirectionChanged(getDirection(), backup->getDirection(), linear) ||
           checkShapeChanged(linear);
}

std::pair<std::optional<double>, std::optional<double>> VrexEvaluatedSurface3D::intervalU() const {
    return {startU(), endU()};
}

std::pair<std::optional<double>, std::optional<double>> VrexEvaluatedSurface3D::intervalV() const {
    return {startV(), endV()};
}

const std::vector<VrexVariableDescriptor>& VrexEvaluatedSurface3D::descriptors() const {
    return m_shape.descriptors();
}

void VrexEvaluatedSurface3D::setDescriptors(std::vector<VrexVariableDescriptor> descriptors) {
    m_shape.setDescriptors(std::move(descriptors));
}

bool VrexEvaluatedSurface3D::set(const std::string& x, const std::string& y, const std::string& z,
                                 std::vector<VrexVariableDescriptor> descriptors) {
    return m_shape.set(x, y, z, std::move(descriptors));
}

bool VrexEvaluatedSurface3D::setX(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::X, text);
}

bool VrexEvaluatedSurface3D::setY(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::Y, text);
}

bool VrexEvaluatedSurface3D::setZ(const std::string& text) {
    return m_shape.setText(VrexEvaluatedShape3D::Z, text);
}

std::shared_ptr<VrexVar> VrexEvaluatedSurface3D::getU() const { return m_shape.getParameter(0); }

std::shared_ptr<VrexVar> VrexEvaluatedSurface3D::getV() const { return m_shape.getParameter(1); }

void VrexEvaluatedSurface3D::setOrigin(const VrexVector3DT<double>& origin) { setVectorParameter(X, origin); }

bool VrexEvaluatedSurface3D::setRotation(const VrexQuaternionT<double>& rotation) {
    return setUnitRotationParameter(SCALAR, rotation);
}

bool VrexEvaluatedSurface3D::setRotation(double angle, const VrexVector3DT<double>& axis) {
    return setRotation(VrexQuaternionT<double>::makeFromAngleAndAxis(angle, axis, m_defaultTolerance));
}

double VrexEvaluatedSurface3D::getAngle() const { return getRotation().rotationalAngle(); }

VrexVector3DT<double> VrexEvaluatedSurface3D::getDirection() const {
    return rotateByParameter(SCALAR, canonicalDirection());
}

VrexVector3DT<double> VrexEvaluatedSurface3D::canonicalDirection() { return VrexVector3DT<double>::OZ(); }

void VrexEvaluatedSurface3D::doUpdateFrom(const VrexBaseObject& other) {
    std::vector<VrexVariableDescriptor> kept = descriptors();
    VrexParametricSurface3D::doUpdateFrom(other);
    m_shape.setDescriptors(std::move(kept));
}
