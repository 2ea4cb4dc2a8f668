#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexGraphVertexColor.h"

/// Hidden: takes fixed geometries into a component, with their fixations and all their parts.
///
/// Parts may be shared and may contain what contains them. What was opened in a component is not opened
/// again in it, which would add nothing: one object is opened once, however many lead to it.
class VrexFixedGeometryTaker {
public:
    using Geometry = std::shared_ptr<VrexBaseGeometry>;

    void startComponent() {
        m_levels.clear(); // left by a geometry that threw
        if (!m_opened.empty()) {
            m_opened = {}; // not cleared: its buckets would be, too, however few they hold next time
        }
    }

    /// A geometry, and what comes with it if it is fixed. `Colors` reads and writes colours by identifier, as
    /// a visitor does.
    template <class Colors>
    void take(const VrexConstraintGraph& graph, VrexConnectedComponent& component, Colors& colors,
              const Geometry& geometry) {
        component.addGeometry(geometry);
        const auto& fixedMap = graph.getFixedMap();
        const auto fixation = geometry != nullptr ? fixedMap.find(geometry->getID()) : fixedMap.end();
        if (fixation != fixedMap.end()) {
            component.addConstraint(fixation->second);
            colors.setFixGeometryColor(geometry->getID(), VrexGraphVertexColor::FixedVisited);
            takeParts(graph, component, colors, geometry);
        }
    }

private:
    /// All parts of `geometry`, at every depth.
    template <class Colors>
    void takeParts(const VrexConstraintGraph& graph, VrexConnectedComponent& component, Colors& colors,
                   const Geometry& geometry) {
        open(geometry);
        while (!m_levels.empty()) {
            Level& level = m_levels.back();
            if (level.next == level.parts.size()) {
                leave(graph, component, colors);
                continue;
            }
            const Geometry part = level.parts[level.next++];
            component.addGeometry(part);
            if (part != nullptr && !open(part)) {
                close(graph, component, colors, part);
            }
        }
    }
    /// Closes the geometry whose parts are all taken, unless it is the one that the walk began with.
    template <class Colors>
    void leave(const VrexConstraintGraph& graph, VrexConnectedComponent& component, Colors& colors) {
        const Geometry done = std::move(m_levels.back().geometry);
        m_levels.pop_back();
        if (!m_levels.empty()) {
            close(graph, component, colors, done);
        }
    }

    /// A geometry whose parts are being taken; sets are nested deeper than a call stack.
    struct Level {
        Geometry geometry;
        std::vector<Geometry> parts;
        std::size_t next = 0;
    };

    bool open(const Geometry& geometry) {
        if (!m_opened.insert(geometry.get()).second) {
            return false;
        }
        m_levels.push_back({geometry, geometry->getGeometries()});
        return true;
    }
    /// Colours a part whose own parts are taken.
    template <class Colors>
    static void close(const VrexConstraintGraph& graph, VrexConnectedComponent& component, Colors& colors,
                      const Geometry& part) {
        const std::uint64_t id = part->getID();
        const VrexGraphVertexColor color = colors.vertexColor(id);
        if (color == VrexGraphVertexColor::White) {
            colors.setFixGeometryColor(id, VrexGraphVertexColor::PartOfFixed);
        } else if (isFixedColor(color)) {
            colors.setFixGeometryColor(id, VrexGraphVertexColor::FixedVisited);
            const auto fixation = graph.getFixedMap().find(id);
            if (fixation != graph.getFixedMap().end()) {
                component.addConstraint(fixation->second);
            }
        }
    }

    std::vector<Level> m_levels;
    std::unordered_set<const VrexBaseGeometry*> m_opened; ///< In the current component.
};
