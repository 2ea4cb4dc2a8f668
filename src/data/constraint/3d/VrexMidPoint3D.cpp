#include "data/constraint/3d/VrexMidPoint3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace {

constexpr VrexGeometry3DTypeSet WITH_MIDDLE{VrexGeometry3DType::POINT, VrexGeometry3DType::PLANE};

} // namespace

VREX_OBJECT_BODY(VrexMidPoint3D)

bool VrexMidPoint3D::canCreate(const std::shared_ptr<VrexGeometry3D>& geometry1,
                               const std::shared_ptr<VrexGeometry3D>& geometry2,
                               const std::shared_ptr<VrexPoint3D>& point) {
    return geometry1 != nullptr && geometry2 != nullptr && point != nullptr &&
           geometry1->type() == geometry2->type() && WITH_MIDDLE.contains(geometry1->type());
}

std::shared_ptr<VrexMidPoint3D> VrexMidPoint3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                       const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                       const std::shared_ptr<VrexPoint3D>& point) {
    return VrexObjectAccess::make<VrexMidPoint3D>(geometry1, geometry2, point);
}

VrexMidPoint3D::VrexMidPoint3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                               const std::shared_ptr<VrexGeometry3D>& geometry2,
                               const std::shared_ptr<VrexPoint3D>& point)
    : VrexConstraint3D(VrexConstraint3DType::MidPoint3D) {
    addArguments(geometry1, geometry2, point);
}

int VrexMidPoint3D::doc() const { return 1; }

std::shared_ptr<VrexPoint3D> VrexMidPoint3D::midPoint() const {
    return std::dynamic_pointer_cast<VrexPoint3D>(geometry(3));
}
