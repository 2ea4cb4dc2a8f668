#include "data/graph/VrexEdge.h"

#include <utility>

#include "data/graph/VrexConstraintVertex.h"
#include "data/graph/VrexGeometryVertex.h"

namespace {

std::shared_ptr<VrexVertex> wrap(std::shared_ptr<VrexBaseGeometry> geometry) {
    return std::make_shared<VrexGeometryVertex>(std::move(geometry));
}

std::shared_ptr<VrexVertex> wrap(std::shared_ptr<VrexBaseConstraint> constraint) {
    return std::make_shared<VrexConstraintVertex>(std::move(constraint));
}

} // namespace

VrexEdge::VrexEdge(std::shared_ptr<VrexVertex> first, std::shared_ptr<VrexVertex> second)
    : VrexBasicEdge(std::move(first), std::move(second)) {}

VrexEdge::VrexEdge(std::shared_ptr<VrexBaseGeometry> geometry, std::shared_ptr<VrexBaseConstraint> constraint)
    : VrexBasicEdge(wrap(std::move(geometry)), wrap(std::move(constraint))) {}

VrexEdge::VrexEdge(std::shared_ptr<VrexBaseGeometry> first, std::shared_ptr<VrexBaseGeometry> second)
    : VrexBasicEdge(wrap(std::move(first)), wrap(std::move(second))) {}

VrexEdge::VrexEdge(std::shared_ptr<VrexBaseConstraint> first, std::shared_ptr<VrexBaseConstraint> second)
    : VrexBasicEdge(wrap(std::move(first)), wrap(std::move(second))) {}

VrexEdge::~VrexEdge() = default;

const std::shared_ptr<VrexVertex>& VrexEdge::getAnother(const std::shared_ptr<VrexVertex>& end) const {
    return end != nullptr && getFirst() != nullptr && *end == *getFirst() ? getSecond() : getFirst();
}
