#include "data/constraint/3d/VrexCurveLength3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

VREX_OBJECT_BODY(VrexCurveLength3D)

bool VrexCurveLength3D::canCreate(const std::shared_ptr<VrexPoint3D>& point1,
                                  const std::shared_ptr<VrexPoint3D>& point2,
                                  const std::shared_ptr<VrexGeometry3D>& curve) {
    return point1 != nullptr && point2 != nullptr && curve != nullptr && curve->isParametricCurve();
}

std::shared_ptr<VrexCurveLength3D> VrexCurveLength3D::create(const std::shared_ptr<VrexPoint3D>& point1,
                                                             const std::shared_ptr<VrexPoint3D>& point2,
                                                             const std::shared_ptr<VrexGeometry3D>& curve,
                                                             double value) {
    return VrexObjectAccess::make<VrexCurveLength3D>(point1, point2, curve, value);
}

VrexCurveLength3D::VrexCurveLength3D(const std::shared_ptr<VrexPoint3D>& point1,
                                     const std::shared_ptr<VrexPoint3D>& point2,
                                     const std::shared_ptr<VrexGeometry3D>& curve, double value)
    : VrexDimension3D(VrexConstraint3DType::CurveLength3D, value) {
    addArguments(point1, point2, curve);
}

int VrexCurveLength3D::doc() const { return 0; }

bool VrexCurveLength3D::isHelpParameterSupported() const { return true; }

std::shared_ptr<VrexGeometry3D> VrexCurveLength3D::getGeometryByParameterIndex(std::uint64_t index) const {
    return index == HPARAMU1 || index == HPARAMU2 ? geometry(3) : nullptr;
}
