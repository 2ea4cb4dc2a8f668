#include "data/graph/VrexConstraintGraph.h"

#include <stdexcept>
#include <utility>

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

VrexConstraintGraph& VrexConstraintGraph::operator=(const VrexConstraintGraph& other) {
    return *this = VrexConstraintGraph(other); // without memory for all of it nothing changes
}

VrexConstraintGraph& VrexConstraintGraph::operator=(VrexConstraintGraph&& other) noexcept {
    if (this != &other) { // vectors do not outlive being moved to themselves
        VrexVertexAdjacency::operator=(static_cast<VrexVertexAdjacency&&>(other));
        m_objects = std::move(other.m_objects);
        m_edges = std::move(other.m_edges);
        m_edgeVertices = std::move(other.m_edgeVertices);
        m_fixedMap = std::move(other.m_fixedMap);
        m_relatedMap = std::move(other.m_relatedMap);
    }
    return *this;
}

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
        thread_local std::vector<VrexEdge> none;
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
            const auto& end = edge.getSecond();
            result.push_back(end != nullptr ? end->getConstraintPtr() : nullptr);
        }
    }
    return result;
}

std::vector<std::shared_ptr<VrexBaseGeometry>>
VrexConstraintGraph::getAdjacentGeometries(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    std::vector<std::shared_ptr<VrexBaseGeometry>> result;
    if (hasConstraint(constraint)) {
        for (VrexEdge& edge : getAdjacents(m_objects.find(VrexVertexType::Constraint, constraint->getID()))) {
            const auto& end = edge.getFirst();
            result.push_back(end != nullptr ? end->getGeometryPtr() : nullptr);
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
