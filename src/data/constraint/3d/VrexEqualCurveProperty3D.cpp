#include "data/constraint/3d/VrexEqualCurveProperty3D.h"

#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexCurveProperties.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

/// Beside which one parametric curve is enough.
constexpr VrexGeometry3DTypeSet SIMPLE{VrexGeometry3DType::LINE, VrexGeometry3DType::CIRCLE};

} // namespace

VREX_OBJECT_BODY(VrexEqualCurveProperty3D)

bool VrexEqualCurveProperty3D::canCreate(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                         const std::shared_ptr<VrexGeometry3D>& geometry2) {
    if (geometry1 == nullptr || geometry2 == nullptr) {
        return false;
    }
    if (SIMPLE.contains(geometry1->type())) {
        return geometry2->isParametricCurve();
    }
    return geometry1->isParametricCurve() &&
           (SIMPLE.contains(geometry2->type()) || geometry2->isParametricCurve());
}

std::shared_ptr<VrexEqualCurveProperty3D>
VrexEqualCurveProperty3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                 const std::shared_ptr<VrexGeometry3D>& geometry2,
                                 VrexCurveProperty3DType property) {
    return VrexObjectAccess::make<VrexEqualCurveProperty3D>(geometry1, geometry2, property);
}

VrexEqualCurveProperty3D::VrexEqualCurveProperty3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                   const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                   VrexCurveProperty3DType property)
    : VrexConstraint3D(convertToType(property)), m_property(property) {
    addArguments(geometry1, geometry2);
}

int VrexEqualCurveProperty3D::doc() const { return 1; }

bool VrexEqualCurveProperty3D::isHelpParameterSupported() const { return true; }

VrexConstraint3DType VrexEqualCurveProperty3D::convertToType(VrexCurveProperty3DType property) {
    return nsCurveProperties::constraintType(property);
}
