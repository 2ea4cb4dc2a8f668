#include "data/graph/VrexGraphTraverser.h"

#include <cstdint>
#include <typeinfo>
#include <unordered_map>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"
#include "data/VrexMemberKeeper.h"
#include "data/graph/VrexBroadFirstSearch.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/graph/VrexGraphTimer.h"
#include "data/graph/VrexGraphVisitor.h"
#include "data/graph/VrexIndexWalk.h"

namespace {

const VrexBaseObject* objectOf(VrexVertex& vertex) {
    if (vertex.getVertexType() == VrexVertexType::Geometry) {
        return vertex.getGeometryPtr().get();
    }
    return vertex.getConstraintPtr().get();
}

/// Says so if two objects of the graph have one identifier; the same object twice is no clash.
void adviseOnSharedIDs(const VrexConstraintGraph& graph) {
    std::unordered_map<std::uint64_t, const VrexBaseObject*> objects;
    for (std::uint64_t index = 0; index < graph.numVertices(); ++index) {
        const std::shared_ptr<VrexVertex>& vertex = graph[index];
        if (vertex == nullptr) {
            continue;
        }
        const VrexBaseObject* object = objectOf(*vertex);
        if (objects.try_emplace(vertex->getID(), object).first->second != object) {
            VREX_LOG(nsLog::REFUSAL,
                     "Objects of one graph should have identifiers of their own, id : %lld is shared.",
                     static_cast<long long>(vertex->getID()));
            return;
        }
    }
}

} // namespace

VrexGraphTraverser::VrexGraphTraverser() = default;
VrexGraphTraverser::VrexGraphTraverser(const VrexGraphTraverser&) = default;
VrexGraphTraverser& VrexGraphTraverser::operator=(const VrexGraphTraverser&) = default;
VrexGraphTraverser::~VrexGraphTraverser() = default;

void VrexGraphTraverser::traverse(VrexConstraintGraph& graph, VrexGraphVisitor& visitor) {
    const VrexGraphTimer timer("VrexGraphTraverser::traverse");
    m_colorMap.clear();
    m_flatColors = {};
    if (!m_isCalling && traverseByIndex(graph, visitor)) {
        return;
    }
    const VrexMemberKeeper kept(m_isCalling);
    m_isCalling = true;
    initialize(graph, visitor);
    visitor.setColorMap(&m_colorMap);
    searchFrom(VrexVertexType::Constraint, graph, visitor);
    searchFrom(VrexVertexType::Geometry, graph, visitor);
}

void VrexGraphTraverser::initialize(VrexConstraintGraph& graph, VrexGraphVisitor& visitor) {
    bool hasRepeated = false;
    for (std::uint64_t index = 0; index < graph.numVertices() && !visitor.isStopped(); ++index) {
        std::shared_ptr<VrexVertex> vertex = graph[index];
        if (vertex == nullptr) {
            continue;
        }
        const std::uint64_t id = vertex->getID();
        const bool isFixed = graph.getFixedMap().contains(id);
        const auto color = isFixed ? VrexGraphVertexColor::FixedUnvisited : VrexGraphVertexColor::White;
        hasRepeated = !m_colorMap.insert_or_assign(id, color).second || hasRepeated;
        visitor.initializeVertex(graph, vertex);
    }
    if (hasRepeated) {
        adviseOnSharedIDs(graph);
    }
}

void VrexGraphTraverser::searchFrom(VrexVertexType type, VrexConstraintGraph& graph,
                                    VrexGraphVisitor& visitor) {
    for (std::uint64_t index = 0; index < graph.numVertices() && !visitor.isStopped(); ++index) {
        std::shared_ptr<VrexVertex> vertex = graph[index];
        if (vertex == nullptr || vertex->getVertexType() != type) {
            continue;
        }
        const VrexGraphVertexColor color = m_colorMap[vertex->getID()];
        const bool isFixedSeed =
            type == VrexVertexType::Geometry && color == VrexGraphVertexColor::FixedUnvisited;
        if (color == VrexGraphVertexColor::White || isFixedSeed) {
            visitor.startVertex(graph, vertex);
            search(graph, vertex, visitor);
        }
    }
}

bool VrexGraphTraverser::traverseByIndex(VrexConstraintGraph& graph, VrexGraphVisitor& visitor) {
    const VrexGraphTraverser& self = *this;
    const bool isDepthFirst = typeid(self) == typeid(VrexDepthFirstSearch);
    if (visitor.isStopped() || typeid(visitor) != typeid(VrexComponentGenerator) ||
        (!isDepthFirst && typeid(self) != typeid(VrexBroadFirstSearch)) || !VrexIndexWalk::isAble(graph)) {
        return false;
    }
    VrexIndexWalk walk(graph, static_cast<VrexComponentGenerator&>(visitor));
    if (!walk.traverse(isDepthFirst)) {
        return false;
    }
    m_flatColors = walk.takeColors(m_colorMap);
    visitor.setColorMap(&m_colorMap);
    visitor.m_flatColors = &m_flatColors;
    return true;
}
