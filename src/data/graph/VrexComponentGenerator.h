#pragma once

#include <memory>
#include <vector>

#include "data/VrexExport.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexGraphVisitor.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexFixedGeometryTaker;

/// Gathers what one search after the other finds into components.
///
/// A completely fixed geometry belongs to each component that touches it, with its fixation and its parts at
/// every depth. Components accumulate from walk to walk, so a generator is used once.
class VREX_DATA_EXPORT VrexComponentGenerator : public VrexGraphVisitor {
public:
    VrexComponentGenerator();
    VrexComponentGenerator(const VrexComponentGenerator&);
    VrexComponentGenerator& operator=(const VrexComponentGenerator&);
    ~VrexComponentGenerator() override;

    void startVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) override;
    void discoverVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) override;

    /// In the order of their seeds.
    const std::vector<std::shared_ptr<VrexConnectedComponent>>& getComponents() const { return m_components; }

private:
    friend class VrexIndexWalk;

    void startComponent();
    void addGeometry(const VrexConstraintGraph& graph, const std::shared_ptr<VrexBaseGeometry>& geometry);
    void addConstraint(const std::shared_ptr<VrexBaseConstraint>& constraint);

    std::vector<std::shared_ptr<VrexConnectedComponent>> m_components;
    std::shared_ptr<VrexConnectedComponent> m_currentComponent;
    std::unique_ptr<VrexFixedGeometryTaker> m_taker; ///< Of the current component.
};
