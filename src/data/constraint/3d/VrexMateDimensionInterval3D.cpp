#include "data/constraint/3d/VrexMateDimensionInterval3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/VrexGeometryVariable.h"

VREX_OBJECT_BODY(VrexMateDimensionInterval3D)

std::shared_ptr<VrexMateDimensionInterval3D>
VrexMateDimensionInterval3D::create(const std::shared_ptr<VrexGeometryVariable>& variable,
                                    const VrexDimensionLimits& limits, std::uint64_t dimensionIndex,
                                    VrexMateDimensionInterval3DType dimensionType) {
    return VrexObjectAccess::make<VrexMateDimensionInterval3D>(variable, limits, dimensionIndex,
                                                               dimensionType);
}

VrexMateDimensionInterval3D::VrexMateDimensionInterval3D(
    const std::shared_ptr<VrexGeometryVariable>& variable, const VrexDimensionLimits& limits,
    std::uint64_t dimensionIndex, VrexMateDimensionInterval3DType dimensionType)
    : VrexConstraint3D(VrexConstraint3DType::MateDimensionInterval3D, VrexGeometryComponentType::UNKNOWN,
                       VrexGeometryComponentType::UNKNOWN),
      m_limits(limits),
      m_dimensionIndex(dimensionIndex),
      m_dimensionType(dimensionType) {
    if (variable != nullptr) {
        addArguments(variable);
    }
}

int VrexMateDimensionInterval3D::doc() const { return 0; }

std::shared_ptr<VrexGeometryVariable> VrexMateDimensionInterval3D::variable() const {
    const auto& list = getGeometries();
    return list.empty() ? nullptr : std::dynamic_pointer_cast<VrexGeometryVariable>(list.front());
}
