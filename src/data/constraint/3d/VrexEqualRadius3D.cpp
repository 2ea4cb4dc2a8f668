#include "data/constraint/3d/VrexEqualRadius3D.h"

#include <cstddef>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"
#include "data/VrexStandardTexts.h"
#include "data/geometry/3d/VrexGeometry3D.h"

VREX_OBJECT_BODY(VrexEqualRadius3D)

std::shared_ptr<VrexEqualRadius3D>
VrexEqualRadius3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1, VrexRadius3DType radiusType1,
                          const std::shared_ptr<VrexGeometry3D>& geometry2, VrexRadius3DType radiusType2,
                          VrexGeometryComponentType component1, VrexGeometryComponentType component2) {
    return VrexObjectAccess::make<VrexEqualRadius3D>(geometry1, radiusType1, geometry2, radiusType2,
                                                     component1, component2);
}

VrexEqualRadius3D::VrexEqualRadius3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                     VrexRadius3DType radiusType1,
                                     const std::shared_ptr<VrexGeometry3D>& geometry2,
                                     VrexRadius3DType radiusType2, VrexGeometryComponentType component1,
                                     VrexGeometryComponentType component2)
    : VrexConstraint3D(VrexConstraint3DType::EqualRadius3D, component1, component2),
      m_radiusTypes{radiusType1, radiusType2} {
    addArguments(geometry1, geometry2);
}

int VrexEqualRadius3D::doc() const { return 1; }

VrexRadius3DType VrexEqualRadius3D::getRadiusType(int index) const {
    if (index < 0 || index > 1) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::ARRAY_SUBSCRIPT);
    }
    return m_radiusTypes[static_cast<std::size_t>(index)];
}

void VrexEqualRadius3D::setRadiusType(int index, VrexRadius3DType type) {
    if (index == 0 || index == 1) {
        m_radiusTypes[static_cast<std::size_t>(index)] = type;
    }
}

void VrexEqualRadius3D::setRadiusType(VrexRadius3DType& out, VrexGeometryComponentType component) {
    switch (component) {
    case VrexGeometryComponentType::MAJOR:
        out = VrexRadius3DType::MajorRadius3D;
        break;
    case VrexGeometryComponentType::MINOR:
        out = VrexRadius3DType::MinorRadius3D;
        break;
    default:
        out = VrexRadius3DType::Radius3D;
    }
}
