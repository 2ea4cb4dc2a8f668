#include "data/constraint/3d/VrexSurfaceNormal3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"

namespace {

constexpr VrexGeometry3DTypeSet ALONG_NORMAL = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{LINE, CYLINDER, CIRCLE, CONE, ELLIPSE, TORUS, SPIN_SURFACE};
}();

} // namespace

VREX_OBJECT_BODY(VrexSurfaceNormal3D)

bool VrexSurfaceNormal3D::canCreate(const std::shared_ptr<VrexParametricSurface3D>& surface,
                                    const std::shared_ptr<VrexGeometry3D>& geometry) {
    return surface != nullptr && geometry != nullptr && ALONG_NORMAL.contains(geometry->type());
}

std::shared_ptr<VrexSurfaceNormal3D>
VrexSurfaceNormal3D::create(const std::shared_ptr<VrexParametricSurface3D>& surface,
                            const std::shared_ptr<VrexGeometry3D>& geometry) {
    return VrexObjectAccess::make<VrexSurfaceNormal3D>(surface, geometry);
}

VrexSurfaceNormal3D::VrexSurfaceNormal3D(const std::shared_ptr<VrexParametricSurface3D>& surface,
                                         const std::shared_ptr<VrexGeometry3D>& geometry)
    : VrexConstraint3D(VrexConstraint3DType::SurfaceNormal3D) {
    addArguments(surface, geometry);
}

int VrexSurfaceNormal3D::doc() const { return 1; }
