#include "data/graph/VrexGeometryVertex.h"

#include <utility>

#include "data/VrexBaseGeometry.h"

VrexGeometryVertex::VrexGeometryVertex(std::shared_ptr<VrexBaseGeometry> geometry)
    : m_geometry(std::move(geometry)) {}

VrexGeometryVertex::VrexGeometryVertex(const VrexGeometryVertex&) = default;
VrexGeometryVertex::VrexGeometryVertex(VrexGeometryVertex&&) noexcept = default;
VrexGeometryVertex& VrexGeometryVertex::operator=(const VrexGeometryVertex&) = default;
VrexGeometryVertex& VrexGeometryVertex::operator=(VrexGeometryVertex&&) noexcept = default;
VrexGeometryVertex::~VrexGeometryVertex() = default;

VrexVertexType VrexGeometryVertex::getVertexType() { return VrexVertexType::Geometry; }

std::shared_ptr<VrexBaseGeometry> VrexGeometryVertex::getGeometryPtr() { return m_geometry; }

std::shared_ptr<VrexBaseConstraint> VrexGeometryVertex::getConstraintPtr() { return nullptr; }

std::uint64_t VrexGeometryVertex::getID() const { return m_geometry != nullptr ? m_geometry->getID() : 0; }
