#include "data/graph/VrexConstraintVertex.h"

#include <utility>

#include "data/VrexBaseConstraint.h"

VrexConstraintVertex::VrexConstraintVertex(std::shared_ptr<VrexBaseConstraint> constraint)
    : m_constraint(std::move(constraint)) {}

VrexConstraintVertex::VrexConstraintVertex(const VrexConstraintVertex&) = default;
VrexConstraintVertex::VrexConstraintVertex(VrexConstraintVertex&&) noexcept = default;
VrexConstraintVertex& VrexConstraintVertex::operator=(const VrexConstraintVertex&) = default;
VrexConstraintVertex& VrexConstraintVertex::operator=(VrexConstraintVertex&&) noexcept = default;
VrexConstraintVertex::~VrexConstraintVertex() = default;

VrexVertexType VrexConstraintVertex::getVertexType() { return VrexVertexType::Constraint; }

std::shared_ptr<VrexBaseGeometry> VrexConstraintVertex::getGeometryPtr() { return nullptr; }

std::shared_ptr<VrexBaseConstraint> VrexConstraintVertex::getConstraintPtr() { return m_constraint; }

std::uint64_t VrexConstraintVertex::getID() const {
    return m_constraint != nullptr ? m_constraint->getID() : 0;
}
