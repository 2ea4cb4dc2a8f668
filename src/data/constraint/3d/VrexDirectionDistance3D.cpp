#include "data/constraint/3d/VrexDirectionDistance3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexPoint3D.h"

VREX_OBJECT_BODY(VrexDirectionDistance3D)

bool VrexDirectionDistance3D::canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                        const std::shared_ptr<VrexPoint3D>& point2) {
    return point1 != nullptr && point2 != nullptr;
}

std::shared_ptr<VrexDirectionDistance3D>
VrexDirectionDistance3D::create(const std::shared_ptr<VrexPoint3D>& point1,
                                const std::shared_ptr<VrexPoint3D>& point2,
                                const VrexVector3DT<double>& direction, double value) {
    return VrexObjectAccess::make<VrexDirectionDistance3D>(point1, point2, direction, value);
}

VrexDirectionDistance3D::VrexDirectionDistance3D(const std::shared_ptr<VrexPoint3D>& point1,
                                                 const std::shared_ptr<VrexPoint3D>& point2,
                                                 const VrexVector3DT<double>& direction, double value)
    : VrexDimension3D(VrexConstraint3DType::DirectionDistance3D, value), m_direction(direction) {
    addArguments(point1, point2);
}

int VrexDirectionDistance3D::doc() const { return 1; }

bool VrexDirectionDistance3D::isHelpPointSupported() const { return true; }

bool VrexDirectionDistance3D::isHelpParameterSupported() const { return true; }
