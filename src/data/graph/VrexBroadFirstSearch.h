#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexGraphTraverser.h"

/// The neighbours of a vertex before theirs, in the order in which they were met.
class VREX_DATA_EXPORT VrexBroadFirstSearch : public VrexGraphTraverser {
public:
    void search(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex,
                VrexGraphVisitor& visitor) override;
};
