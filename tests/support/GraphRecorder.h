#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "support/GraphModel.h"

/// Gathers components and notes every step; stops the walk in the callback of step `stopAt`.
class GraphRecorder : public VrexComponentGenerator {
public:
    explicit GraphRecorder(std::size_t stopAt = 0) : m_stopAt(stopAt) {}

    void startVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) override {
        VrexComponentGenerator::startVertex(graph, vertex);
        note({"start", vertex->getID()});
    }
    void initializeVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>& vertex) override {
        note({"initialize", vertex->getID()});
    }
    void discoverVertex(VrexConstraintGraph& graph, std::shared_ptr<VrexVertex>& vertex) override {
        VrexComponentGenerator::discoverVertex(graph, vertex);
        note({"discover", vertex->getID()});
    }
    void examineEdge(VrexConstraintGraph&, VrexEdge& edge) override {
        note({"examine", edge.getFirst()->getID(), edge.getSecond()->getID()});
    }
    void finishVertex(VrexConstraintGraph&, std::shared_ptr<VrexVertex>& vertex) override {
        note({"finish", vertex->getID()});
    }
    void finishEdge(VrexConstraintGraph&, VrexEdge& edge) override {
        note({"finishEdge", edge.getFirst()->getID(), edge.getSecond()->getID()});
    }

    const std::vector<GraphStep>& steps() const { return m_steps; }

private:
    void note(const GraphStep& step) {
        m_steps.push_back(step);
        if (m_steps.size() == m_stopAt) {
            stop();
        }
    }

    std::size_t m_stopAt;
    std::vector<GraphStep> m_steps;
};

namespace nsGraphPieces {

template <class Object>
std::vector<std::uint64_t> idsOf(const std::vector<std::shared_ptr<Object>>& objects) {
    std::vector<std::uint64_t> ids;
    for (const auto& object : objects) {
        ids.push_back(object != nullptr ? object->getID() : 0);
    }
    return ids;
}

/// What the components of a generator hold.
inline std::vector<GraphPiece> piecesOf(const VrexComponentGenerator& generator) {
    std::vector<GraphPiece> pieces;
    for (const auto& component : generator.getComponents()) {
        pieces.push_back({idsOf(component->getGeometries()), idsOf(component->getConstraints())});
    }
    return pieces;
}

/// Of each component, the identifiers of the geometries that have a fixation, and of that.
inline std::vector<std::map<std::uint64_t, std::uint64_t>>
fixationsOf(const VrexComponentGenerator& generator) {
    std::vector<std::map<std::uint64_t, std::uint64_t>> result;
    for (const auto& component : generator.getComponents()) {
        auto& fixations = result.emplace_back();
        for (const auto& geometry : component->getGeometries()) {
            if (const auto fixation = component->getCompleteFixation(geometry)) {
                fixations[geometry->getID()] = fixation->getID();
            }
        }
    }
    return result;
}

} // namespace nsGraphPieces
