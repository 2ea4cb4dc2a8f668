#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "support/GraphSystems.h"

/// A step of a walk: which callback, and the identifiers of its vertex, or of the ends of its edge.
struct GraphStep {
    std::string_view what; ///< A literal.
    std::uint64_t first;
    std::uint64_t second = 0;
    bool operator==(const GraphStep&) const = default;
};

/// What a component holds, by identifier, in the order of insertion.
struct GraphPiece {
    std::vector<std::uint64_t> geometries;
    std::vector<std::uint64_t> constraints;
    bool operator==(const GraphPiece&) const = default;
};

/// A graph and its walks as one writes them down first: nested calls, ordered maps, a list of edges a vertex.
/// Identifiers of a system are unique.
class GraphModel {
public:
    using Geometry = std::shared_ptr<VrexBaseGeometry>;
    using Constraint = std::shared_ptr<VrexBaseConstraint>;
    struct Vertex {
        Geometry geometry;
        Constraint constraint;
        std::vector<std::pair<std::uint64_t, std::uint64_t>> edges;
    };

    explicit GraphModel(const GraphSystem& system) {
        for (const Geometry& geometry : system.geometries) {
            enter(geometry->getID(), {geometry, nullptr, {}});
        }
        for (const Geometry& geometry : system.geometries) {
            for (const Geometry& part : geometry->getGeometries()) {
                addEdge(part, geometry);
            }
        }
        for (const Constraint& constraint : system.constraints) {
            if (!constraint->isCompleteFixed()) {
                enter(constraint->getID(), {nullptr, constraint, {}});
            }
        }
        for (const Constraint& constraint : system.constraints) {
            if (!constraint->isCompleteFixed()) {
                joinArguments(constraint);
            }
        }
        for (const Constraint& constraint : system.constraints) {
            if (constraint->isCompleteFixed()) {
                const Geometry geometry = constraint->getGeometries()[0];
                if (fixed.count(geometry->getID()) == 0 && !geometry->isPattern()) {
                    fixed[geometry->getID()] = constraint;
                } else {
                    addVertex(constraint);
                }
            }
        }
    }

    std::vector<std::uint64_t> order; ///< Identifiers by vertex index.
    std::map<std::uint64_t, Vertex> vertices;
    std::map<std::uint64_t, Constraint> fixed;
    std::size_t edgeCount = 0;

private:
    void enter(std::uint64_t id, Vertex vertex) {
        order.push_back(id);
        vertices[id] = std::move(vertex);
    }
    void addVertex(const Geometry& geometry) {
        const std::uint64_t id = geometry->getID();
        if (vertices.count(id) != 0) {
            return;
        }
        enter(id, {geometry, nullptr, {}});
        if (fixed.count(id) != 0) {
            addVertex(fixed[id]);
        }
    }
    void addVertex(const Constraint& constraint) {
        if (vertices.count(constraint->getID()) != 0) {
            return;
        }
        enter(constraint->getID(), {nullptr, constraint, {}});
        joinArguments(constraint);
    }
    void joinArguments(const Constraint& constraint) {
        for (const Geometry& geometry : constraint->getGeometries()) {
            if (geometry != nullptr) {
                addEdge(geometry, constraint);
            }
        }
        for (const Constraint& dependency : constraint->getConstraints()) {
            if (dependency != nullptr) {
                addEdge(dependency, constraint);
            }
        }
    }
    template <class First, class Second>
    void addEdge(const First& first, const Second& second) {
        ++edgeCount;
        addVertex(first);
        addVertex(second);
        const std::pair edge(first->getID(), second->getID());
        vertices[edge.first].edges.push_back(edge);
        vertices[edge.second].edges.push_back(edge);
    }
};

/// A walk over a `GraphModel` that gathers components and notes every step, up to step `stopAt`.
class GraphModelWalk {
public:
    GraphModelWalk(const GraphModel& model, bool isDepthFirst, std::size_t stopAt)
        : m_model(model), m_isDepthFirst(isDepthFirst), m_stopAt(stopAt) {
        for (const std::uint64_t id : m_model.order) {
            if (m_isStopped) {
                break;
            }
            m_colors[id] = m_model.fixed.count(id) != 0 ? FIXED : WHITE;
            note("initialize", id);
        }
        for (const bool isConstraint : {true, false}) {
            for (const std::uint64_t id : m_model.order) {
                seed(id, isConstraint);
            }
        }
    }

    const std::vector<GraphStep>& steps() const { return m_steps; }
    const std::vector<GraphPiece>& pieces() const { return m_pieces; }
    /// Of each piece, the geometries that have a fixation and its identifier.
    const std::vector<std::map<std::uint64_t, std::uint64_t>>& fixations() const { return m_fixations; }
    /// By identifier, in the numbers of the colours.
    const std::map<std::uint64_t, int>& colors() const { return m_colors; }

private:
    static constexpr int WHITE = 0, GRAY = 1, BLACK = 2, FIXED = 3, FIXED_VISITED = 4, PART = 5;

    bool isFixed(std::uint64_t id) { return m_colors[id] == FIXED || m_colors[id] == FIXED_VISITED; }
    bool isDone(std::uint64_t id) { return m_colors[id] == GRAY || m_colors[id] == BLACK; }
    void note(std::string_view what, std::uint64_t first, std::uint64_t second = 0) {
        m_steps.push_back({what, first, second});
        m_isStopped = m_isStopped || m_steps.size() == m_stopAt;
    }
    void seed(std::uint64_t id, bool isConstraint) {
        const bool matches = (m_model.vertices.at(id).constraint != nullptr) == isConstraint;
        const bool isOpen = m_colors[id] == WHITE || (!isConstraint && m_colors[id] == FIXED);
        if (m_isStopped || !matches || !isOpen) {
            return;
        }
        m_pieces.emplace_back();
        m_fixations.emplace_back();
        note("start", id);
        m_isDepthFirst ? searchDepthFirst(id) : searchBroadFirst(id);
    }
    void searchDepthFirst(std::uint64_t v) {
        discover(v);
        if (isFixed(v)) {
            return;
        }
        m_colors[v] = GRAY;
        for (const auto& e : m_model.vertices.at(v).edges) {
            if (m_isStopped) {
                return;
            }
            note("examine", e.first, e.second);
            const std::uint64_t w = v == e.first ? e.second : e.first;
            if (!isDone(w) && !m_isStopped) {
                searchDepthFirst(w);
            }
            note("finishEdge", e.first, e.second);
        }
        if (!isFixed(v)) {
            m_colors[v] = BLACK;
        }
        note("finish", v);
    }
    void searchBroadFirst(std::uint64_t v) {
        std::vector<std::uint64_t> queue{v};
        m_colors[v] = GRAY;
        for (std::size_t head = 0; head < queue.size() && !m_isStopped; ++head) {
            const std::uint64_t u = queue[head];
            discover(u);
            if (isFixed(u)) {
                continue;
            }
            m_colors[u] = BLACK;
            for (const auto& e : m_model.vertices.at(u).edges) {
                note("examine", e.first, e.second);
                const std::uint64_t w = u == e.first ? e.second : e.first;
                if (!isDone(w) && !m_isStopped) {
                    queue.push_back(w);
                }
                note("finishEdge", e.first, e.second);
                if (!isFixed(w)) {
                    m_colors[w] = GRAY;
                }
            }
            note("finish", u);
        }
    }
    void discover(std::uint64_t id) {
        const GraphModel::Vertex& vertex = m_model.vertices.at(id);
        if (vertex.constraint != nullptr) {
            takeConstraint(vertex.constraint);
        } else {
            takeGeometry(id);
            if (m_model.fixed.count(id) != 0) {
                takeConstraint(m_model.fixed.at(id));
                m_colors[id] = FIXED_VISITED;
                takeParts(vertex.geometry);
            }
        }
        note("discover", id);
    }
    void takeParts(const GraphModel::Geometry& geometry) {
        for (const auto& part : geometry->getGeometries()) {
            const std::uint64_t id = part->getID();
            takeGeometry(id);
            takeParts(part);
            if (m_colors[id] == WHITE) {
                m_colors[id] = PART;
            } else if (isFixed(id)) {
                m_colors[id] = FIXED_VISITED;
                takeConstraint(m_model.fixed.at(id));
            }
        }
    }
    static bool insert(std::vector<std::uint64_t>& list, std::uint64_t id) {
        const bool isNew = std::find(list.begin(), list.end(), id) == list.end();
        if (isNew) {
            list.push_back(id);
        }
        return isNew;
    }
    void takeGeometry(std::uint64_t id) { insert(m_pieces.back().geometries, id); }
    void takeConstraint(const GraphModel::Constraint& constraint) {
        if (insert(m_pieces.back().constraints, constraint->getID()) && constraint->isCompleteFixed()) {
            const std::uint64_t geometry = constraint->getGeometries()[0]->getID();
            takeGeometry(geometry);
            m_fixations.back()[geometry] = constraint->getID();
        }
    }

    const GraphModel& m_model;
    bool m_isDepthFirst;
    std::size_t m_stopAt;
    bool m_isStopped = false;
    std::vector<GraphStep> m_steps;
    std::vector<GraphPiece> m_pieces;
    std::vector<std::map<std::uint64_t, std::uint64_t>> m_fixations;
    std::map<std::uint64_t, int> m_colors;
};
