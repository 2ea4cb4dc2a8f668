#include "data/constraint/3d/VrexParallelDistance3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/3d/VrexPoint3D.h"

namespace {

constexpr VrexGeometry3DTypeSet WITH_DIRECTION = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{LINE,  CYLINDER, CONE,    SPIN_SURFACE, SWEEP_SURFACE,
                                 PLANE, CIRCLE,   ELLIPSE, TORUS};
}();

} // namespace

VREX_OBJECT_BODY(VrexParallelDistance3D)

bool VrexParallelDistance3D::canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                       const std::shared_ptr<VrexPoint3D>& point2,
                                       const std::shared_ptr<VrexGeometry3D>& geometry) {
    return point1 != nullptr && point2 != nullptr && geometry != nullptr &&
           WITH_DIRECTION.contains(geometry->type());
}

std::shared_ptr<VrexParallelDistance3D>
VrexParallelDistance3D::create(const std::shared_ptr<VrexPoint3D>& point1,
                               const std::shared_ptr<VrexPoint3D>& point2,
                               const std::shared_ptr<VrexGeometry3D>& geometry, double value) {
    return VrexObjectAccess::make<VrexParallelDistance3D>(point1, point2, geometry, value);
}

VrexParallelDistance3D::VrexParallelDistance3D(const std::shared_ptr<VrexPoint3D>& point1,
                                               const std::shared_ptr<VrexPoint3D>& point2,
                                               const std::shared_ptr<VrexGeometry3D>& geometry, double value)
    : VrexDimension3D(VrexConstraint3DType::ParallelDistance3D, value) {
    addArguments(point1, point2, geometry);
}

int VrexParallelDistance3D::doc() const { return 1; }

bool VrexParallelDistance3D::isHelpPointSupported() const { return true; }

bool VrexParallelDistance3D::isHelpParameterSupported() const { return true; }
