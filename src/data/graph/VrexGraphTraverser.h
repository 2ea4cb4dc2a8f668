#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexGraphColorMap.h"
#include "data/graph/VrexVertex.h"
#include "data/graph/VrexVertexType.h"

class VrexConstraintGraph;
class VrexGraphVisitor;

/// Walks a constraint graph and calls a visitor on the way.
///
/// Colours are by identifier alone. Objects that share one share its colour, so that what is met later is
/// taken for visited; a walk that meets such a clash advises against it in the log.
class VREX_DATA_EXPORT VrexGraphTraverser {
public:
    VrexGraphTraverser();
    VrexGraphTraverser(const VrexGraphTraverser&);
    VrexGraphTraverser& operator=(const VrexGraphTraverser&);
    virtual ~VrexGraphTraverser();

    /// Visits what is reached from `vertex`, of null nothing. Throws what `getAdjacents` of the graph throws.
    virtual void search(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex,
                        VrexGraphVisitor& visitor) = 0;
    /// Colours all vertices anew, then starts a search from each constraint that none has reached, and then
    /// from each geometry that none has reached, in the order of the vertices, until the visitor stops.
    void traverse(VrexConstraintGraph& graph, VrexGraphVisitor& visitor);

protected:
    /// For searches, also those without `traverse`, which go on from the colours that were left.
    VrexGraphColorMap& colorMap() {
        m_flatColors.moveInto(m_colorMap);
        return m_colorMap;
    }

private:
    void initialize(VrexConstraintGraph& graph, VrexGraphVisitor& visitor);
    /// Searches from the vertices of one kind.
    void searchFrom(VrexVertexType type, VrexConstraintGraph& graph, VrexGraphVisitor& visitor);
    /// The same walk on indices, where the library knows both what is called and what it finds; false, and
    /// nothing done, elsewhere.
    bool traverseByIndex(VrexConstraintGraph& graph, VrexGraphVisitor& visitor);

    VrexGraphColorMap m_colorMap;
    VrexGraphFlatColors m_flatColors;
    bool m_isCalling = false; ///< A walk by callbacks is on, which reads colours by identifier.
};
