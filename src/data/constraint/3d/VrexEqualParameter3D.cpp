#include "data/constraint/3d/VrexEqualParameter3D.h"

#include <cstdint>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexNullableGeometry.h"

namespace {

using ParameterIndices = VrexEqualParameter3D::ParameterIndices;

/// The geometry that a help value of `constraint` belongs to; null without one.
std::shared_ptr<VrexGeometry3D> geometryOf(const std::shared_ptr<VrexConstraint3D>& constraint, int index) {
    return constraint == nullptr ? nullptr
                                 : constraint->getGeometryByParameterIndex(static_cast<std::uint64_t>(index));
}

ParameterIndices findIndices(const std::shared_ptr<VrexConstraint3D>& constraint,
                             const std::shared_ptr<VrexGeometry3D>& geometry) {
    constexpr ParameterIndices candidates[] = {
        {VrexConstraint3D::HPARAMU1, VrexConstraint3D::HPARAMV1},
        {VrexConstraint3D::HPARAMU2, VrexConstraint3D::HPARAMV2},
    };
    for (const ParameterIndices& indices : candidates) {
        if (geometry != nullptr && geometryOf(constraint, indices.first) == geometry) {
            return indices;
        }
    }
    return {0, 0};
}

} // namespace

VREX_OBJECT_BODY(VrexEqualParameter3D)

bool VrexEqualParameter3D::canCreate(const std::shared_ptr<VrexConstraint3D>& constraint1,
                                     const ParameterIndices& indices1,
                                     const std::shared_ptr<VrexConstraint3D>& constraint2,
                                     const ParameterIndices& indices2) {
    const auto geometry1 = geometryOf(constraint1, indices1.first);
    const auto geometry2 = geometryOf(constraint2, indices2.first);
    return geometry1 != nullptr && geometry1 == geometry2 &&
           (geometry1->isParametricCurve() || geometry2->isParametricSurface());
}

std::shared_ptr<VrexEqualParameter3D> VrexEqualParameter3D::create(
    const std::shared_ptr<VrexConstraint3D>& constraint1, const ParameterIndices& indices1,
    const std::shared_ptr<VrexConstraint3D>& constraint2, const ParameterIndices& indices2) {
    return VrexObjectAccess::make<VrexEqualParameter3D>(geometryOf(constraint1, indices1.first),
                                                        Constraints{constraint1, constraint2},
                                                        std::array{indices1, indices2});
}

std::shared_ptr<VrexEqualParameter3D>
VrexEqualParameter3D::create(const std::shared_ptr<VrexGeometry3D>& geometry,
                             const std::shared_ptr<VrexConstraint3D>& constraint1,
                             const std::shared_ptr<VrexConstraint3D>& constraint2) {
    return VrexObjectAccess::make<VrexEqualParameter3D>(
        geometry, Constraints{constraint1, constraint2},
        std::array{findIndices(constraint1, geometry), findIndices(constraint2, geometry)});
}

VrexEqualParameter3D::VrexEqualParameter3D(const std::shared_ptr<VrexGeometry3D>& geometry,
                                           Constraints constraints,
                                           const std::array<ParameterIndices, 2>& indices)
    : VrexConstraint3D(VrexConstraint3DType::EqualParameter3D),
      m_constraints(std::move(constraints)),
      m_parameterIndices(indices) {
    addArguments(geometry);
}

VrexEqualParameter3D::~VrexEqualParameter3D() {
    for (auto& constraint : m_constraints) {
        nsRelease::drop(std::move(constraint));
    }
}

int VrexEqualParameter3D::doc() const { return 1; }

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexEqualParameter3D::getConstraints() {
    return keepOnly<VrexBaseConstraint>(m_constraints);
}

void VrexEqualParameter3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_constraints, m_parameterIndices);
    VrexConstraint3D::doUpdateFrom(other);
}
