#include "data/graph/VrexConstraintGraph.h"

#include <stdexcept>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"

namespace {

constexpr std::uint64_t NO_INDEX = ~std::uint64_t(0);

std::uint64_t widened(std::uint32_t index) { return index == VrexVertexIndex::NONE ? NO_INDEX : index; }

} // namespace

VrexConstraintGraph::VrexConstraintGraph() = default;
VrexConstraintGraph::VrexConstraintGraph(const VrexConstraintGraph&) = default;
VrexConstraintGraph::VrexConstraintGraph(VrexConstraintGraph&&) noexcept = default;
VrexConstraintGraph& VrexConstraintGraph::operator=(const VrexConstraintGraph&) = default;
VrexConstraintGraph& VrexConstraintGraph::operator=(VrexConstraintGraph&&) noexcept = default;
VrexConstraintGraph::~VrexConstraintGraph() {
    dropEdges();
    m_objects.clear();
}

void VrexConstraintGraph::clear() {
    VrexVertexAdjacency::clear();
    m_objects.clear();
    m_edges.clear();
    m_fixedMap.clear();
}

bool VrexConstraintGraph::hasGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) const {
    return geometry != nullptr &&
           m_objects.find(VrexVertexType::Geometry, geometry->getID()) != VrexVertexIndex::NONE;
}

bool VrexConstraintGraph::hasConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) const {
    return constraint != nullptr &&
           m_objects.find(VrexVertexType::Constraint, constraint->getID()) != VrexVertexIndex::NONE;
}

std::uint32_t VrexConstraintGraph::indexOf(VrexVertex* vertex) const {
    return vertex == nullptr ? VrexVertexIndex::NONE
                             : m_objects.find(vertex->getVertexType(), vertex->getID());
}

VrexVertex* VrexConstraintGraph::seenVertex(std::uint32_t index) const {
    return index < vertices().size() ? vertices()[index].get() : nullptr;
}

std::uint64_t VrexConstraintGraph::getIndex(const std::shared_ptr<VrexVertex>& vertex) {
    return widened(indexOf(vertex.get()));
}

std::vector<VrexEdge>& VrexConstraintGraph::getAdjacents(const std::shared_ptr<VrexVertex>& vertex) {
    if (vertex == nullptr || vertex->getVertexType() > VrexVertexType::Constraint) {
        VREX_LOG(nsLog::FAILURE, "The VrexVertexType cannot be found");
        static std::vector<VrexEdge> none;
        none.clear(); // whoever had it before may have written to it
        return none;
    }
    const std::uint32_t index = indexOf(vertex.get());
    if (index == VrexVertexIndex::NONE) {
        VREX_RAISE(std::out_of_range, nsStandardTexts::UNORDERED_MAP_KEY);
    }
    return getAdjacents(index);
}

std::vector<std::shared_ptr<VrexBaseConstraint>>
VrexConstraintGraph::getAdjacentConstraints(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    std::vector<std::shared_ptr<VrexBaseConstraint>> result;
    if (hasGeometry(geometry)) {
        for (VrexEdge& edge : getAdjacents(m_objects.find(VrexVertexType::Geometry, geometry->getID()))) {
            result.push_back(edge.getSecond()->getConstraintPtr());
        }
    }
    return result;
}

std::vector<std::shared_ptr<VrexBaseGeometry>>
VrexConstraintGraph::getAdjacentGeometries(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    std::vector<std::shared_ptr<VrexBaseGeometry>> result;
    if (hasConstraint(constraint)) {
        for (VrexEdge& edge : getAdjacents(m_objects.find(VrexVertexType::Constraint, constraint->getID()))) {
            result.push_back(edge.getFirst()->getGeometryPtr());
        }
    }
    return result;
}

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexConstraintGraph::getGeometries() {
    std::vector<std::shared_ptr<VrexBaseGeometry>> result;
    for (const std::uint32_t index : m_objects.byID(VrexVertexType::Geometry)) {
        VrexVertex* vertex = seenVertex(index); // which whoever looked at it may have replaced
        result.push_back(vertex != nullptr
                             ? vertex->getGeometryPtr()
                             : std::static_pointer_cast<VrexBaseGeometry>(m_objects.object(index)));
    }
    return result;
}

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexConstraintGraph::getConstraints() {
    std::vector<std::shared_ptr<VrexBaseConstraint>> result;
    for (const std::uint32_t index : m_objects.byID(VrexVertexType::Constraint)) {
        VrexVertex* vertex = seenVertex(index);
        result.push_back(vertex != nullptr
                             ? vertex->getConstraintPtr()
                             : std::static_pointer_cast<VrexBaseConstraint>(m_objects.object(index)));
    }
    return result;
}

bool VrexConstraintGraph::isRelated(std::uint64_t id) const { return m_relatedMap.contains(id); }
