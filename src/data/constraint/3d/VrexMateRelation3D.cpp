#include "data/constraint/3d/VrexMateRelation3D.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexMate3D.h"

namespace {

constexpr std::size_t MATES_AMOUNT = 2;

} // namespace

VREX_OBJECT_BODY(VrexMateRelation3D)

bool VrexMateRelation3D::canCreate(const std::vector<std::shared_ptr<VrexMate3D>>& mates,
                                   const std::vector<std::uint64_t>& indices) {
    if (mates.size() != MATES_AMOUNT || indices.size() != MATES_AMOUNT) {
        return false;
    }
    return std::ranges::equal(mates, indices, [](const auto& mate, std::uint64_t index) {
        return mate != nullptr && index < mate->getDimensionSize();
    });
}

std::shared_ptr<VrexMateRelation3D> VrexMateRelation3D::create(std::vector<std::shared_ptr<VrexMate3D>> mates,
                                                               std::vector<std::uint64_t> indices,
                                                               double ratio) {
    return VrexObjectAccess::make<VrexMateRelation3D>(std::move(mates), std::move(indices), ratio);
}

VrexMateRelation3D::VrexMateRelation3D(std::vector<std::shared_ptr<VrexMate3D>> mates,
                                       std::vector<std::uint64_t> indices, double ratio)
    : VrexConstraint3D(VrexConstraint3DType::MateRelation3D, VrexGeometryComponentType::UNKNOWN,
                       VrexGeometryComponentType::UNKNOWN),
      m_mates(std::move(mates)),
      m_mateParameterIndices(std::move(indices)),
      m_ratio(ratio) {}

VrexMateRelation3D::~VrexMateRelation3D() { nsRelease::dropAll(m_mates); }

int VrexMateRelation3D::doc() const { return 1; }

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexMateRelation3D::getConstraints() {
    return keepOnly<VrexBaseConstraint>(m_mates);
}

void VrexMateRelation3D::setMateParameterIndexs(std::vector<std::uint64_t> indices) {
    m_mateParameterIndices = std::move(indices);
}

void VrexMateRelation3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_mates);
    VrexConstraint3D::doUpdateFrom(other);
}
