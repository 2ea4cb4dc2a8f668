#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "data/VrexExport.h"
#include "data/graph/VrexAdjacentList.h"
#include "data/graph/VrexBlockPool.h"
#include "data/graph/VrexEdge.h"
#include "data/graph/VrexEdgeIndex.h"
#include "data/graph/VrexVertex.h"
#include "data/graph/VrexVertexIndex.h"

class VrexBaseConstraint;
class VrexBaseGeometry;

/// The graph of a system: its geometries and constraints are vertices; edges join a geometry and a constraint
/// that binds it, a geometry and its part, a constraint and what it depends on.
///
/// The first constraint that holds a geometry completely gets no vertex: it stands in the fixed map. It is a
/// vertex where the geometry is a pattern or fixed already. Nulls in lists are passed over.
///
/// The graph is not kept in step with later changes of the objects. Identifiers should be unique across
/// geometries, variables, constraints and equations of one graph; of several objects of one kind with one
/// identifier the latest is found, though each has its vertex. Not even reading is for several threads.
class VREX_DATA_EXPORT VrexConstraintGraph : public VrexVertexAdjacency {
public:
    using FixedMap = std::unordered_map<std::uint64_t, std::shared_ptr<VrexBaseConstraint>>;

    VrexConstraintGraph();
    /// Geometry k of the list is vertex k; then come parts that are not listed, constraints, and what these
    /// refer to without its being listed.
    VrexConstraintGraph(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                        const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints);
    VrexConstraintGraph(const VrexConstraintGraph&);
    VrexConstraintGraph(VrexConstraintGraph&&) noexcept;
    VrexConstraintGraph& operator=(const VrexConstraintGraph&);
    VrexConstraintGraph& operator=(VrexConstraintGraph&&) noexcept;
    ~VrexConstraintGraph() override;

    using VrexVertexAdjacency::addEdge;
    using VrexVertexAdjacency::addVertex;
    using VrexVertexAdjacency::getAdjacents;

    /// Adds the wrapped object, in a vertex of the graph's own.
    void addVertex(const std::shared_ptr<VrexVertex>& vertex) override;
    /// Does nothing for a geometry that is there already. Its fixation, if it has one in the fixed map,
    /// becomes a vertex too.
    void addVertex(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// Does nothing for a constraint that is there already. What it binds and depends on is added and joined.
    void addVertex(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// Joins the geometry of the first end and the constraint of the second.
    void addEdge(const VrexEdge& edge);
    /// These add what is not there yet, and one more edge each time. A null is told in the log, and no edge
    /// is added. Kept: it is counted all the same.
    void addEdge(const std::shared_ptr<VrexBaseGeometry>& geometry,
                 const std::shared_ptr<VrexBaseConstraint>& constraint);
    void addEdge(const std::shared_ptr<VrexBaseGeometry>& first,
                 const std::shared_ptr<VrexBaseGeometry>& second);
    void addEdge(const std::shared_ptr<VrexBaseConstraint>& first,
                 const std::shared_ptr<VrexBaseConstraint>& second);
    /// Kept: which geometry owns a part is not forgotten.
    void clear() override;

    bool hasGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry) const;
    bool hasConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint) const;
    /// All ones for an object without a vertex.
    std::uint64_t getIndex(const std::shared_ptr<VrexVertex>& vertex);
    /// Throws `std::out_of_range` "invalid unordered_map<K, T> key" for an object without a vertex. A vertex
    /// that is neither of the two kinds is told in the log and has no edges.
    std::vector<VrexEdge>& getAdjacents(const std::shared_ptr<VrexVertex>& vertex);
    /// The constraint at the second end of each edge, in order: null where there is a geometry.
    std::vector<std::shared_ptr<VrexBaseConstraint>>
    getAdjacentConstraints(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// The geometry at the first end of each edge, in order: null where there is a constraint.
    std::vector<std::shared_ptr<VrexBaseGeometry>>
    getAdjacentGeometries(const std::shared_ptr<VrexBaseConstraint>& constraint);
    /// All geometries with a vertex, rising by identifier.
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries();
    /// All constraints with a vertex, rising by identifier; not those that only stand in the fixed map.
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints();
    /// From the identifier of a fixed geometry to the constraint that holds it completely.
    const FixedMap& getFixedMap() const { return m_fixedMap; }

private:
    friend class VrexIndexWalk;

    class Additions;

    std::shared_ptr<VrexVertex> makeVertex(std::uint64_t index) const override;
    std::vector<VrexEdge> makeEdges(std::uint64_t index) const override;

    void constructGraph(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                        const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints);
    void addGeometries(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries);
    void addParts(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// Those that hold their geometry completely are left aside, and returned.
    std::vector<std::shared_ptr<VrexBaseConstraint>>
    addConstraints(const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints);
    /// Joins the constraint at `index` to what it binds where all of that is there already, and nothing else
    /// is to be joined; false, and nothing done, elsewhere.
    bool joinListed(VrexBaseConstraint& constraint, std::uint32_t index);
    void joinArguments(const std::shared_ptr<VrexBaseConstraint>& constraint);
    void setFixedGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry,
                          const std::shared_ptr<VrexBaseConstraint>& constraint);
    static bool isSkipGeometry(const std::shared_ptr<VrexBaseGeometry>& geometry);
    /// Whether a geometry with this identifier is a part of another one.
    bool isRelated(std::uint64_t id) const;

    template <class First, class Second>
    void joinOrAdd(const std::shared_ptr<First>& first, const std::shared_ptr<Second>& second);
    std::uint32_t indexOf(VrexVertex* vertex) const;
    /// The vertex at `index` if somebody looked at it.
    VrexVertex* seenVertex(std::uint32_t index) const;
    void appendObject(VrexVertexType type, std::shared_ptr<VrexBaseObject> object);
    /// An edge between two objects; false, and nothing done, where one is missing.
    template <class First, class Second>
    bool join(const std::shared_ptr<First>& first, const std::shared_ptr<Second>& second);
    /// Appends the latest edge to those lists of its ends that somebody looked at.
    void showLatestEdge();
    VrexEdge makeEdge(std::uint32_t edge) const;
    /// Fetches what makes, or unmakes, the edges of the vertex at `index`.
    void prefetchEdges(std::uint64_t index) const;
    /// Empties the lists that were looked at.
    void dropEdges();
    /// The edge as it already stands in the list of its other end, null where it does not.
    const VrexEdge* seenEdge(const VrexEdgeIndex::Incidence& incidence) const;
    /// Whether a vertex that was handed out still wraps the object at `index`, and nothing but that.
    bool isVertexOf(const VrexVertex* vertex, std::uint32_t index) const;
    bool isEdgeOf(const VrexEdge& edge, std::uint32_t number) const;
    /// Whether a list that was handed out still holds the edges at `index`, and nothing but these.
    bool areEdgesOf(const std::vector<VrexEdge>& edges, std::uint32_t index) const;
    /// Whether that is so for each list.
    bool areAllEdges() const;

    VrexVertexIndex m_objects;
    mutable VrexEdgeIndex m_edges;
    mutable VrexBlockPool m_edgeVertices; ///< That were looked at.
    FixedMap m_fixedMap;
    std::unordered_map<std::uint64_t, std::shared_ptr<VrexVertex>> m_relatedMap;
};
