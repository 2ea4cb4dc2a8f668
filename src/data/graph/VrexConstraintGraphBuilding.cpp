// How a graph comes to its vertices and edges.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <variant>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"
#include "data/VrexPrefetch.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexGraphTimer.h"

namespace {

using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

/// Fetches the constraint at `place`, if there is one.
void prefetchConstraint(const Constraints& constraints, std::size_t place) {
    constexpr std::size_t ARGUMENTS = 160; // of the library's own constraints
    if (place < constraints.size() && constraints[place] != nullptr) {
        nsPrefetch::object(constraints[place].get());
        nsPrefetch::line(reinterpret_cast<const char*>(constraints[place].get()) + ARGUMENTS);
    }
}

/// Fetches the list of what it binds.
void prefetchArguments(const Constraints& constraints, std::size_t place) {
    if (place < constraints.size() && constraints[place] != nullptr) {
        nsPrefetch::line(constraints[place]->getGeometries().data());
    }
}

/// Calls `fetch` with each object that it binds.
template <class Fetch>
void prefetchBound(const Constraints& constraints, std::size_t place, const Fetch& fetch) {
    if (place >= constraints.size() || constraints[place] == nullptr) {
        return;
    }
    for (const auto& geometry : constraints[place]->getGeometries()) {
        if (geometry != nullptr) {
            fetch(*geometry);
        }
    }
}

/// Fetches what a pass over `constraints` will ask for behind the one at `index`: it, the list of what it
/// binds, that, and where `objects` has it.
void prefetch(const Constraints& constraints, std::size_t index, const VrexVertexIndex& objects) {
    constexpr std::size_t STEPS = nsPrefetch::STEPS;
    prefetchConstraint(constraints, index + 4 * STEPS);
    prefetchArguments(constraints, index + 3 * STEPS);
    // These lie anywhere: many are fetched in one step, since their addresses are then translated side by
    // side.
    for (std::size_t place = index; index % STEPS == 0 && place < index + STEPS; ++place) {
        prefetchBound(constraints, place + 2 * STEPS,
                      [](const VrexBaseGeometry& geometry) { nsPrefetch::object(&geometry); });
    }
    prefetchBound(constraints, index + STEPS,
                  [&](const VrexBaseGeometry& geometry) { objects.prefetchPlace(geometry.getID()); });
    prefetchBound(constraints, index + STEPS / 2,
                  [&](const VrexBaseGeometry& geometry) { objects.prefetchObject(geometry.getID()); });
}

VrexVertexType typeOf(const VrexBaseGeometry&) { return VrexVertexType::Geometry; }
VrexVertexType typeOf(const VrexBaseConstraint&) { return VrexVertexType::Constraint; }

} // namespace

/// Additions that lead to others, in the order in which a recursion would do them, and without one: chains of
/// constraints that depend on each other may have any length.
class VrexConstraintGraph::Additions {
public:
    using Geometry = std::shared_ptr<VrexBaseGeometry>;
    using Constraint = std::shared_ptr<VrexBaseConstraint>;

    explicit Additions(VrexConstraintGraph& graph) : m_graph(graph) {}

    template <class Object>
    void addVertex(const Object& object) {
        m_waiting.emplace_back(Vertex<Object>{object});
        run();
    }
    template <class First, class Second>
    void addEdge(const First& first, const Second& second) {
        m_waiting.emplace_back(Edge<First, Second>{first, second});
        run();
    }

private:
    template <class Object>
    struct Vertex {
        Object object;
    };
    template <class First, class Second>
    struct Edge {
        First first;
        Second second;
        bool isCounted = false;
    };
    using Step = std::variant<Vertex<Geometry>, Vertex<Constraint>, Edge<Geometry, Constraint>,
                              Edge<Geometry, Geometry>, Edge<Constraint, Constraint>>;

    void run() {
        while (!m_waiting.empty()) {
            const Step step = std::move(m_waiting.back());
            m_waiting.pop_back();
            std::visit([this](const auto& what) { take(what); }, step);
        }
    }
    void take(const Vertex<Geometry>& vertex) {
        if (m_graph.hasGeometry(vertex.object)) {
            return;
        }
        m_graph.appendObject(VrexVertexType::Geometry, vertex.object);
        const auto fixation = m_graph.m_fixedMap.find(vertex.object->getID());
        if (fixation != m_graph.m_fixedMap.end()) {
            m_waiting.emplace_back(Vertex<Constraint>{fixation->second});
        }
    }
    void take(const Vertex<Constraint>& vertex) {
        if (m_graph.hasConstraint(vertex.object)) {
            return;
        }
        m_graph.appendObject(VrexVertexType::Constraint, vertex.object);
        const std::size_t start = m_waiting.size();
        for (const Geometry& geometry : vertex.object->getGeometries()) {
            pushEdge(geometry, vertex.object);
        }
        for (const Constraint& dependency : vertex.object->getConstraints()) {
            pushEdge(dependency, vertex.object);
        }
        std::reverse(m_waiting.begin() + static_cast<std::ptrdiff_t>(start), m_waiting.end());
    }
    template <class First, class Second>
    void pushEdge(const First& first, const Second& second) {
        if (first != nullptr) {
            m_waiting.emplace_back(Edge<First, Second>{first, second});
        }
    }
    /// The first time counts the edge and asks for its ends, the second time joins them.
    template <class First, class Second>
    void take(const Edge<First, Second>& edge) {
        if (!edge.isCounted) {
            m_graph.countEdges(1);
            m_waiting.emplace_back(Edge<First, Second>{edge.first, edge.second, true});
            m_waiting.emplace_back(Vertex<Second>{edge.second});
            m_waiting.emplace_back(Vertex<First>{edge.first});
            return;
        }
        m_graph.join(edge.first, edge.second);
    }

    VrexConstraintGraph& m_graph;
    std::vector<Step> m_waiting;
};

VrexConstraintGraph::VrexConstraintGraph(
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    constructGraph(geometries, constraints);
}

void VrexConstraintGraph::constructGraph(
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    const VrexGraphTimer timer("VrexConstraintGraph::constructGraph");
    m_objects.reserve(geometries.size() + constraints.size());
    m_edges.reserve(2 * constraints.size());
    addGeometries(geometries);
    for (const auto& fixation : addConstraints(constraints)) {
        const auto& arguments = fixation->getGeometries();
        if (arguments.empty() || arguments.front() == nullptr) {
            VREX_LOG(nsLog::FAILURE, "A complete fixation without geometry is left out, id : %lld.",
                     static_cast<long long>(fixation->getID()));
            continue;
        }
        setFixedGeometry(arguments.front(), fixation);
    }
}

void VrexConstraintGraph::addGeometries(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries) {
    std::vector<const std::shared_ptr<VrexBaseGeometry>*> owners;
    for (std::size_t i = 0; i < geometries.size(); ++i) {
        if (i + 2 * nsPrefetch::STEPS < geometries.size()) {
            nsPrefetch::object(geometries[i + 2 * nsPrefetch::STEPS].get());
        }
        const auto& geometry = geometries[i];
        if (geometry == nullptr) {
            continue;
        }
        appendObject(VrexVertexType::Geometry, geometry);
        if (!geometry->getGeometries().empty()) {
            owners.push_back(&geometry);
        }
    }
    for (const auto* owner : owners) {
        addParts(*owner);
    }
}

void VrexConstraintGraph::addParts(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    for (const auto& part : geometry->getGeometries()) {
        if (part != nullptr) {
            addEdge(part, geometry);
            const std::uint32_t owner = m_objects.find(VrexVertexType::Geometry, geometry->getID());
            m_relatedMap.try_emplace(part->getID(), (*this)[owner]);
        }
    }
}

std::vector<std::shared_ptr<VrexBaseConstraint>>
VrexConstraintGraph::addConstraints(const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    std::vector<std::shared_ptr<VrexBaseConstraint>> fixations;
    // Mostly all that is bound is listed: then constraints are joined as they come, each looked at once. From
    // the first one on that brings a vertex of its own the others wait, since theirs come first.
    const std::uint32_t edges = m_edges.size();
    std::size_t joined = adjacency().empty() ? constraints.size() : 0;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
        prefetch(constraints, i, m_objects);
        const auto& constraint = constraints[i];
        if (constraint == nullptr) {
            continue;
        }
        if (constraint->isCompleteFixed()) {
            fixations.push_back(constraint);
            continue;
        }
        appendObject(VrexVertexType::Constraint, constraint);
        if (i < joined && !joinListed(*constraint, m_objects.size() - 1)) {
            joined = i;
        }
    }
    if (m_objects.hasRepeatedIDs() && joined != 0) { // edges belong to the latest of them
        m_edges.truncate(edges);
        joined = 0;
    }
    countEdges(m_edges.size() - edges);
    for (std::size_t i = joined; i < constraints.size(); ++i) {
        if (constraints[i] != nullptr && !constraints[i]->isCompleteFixed()) {
            joinArguments(constraints[i]);
        }
    }
    return fixations;
}

bool VrexConstraintGraph::joinListed(VrexBaseConstraint& constraint, std::uint32_t index) {
    const std::uint32_t edges = m_edges.size();
    for (const auto& geometry : constraint.getGeometries()) {
        if (geometry == nullptr) {
            continue;
        }
        const std::uint32_t other = m_objects.findItself(VrexVertexType::Geometry, *geometry);
        if (other == VrexVertexIndex::NONE) {
            m_edges.truncate(edges);
            return false;
        }
        m_edges.add(other, index);
    }
    if (!constraint.getConstraints().empty()) {
        m_edges.truncate(edges);
        return false;
    }
    return true;
}

void VrexConstraintGraph::joinArguments(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    for (const auto& geometry : constraint->getGeometries()) {
        if (geometry != nullptr) {
            addEdge(geometry, constraint);
        }
    }
    for (const auto& dependency : constraint->getConstraints()) {
        if (dependency != nullptr) {
            addEdge(dependency, constraint);
        }
    }
}

void VrexConstraintGraph::setFixedGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry,
                                           const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (isSkipGeometry(geometry) || !m_fixedMap.try_emplace(geometry->getID(), constraint).second) {
        addVertex(constraint);
    }
}

bool VrexConstraintGraph::isSkipGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    return geometry->isPattern();
}

void VrexConstraintGraph::appendObject(VrexVertexType type, std::shared_ptr<VrexBaseObject> object) {
    m_objects.add(type, std::move(object));
    countVertex();
}

template <class First, class Second>
bool VrexConstraintGraph::join(const std::shared_ptr<First>& first, const std::shared_ptr<Second>& second) {
    const std::uint32_t from = m_objects.find(typeOf(*first), first->getID());
    const std::uint32_t to = m_objects.find(typeOf(*second), second->getID());
    if (from == VrexVertexIndex::NONE || to == VrexVertexIndex::NONE) {
        return false;
    }
    if (m_objects.object(from) == first && m_objects.object(to) == second) {
        m_edges.add(from, to);
        if (!adjacency().empty()) {
            showLatestEdge();
        }
    } else { // another object with the identifier of one that is there: its edges are its own
        append(from, to, VrexEdge(first, second));
    }
    return true;
}

void VrexConstraintGraph::showLatestEdge() {
    const std::uint32_t number = m_edges.size() - 1;
    const VrexEdgeIndex::Ends ends = m_edges.ends(number);
    const VrexEdge edge = makeEdge(number);
    for (const std::uint32_t end : {ends.first, ends.second}) {
        if (std::vector<VrexEdge>* list = seenList(end)) {
            list->push_back(edge);
        }
    }
}

void VrexConstraintGraph::addVertex(const std::shared_ptr<VrexVertex>& vertex) {
    if (vertex == nullptr) {
        return;
    }
    if (vertex->getVertexType() == VrexVertexType::Geometry) {
        addVertex(vertex->getGeometryPtr());
    } else if (vertex->getVertexType() == VrexVertexType::Constraint) {
        addVertex(vertex->getConstraintPtr());
    }
}

void VrexConstraintGraph::addVertex(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    if (geometry != nullptr) {
        Additions(*this).addVertex(geometry);
    }
}

void VrexConstraintGraph::addVertex(const std::shared_ptr<VrexBaseConstraint>& constraint) {
    if (constraint != nullptr) {
        Additions(*this).addVertex(constraint);
    }
}

template <class First, class Second>
void VrexConstraintGraph::joinOrAdd(const std::shared_ptr<First>& first,
                                    const std::shared_ptr<Second>& second) {
    if (first == nullptr || second == nullptr) {
        countEdges(1);
        VREX_LOG(nsLog::FAILURE, "An edge lacks an end and is not added.");
    } else if (join(first, second)) {
        countEdges(1);
    } else {
        Additions(*this).addEdge(first, second);
    }
}

void VrexConstraintGraph::addEdge(const VrexEdge& edge) {
    const auto& first = edge.getFirst();
    const auto& second = edge.getSecond();
    addEdge(first != nullptr ? first->getGeometryPtr() : nullptr,
            second != nullptr ? second->getConstraintPtr() : nullptr);
}

void VrexConstraintGraph::addEdge(const std::shared_ptr<VrexBaseGeometry>& geometry,
                                  const std::shared_ptr<VrexBaseConstraint>& constraint) {
    joinOrAdd(geometry, constraint);
}

void VrexConstraintGraph::addEdge(const std::shared_ptr<VrexBaseGeometry>& first,
                                  const std::shared_ptr<VrexBaseGeometry>& second) {
    joinOrAdd(first, second);
}

void VrexConstraintGraph::addEdge(const std::shared_ptr<VrexBaseConstraint>& first,
                                  const std::shared_ptr<VrexBaseConstraint>& second) {
    joinOrAdd(first, second);
}
