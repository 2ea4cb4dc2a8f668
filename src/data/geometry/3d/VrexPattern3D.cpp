#include "data/geometry/3d/VrexPattern3D.h"

#include <cmath>
#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexPattern3D)

std::shared_ptr<VrexPattern3D> VrexPattern3D::create(VrexPattern3DType patternType,
                                                     std::shared_ptr<VrexLine3D> axisLine, double value) {
    return VrexObjectAccess::make<VrexPattern3D>(patternType, std::move(axisLine), value);
}

VrexPattern3D::VrexPattern3D(VrexPattern3DType patternType, std::shared_ptr<VrexLine3D> axisLine,
                             double value)
    : VrexGeometry3D(VrexGeometry3DType::PATTERN, PARAMETERS_AMOUNT),
      m_patternType(patternType),
      m_axisLine(std::move(axisLine)) {
    setValue(value);
}

const char* VrexPattern3D::getNamePrefix() const { return "pat"; }

int VrexPattern3D::dof() const { return 1; }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexPattern3D::getGeometries() const {
    return keepOnly<VrexBaseGeometry>(std::vector{m_axisLine});
}

bool VrexPattern3D::checkChanged(double tolerance, double) const {
    const auto backup = getBackupAs<VrexPattern3D>();
    return backup != nullptr && std::fabs(getValue() - backup->getValue()) > tolerance;
}

bool VrexPattern3D::isPattern() const { return true; }

void VrexPattern3D::setAxisLine(std::shared_ptr<VrexLine3D> axisLine) { m_axisLine = std::move(axisLine); }

void VrexPattern3D::setValue(double value) { setParameter(VALUE, value); }

void VrexPattern3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_axisLine);
    VrexGeometry3D::doUpdateFrom(other);
}
