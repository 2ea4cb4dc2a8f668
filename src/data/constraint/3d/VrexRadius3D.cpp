#include "data/constraint/3d/VrexRadius3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

constexpr VrexGeometry3DTypeSet WITH_RADIUS = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{CYLINDER, SPHERE, CIRCLE, ELLIPSE, TORUS};
}();

} // namespace

VREX_OBJECT_BODY(VrexRadius3D)

bool VrexRadius3D::canCreate(VrexGeometry3DType type) { return WITH_RADIUS.contains(type); }

VrexConstraint3DType VrexRadius3D::type(VrexRadius3DType radiusType) {
    switch (radiusType) {
    case VrexRadius3DType::Radius3D:
        return VrexConstraint3DType::Radius3D;
    case VrexRadius3DType::MajorRadius3D:
        return VrexConstraint3DType::MajorRadius3D;
    case VrexRadius3DType::MinorRadius3D:
        return VrexConstraint3DType::MinorRadius3D;
    }
    return VrexConstraint3DType::Unknown;
}

std::shared_ptr<VrexRadius3D> VrexRadius3D::create(const std::shared_ptr<VrexGeometry3D>& geometry,
                                                   double value, VrexRadius3DType radiusType) {
    return VrexObjectAccess::make<VrexRadius3D>(geometry, value, radiusType);
}

VrexRadius3D::VrexRadius3D(const std::shared_ptr<VrexGeometry3D>& geometry, double value,
                           VrexRadius3DType radiusType)
    : VrexDimension3D(type(radiusType), value), m_radiusType(radiusType) {
    addArguments(geometry);
}

int VrexRadius3D::doc() const { return 1; }
