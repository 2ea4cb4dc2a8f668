#include "data/constraint/3d/VrexEqualDimension3D.h"

#include <algorithm>
#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"

VREX_OBJECT_BODY(VrexEqualDimension3D)

bool VrexEqualDimension3D::canCreate(const Dimensions& dimensions) {
    return !dimensions.empty() && std::ranges::all_of(dimensions, [&dimensions](const auto& dimension) {
        return dimension != nullptr && dimension->getGeometries3DCount() == 2 &&
               dimension->type() == dimensions.front()->type();
    });
}

std::shared_ptr<VrexEqualDimension3D>
VrexEqualDimension3D::create(Dimensions dimensions,
                             const std::shared_ptr<VrexEqualDimensionElement3D>& element) {
    return VrexObjectAccess::make<VrexEqualDimension3D>(std::move(dimensions), element);
}

VrexEqualDimension3D::VrexEqualDimension3D(Dimensions dimensions,
                                           const std::shared_ptr<VrexEqualDimensionElement3D>& element)
    : VrexConstraint3D(VrexConstraint3DType::EqualDimension3D), m_dimensions(std::move(dimensions)) {
    addArguments(element);
}

VrexEqualDimension3D::~VrexEqualDimension3D() { nsRelease::dropAll(m_dimensions); }

int VrexEqualDimension3D::doc() const { return 1; }

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexEqualDimension3D::getConstraints() {
    return keepOnly<VrexBaseConstraint>(m_dimensions);
}

std::shared_ptr<VrexEqualDimensionElement3D> VrexEqualDimension3D::getElement() const {
    return std::dynamic_pointer_cast<VrexEqualDimensionElement3D>(geometry(1));
}

void VrexEqualDimension3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_dimensions);
    VrexConstraint3D::doUpdateFrom(other);
}
