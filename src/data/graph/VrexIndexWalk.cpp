#include "data/graph/VrexIndexWalk.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexPrefetch.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexFixedGeometryTaker.h"

bool VrexIndexWalk::isAble(VrexConstraintGraph& graph) {
    if (graph.m_objects.hasRepeatedIDs() || graph.numVertices() != graph.m_objects.size()) {
        return false;
    }
    for (std::uint32_t index = 0; index < graph.vertices().size(); ++index) {
        const VrexVertex* vertex = graph.seenVertex(index);
        if (vertex != nullptr && !graph.isVertexOf(vertex, index)) {
            return false;
        }
    }
    graph.m_edges.layOut(graph.m_objects.size());
    return graph.areAllEdges();
}

VrexIndexWalk::VrexIndexWalk(VrexConstraintGraph& graph, VrexComponentGenerator& generator)
    : m_graph(graph), m_generator(generator) {}

bool VrexIndexWalk::traverse(bool isDepthFirst) {
    const std::size_t componentsBefore = m_generator.m_components.size();
    const auto componentBefore = m_generator.m_currentComponent;
    search(isDepthFirst);
    if (m_isRenumbered) {
        m_generator.m_components.resize(componentsBefore);
        m_generator.m_currentComponent = componentBefore;
    }
    return !m_isRenumbered;
}

void VrexIndexWalk::search(bool isDepthFirst) {
    m_frames.reserve(isDepthFirst ? m_graph.m_objects.size() : 0);
    m_waiting.reserve(m_graph.m_objects.size());
    m_colors.assign(m_graph.m_objects.size(), static_cast<std::uint8_t>(VrexGraphVertexColor::White));
    for (const auto& [id, fixation] : m_graph.getFixedMap()) {
        const std::uint32_t index = m_graph.m_objects.findAny(id);
        if (index != VrexVertexIndex::NONE) {
            setColor(index, VrexGraphVertexColor::FixedUnvisited);
        }
    }
    searchFrom(VrexVertexType::Constraint, isDepthFirst);
    searchFrom(VrexVertexType::Geometry, isDepthFirst);
    for (std::uint32_t index = 0; index < m_colors.size(); ++index) {
        if (color(index) >= VrexGraphVertexColor::FixedUnvisited) { // may be a part that was not met
            noteIdentifier(index);
        }
    }
}

void VrexIndexWalk::searchFrom(VrexVertexType type, bool isDepthFirst) {
    for (std::uint32_t index = 0; index < m_graph.m_objects.size(); ++index) {
        const VrexGraphVertexColor seed = color(index);
        const bool isSeed =
            seed == VrexGraphVertexColor::White ||
            (seed == VrexGraphVertexColor::FixedUnvisited && type == VrexVertexType::Geometry);
        if (!isSeed || m_graph.m_objects.type(index) != type) {
            continue;
        }
        m_generator.startComponent();
        m_isSpecial = false;
        isDepthFirst ? searchDepthFirst(index) : searchBroadFirst(index);
        takeWaiting();
    }
}

void VrexIndexWalk::searchDepthFirst(std::uint32_t seed) {
    const VrexEdgeIndex& edges = m_graph.m_edges;
    const auto enter = [&](std::uint32_t index) {
        if (discover(index, isFixedColor(color(index)))) {
            setColor(index, VrexGraphVertexColor::Black);
            m_frames.push_back(edges.range(index));
        }
    };
    enter(seed);
    while (!m_frames.empty()) {
        VrexEdgeIndex::Range& left = m_frames.back();
        if (left.next == left.end) {
            m_frames.pop_back();
            continue;
        }
        const VrexEdgeIndex::Incidence next = edges.incidence(left.next++);
        if (isVisitedColor(color(next.other))) {
            continue;
        }
        if (!passThrough(next)) {
            enter(next.other);
        } else if (!isVisitedColor(color(next.beyond))) {
            enter(next.beyond);
        }
    }
}

bool VrexIndexWalk::passThrough(const VrexEdgeIndex::Incidence& next) {
    if (next.beyond == VrexEdgeIndex::NONE || color(next.other) != VrexGraphVertexColor::White) {
        return false;
    }
    setColor(next.other, VrexGraphVertexColor::Black);
    return discover(next.other, false);
}

void VrexIndexWalk::searchBroadFirst(std::uint32_t seed) {
    const bool isFixedSeed = isFixedColor(color(seed));
    m_queue.assign(1, seed);
    setColor(seed, VrexGraphVertexColor::Gray);
    for (std::size_t head = 0; head < m_queue.size(); ++head) {
        prefetchQueued(head);
        const std::uint32_t index = m_queue[head];
        if (discover(index, isFixedColor(color(index)) || (head == 0 && isFixedSeed))) {
            setColor(index, VrexGraphVertexColor::Black);
            expandBroadFirst(index);
        }
    }
}

void VrexIndexWalk::prefetchQueued(std::size_t head) const {
    const VrexEdgeIndex& edges = m_graph.m_edges;
    if (head + 2 * nsPrefetch::STEPS < m_queue.size()) {
        edges.prefetchRange(m_queue[head + 2 * nsPrefetch::STEPS]);
        edges.prefetchIncidences(m_queue[head + nsPrefetch::STEPS]);
    }
}

void VrexIndexWalk::expandBroadFirst(std::uint32_t index) {
    for (const VrexEdgeIndex::Incidence& incidence : m_graph.m_edges.laidOut(index)) {
        const VrexGraphVertexColor before = color(incidence.other);
        if (!isVisitedColor(before)) {
            m_queue.push_back(incidence.other);
        }
        if (!isFixedColor(before)) {
            setColor(incidence.other, VrexGraphVertexColor::Gray);
        }
    }
}

bool VrexIndexWalk::discover(std::uint32_t index, bool isFixed) {
    if (!isFixed) {
        m_waiting.push_back(index);
        return true;
    }
    takeWaiting();
    m_isSpecial = true;
    noteIdentifier(index);
    const auto& object = m_graph.m_objects.object(index);
    if (m_graph.m_objects.type(index) == VrexVertexType::Constraint) {
        m_generator.m_currentComponent->addConstraint(std::static_pointer_cast<VrexBaseConstraint>(object));
    } else {
        m_generator.m_taker->take(m_graph, *m_generator.m_currentComponent, *this,
                                  std::static_pointer_cast<VrexBaseGeometry>(object));
    }
    return !isFixedColor(color(index));
}

void VrexIndexWalk::takeWaiting() {
    const VrexVertexIndex& objects = m_graph.m_objects;
    VrexConnectedComponent& component = *m_generator.m_currentComponent;
    const auto constraintCount =
        static_cast<std::size_t>(std::count_if(m_waiting.begin(), m_waiting.end(), [&](std::uint32_t index) {
            return objects.type(index) == VrexVertexType::Constraint;
        }));
    component.m_constraints.reserveMore(constraintCount);
    component.m_geometries.reserveMore(m_waiting.size() - constraintCount);
    for (std::size_t i = 0; i < m_waiting.size(); ++i) {
        if (i + 2 * nsPrefetch::STEPS < m_waiting.size()) {
            nsPrefetch::line(&objects.object(m_waiting[i + 2 * nsPrefetch::STEPS]));
            nsPrefetch::object(objects.object(m_waiting[i + nsPrefetch::STEPS]).get());
        }
        take(m_waiting[i]);
    }
    m_waiting.clear();
}

void VrexIndexWalk::noteIdentifier(std::uint32_t index) {
    const VrexVertexIndex& objects = m_graph.m_objects;
    m_isRenumbered = m_isRenumbered || objects.object(index)->getID() != objects.id(index);
}

void VrexIndexWalk::take(std::uint32_t index) {
    VrexConnectedComponent& component = *m_generator.m_currentComponent;
    const auto& object = m_graph.m_objects.object(index);
    noteIdentifier(index);
    if (m_graph.m_objects.type(index) == VrexVertexType::Geometry) {
        auto geometry = std::static_pointer_cast<VrexBaseGeometry>(object);
        m_isSpecial ? component.addGeometry(geometry) : component.m_geometries.append(std::move(geometry));
        return;
    }
    auto constraint = std::static_pointer_cast<VrexBaseConstraint>(object);
    if (m_isSpecial) {
        component.addConstraint(constraint);
        return;
    }
    component.m_constraints.append(constraint);
    if (constraint->isCompleteFixed()) {
        m_isSpecial = true;
        component.addFixation(constraint);
    }
}

VrexGraphFlatColors VrexIndexWalk::takeColors(VrexGraphColorMap& others) {
    others = std::move(m_colorsOfOthers);
    return {m_graph.m_objects.ids(), std::move(m_colors)};
}

VrexGraphVertexColor VrexIndexWalk::vertexColor(std::uint64_t id) {
    const std::uint32_t index = m_graph.m_objects.findAny(id);
    return index != VrexVertexIndex::NONE ? color(index) : m_colorsOfOthers[id];
}

void VrexIndexWalk::setFixGeometryColor(std::uint64_t id, VrexGraphVertexColor color) {
    const std::uint32_t index = m_graph.m_objects.findAny(id);
    if (index != VrexVertexIndex::NONE) {
        setColor(index, color);
    } else {
        m_colorsOfOthers[id] = color;
    }
}
