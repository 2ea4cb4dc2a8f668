#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/graph/VrexGraphTraverser.h"

/// As far from the start as possible before turning back, each vertex when it is met.
class VREX_DATA_EXPORT VrexDepthFirstSearch : public VrexGraphTraverser {
public:
    void search(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex,
                VrexGraphVisitor& visitor) override;
};
