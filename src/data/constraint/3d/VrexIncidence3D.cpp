#include "data/constraint/3d/VrexIncidence3D.h"

#include "data/VrexEnumSetT.h"
#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexNullableGeometry.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

constexpr VrexEnumSetT<VrexGeometryComponentType> POINTS{VrexGeometryComponentType::CENTER,
                                                         VrexGeometryComponentType::APEX};

constexpr VrexEnumSetT<VrexGeometryComponentType> EXTENDED{
    VrexGeometryComponentType::AXIS, VrexGeometryComponentType::PLANE, VrexGeometryComponentType::SPINE};

/// What a point can lie on.
constexpr VrexGeometry3DTypeSet WITH_POINTS = [] {
    using enum VrexGeometry3DType;
    return VrexGeometry3DTypeSet{POINT,  LINE,         PLANE,        NURBS_SURFACE, CYLINDER,
                                 SPHERE, CIRCLE,       SPLINE,       CONE,          ELLIPSE,
                                 TORUS,  SPIN_SURFACE, EVAL_SURFACE, EVAL_CURVE,    SWEEP_SURFACE};
}();

struct PartnerRow {
    VrexGeometry3DType type;
    VrexGeometry3DTypeSet partners;
};

/// The partners of other types for whole entities: the first row that names either of two types decides.
constexpr PartnerRow PARTNERS[] = {
    {VrexGeometry3DType::POINT, WITH_POINTS},
    {VrexGeometry3DType::LINE,
     {VrexGeometry3DType::PLANE, VrexGeometry3DType::CYLINDER, VrexGeometry3DType::CONE,
      VrexGeometry3DType::SWEEP_SURFACE}},
    {VrexGeometry3DType::ELLIPSE, {VrexGeometry3DType::PLANE, VrexGeometry3DType::CONE}},
    {VrexGeometry3DType::CIRCLE,
     {VrexGeometry3DType::PLANE, VrexGeometry3DType::CYLINDER, VrexGeometry3DType::SPHERE,
      VrexGeometry3DType::CONE, VrexGeometry3DType::TORUS, VrexGeometry3DType::SPIN_SURFACE}},
    {VrexGeometry3DType::TORUS,
     {VrexGeometry3DType::PLANE, VrexGeometry3DType::CYLINDER, VrexGeometry3DType::SPHERE,
      VrexGeometry3DType::CONE, VrexGeometry3DType::SPIN_SURFACE}},
};

bool arePartners(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    for (const PartnerRow& row : PARTNERS) {
        if (row.type == type1) {
            return row.partners.contains(type2);
        }
        if (row.type == type2) {
            return row.partners.contains(type1);
        }
    }
    return false;
}

bool areCircleAndTorus(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    constexpr VrexGeometry3DTypeSet both{VrexGeometry3DType::CIRCLE, VrexGeometry3DType::TORUS};
    return type1 != type2 && both.contains(type1) && both.contains(type2);
}

} // namespace

VREX_OBJECT_BODY(VrexIncidence3D)

bool VrexIncidence3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2,
                                VrexGeometryComponentType component1, VrexGeometryComponentType component2,
                                VrexIncidence3DType incidenceType) {
    if (incidenceType == VrexIncidence3DType::AroundSpine) {
        return areCircleAndTorus(type1, type2) && component1 == VrexGeometryComponentType::UNKNOWN &&
               component2 == VrexGeometryComponentType::UNKNOWN;
    }
    if (type1 == type2) {
        return true;
    }
    if (POINTS.contains(component1)) {
        return WITH_POINTS.contains(type2);
    }
    if (POINTS.contains(component2)) {
        return WITH_POINTS.contains(type1);
    }
    return EXTENDED.contains(component1) || EXTENDED.contains(component2) || arePartners(type1, type2);
}

std::shared_ptr<VrexIncidence3D> VrexIncidence3D::create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                         const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                         VrexIncidence3DType incidenceType,
                                                         VrexGeometryComponentType component1,
                                                         VrexGeometryComponentType component2) {
    return VrexObjectAccess::make<VrexIncidence3D>(geometry1, geometry2, incidenceType, component1,
                                                   component2);
}

VrexIncidence3D::VrexIncidence3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                 const std::shared_ptr<VrexGeometry3D>& geometry2,
                                 VrexIncidence3DType incidenceType, VrexGeometryComponentType component1,
                                 VrexGeometryComponentType component2)
    : VrexConstraint3D(VrexConstraint3DType::Incidence3D, component1, component2),
      m_incidenceType(incidenceType) {
    addArguments(geometry1, geometry2);
}

int VrexIncidence3D::doc() const { return nsNullableGeometry::degreeOfContact(geometry(1), geometry(2)); }

bool VrexIncidence3D::isHelpPointSupported() const { return true; }

bool VrexIncidence3D::isHelpParameterSupported() const { return true; }
