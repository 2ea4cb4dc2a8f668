#include "data/constraint/3d/VrexMate3D.h"

#include <cassert>

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexConnector3D.h"

VREX_OBJECT_ACCEPT(VrexMate3D)

VrexMate3D::VrexMate3D(VrexConstraint3DType type, const std::shared_ptr<VrexConnector3D>& connector1,
                       const std::shared_ptr<VrexConnector3D>& connector2, std::uint64_t dimensionCount)
    : VrexConstraint3D(type, VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::UNKNOWN),
      m_dimensions(dimensionCount) {
    addArguments(connector1, connector2);
}

bool VrexMate3D::checkDimensionLimits(std::uint64_t, const VrexDimensionLimits&) const { return true; }

VrexMateDimension3D& VrexMate3D::getDimension(std::uint64_t index) {
    assert(index < m_dimensions.size());
    return m_dimensions[index];
}

const VrexMateDimension3D& VrexMate3D::getDimension(std::uint64_t index) const {
    assert(index < m_dimensions.size());
    return m_dimensions[index];
}
