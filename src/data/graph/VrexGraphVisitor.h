#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexEdge.h"
#include "data/graph/VrexGraphColorMap.h"
#include "data/graph/VrexGraphVertexColor.h"
#include "data/graph/VrexVertex.h"

class VrexConstraintGraph;

/// What happens at the steps of a walk; all operations do nothing by default.
///
/// An operation may add to the graph. One may clear it: the walk then ends, or throws as `getAdjacents` does.
/// The colours are those of the traverser, which has to outlive every use of them here.
class VREX_DATA_EXPORT VrexGraphVisitor {
public:
    /// A vertex from which a search is about to start.
    virtual void startVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex);
    /// Each vertex once, before the first search; there are no colours yet.
    virtual void initializeVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex);
    /// Each time the walk turns to a vertex: once, but for fixed geometries.
    virtual void discoverVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex);
    virtual void examineEdge(VrexConstraintGraph& graph, VrexEdge& edge);
    /// Not called for a fixed geometry.
    virtual void finishVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex);
    virtual void finishEdge(VrexConstraintGraph& graph, VrexEdge& edge);
    virtual ~VrexGraphVisitor();

    VrexGraphVisitor();
    VrexGraphVisitor(const VrexGraphVisitor&);
    VrexGraphVisitor& operator=(const VrexGraphVisitor&);

    bool isStopped() const { return m_stopped; }
    /// The table to read and write colours in, which is not owned.
    void setColorMap(VrexGraphColorMap* colorMap);
    /// `White` for an identifier that has none yet, which enters the table, and where there is no table.
    VrexGraphVertexColor vertexColor(std::uint64_t id);
    /// Does nothing where there is no table.
    void setFixGeometryColor(std::uint64_t id, VrexGraphVertexColor color);

protected:
    /// Ends the walk at its next test. Nothing takes it back.
    void stop() { m_stopped = true; }

private:
    friend class VrexGraphTraverser;

    VrexGraphColorMap* tableOf();

    bool m_stopped = false;
    VrexGraphColorMap* m_colorMap = nullptr;
    VrexGraphFlatColors* m_flatColors = nullptr; ///< Not in the table yet.
};
