#include "data/constraint/3d/VrexFixation3D.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "data/VrexEnumSetT.h"
#include "data/VrexLog.h"
#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexNullableGeometry.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

struct FixationRow {
    VrexGeometry3DTypeSet geometries;
    VrexEnumSetT<VrexFixation3DType> fixations;
};

using enum VrexFixation3DType;
using Geometry = VrexGeometry3DType;

/// What of an entity can be held. The validator of constraint requests has a table of its own, which differs.
constexpr FixationRow FIXATIONS[] = {
    {{Geometry::POINT}, {Complete3D, Location3D}},
    {{Geometry::LINE, Geometry::PLANE, Geometry::RIGID_SET, Geometry::EVAL_CURVE},
     {Complete3D, Direction3D, Location3D}},
    {{Geometry::CYLINDER, Geometry::CIRCLE}, {Complete3D, Direction3D, Location3D, Radius3D}},
    {{Geometry::SPHERE}, {Complete3D, Location3D, Radius3D}},
    {{Geometry::CONE}, {Complete3D, Direction3D, Location3D, Aperture3D}},
    {{Geometry::ELLIPSE},
     {Complete3D, Direction3D, Location3D, MajorRadius3D, MinorRadius3D, EllipseDirection3D}},
    {{Geometry::TORUS}, {Complete3D, Direction3D, Location3D, MajorRadius3D, MinorRadius3D}},
    {{Geometry::NURBS_SURFACE, Geometry::SPLINE, Geometry::CONNECTOR, Geometry::SPIN_SURFACE,
      Geometry::EVAL_SURFACE, Geometry::SWEEP_SURFACE, Geometry::PATTERN, Geometry::ARRAY_PATTERN,
      Geometry::EQUAL_DIMENSION_ELEMENT},
     {Complete3D}},
};

consteval bool namesEachTypeOnce() {
    for (const auto& type : VrexEnumTable<VrexGeometry3DType>::ROWS) {
        const auto rows = std::ranges::count_if(
            FIXATIONS, [&type](const FixationRow& row) { return row.geometries.contains(type.value); });
        if (rows != (type.value == VrexGeometry3DType::UNKNOWN ? 0 : 1)) {
            return false;
        }
    }
    return true;
}
static_assert(namesEachTypeOnce(), "each type of entities has its row");

struct DegreeRow {
    VrexFixation3DType type;
    int degree;
};

/// The degrees of the fixations that hold a part of an entity.
constexpr DegreeRow DEGREES[] = {
    {Direction3D, 2},   {Location3D, 3}, {Radius3D, 1},           {MajorRadius3D, 1},
    {MinorRadius3D, 1}, {Aperture3D, 1}, {EllipseDirection3D, 2},
};

} // namespace

VREX_OBJECT_BODY(VrexFixation3D)

bool VrexFixation3D::canCreate(VrexGeometry3DType type, VrexFixation3DType fixationType) {
    return std::ranges::any_of(FIXATIONS, [type, fixationType](const FixationRow& row) {
        return row.geometries.contains(type) && row.fixations.contains(fixationType);
    });
}

std::shared_ptr<VrexFixation3D> VrexFixation3D::create(const std::shared_ptr<VrexGeometry3D>& geometry,
                                                       VrexFixation3DType fixationType) {
    return VrexObjectAccess::make<VrexFixation3D>(geometry, fixationType);
}

VrexFixation3D::VrexFixation3D(const std::shared_ptr<VrexGeometry3D>& geometry,
                               VrexFixation3DType fixationType)
    : VrexConstraint3D(VrexConstraint3DType::Fixation3D), m_fixationType(fixationType) {
    addArguments(geometry);
}

int VrexFixation3D::doc() const {
    if (isCompleteFixed()) {
        return nsNullableGeometry::dofOf(geometry(1));
    }
    const auto* const row = std::ranges::find(DEGREES, m_fixationType, &DegreeRow::type);
    if (row == std::end(DEGREES)) {
        VREX_RAISE(std::runtime_error, "not implemented");
    }
    return row->degree;
}

bool VrexFixation3D::isCompleteFixed() const { return m_fixationType == Complete3D; }
