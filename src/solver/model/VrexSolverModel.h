#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexVariable.h"
#include "solver/system/VrexSolverShape.h"
#include "solver/system/VrexSolverSystem.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexDimension3D;
class VrexGeometryVariable;

/// A component in the solver's terms: which entities move as one, what may move, and where each stands on
/// its body.
///
/// A rigid set with members at every depth and connectors is one body; sets that share a member are one
/// together. What is completely fixed is a body without unknowns, and so is all it carries.
class VrexSolverModel {
public:
    using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;
    using Constraints = std::vector<std::shared_ptr<VrexBaseConstraint>>;

    VrexSolverModel(const Geometries& geometries, const Constraints& constraints);

    VrexSolverSystem& system() { return m_system; }
    const VrexSolverSystem& system() const { return m_system; }
    double length() const { return m_system.length(); }
    /// Null for an entity that has no shape of its own, such as a spline.
    const VrexSolverShape* shape(const VrexBaseGeometry& geometry) const;
    /// The body that carries the entity; null for one that none does.
    const VrexSolverBody* body(const VrexBaseGeometry& geometry) const;
    /// The variable's value with its derivative.
    VrexVariable value(const VrexGeometryVariable& variable) const;
    /// Whether the value of the dimension is its own number, which nothing varies.
    bool isNumber(const VrexDimension3D& dimension) const;
    /// The unknown that stands for the value of a dimension in an equality; null for a dimension that is in
    /// none, is rigid, or is bound to a variable.
    const VrexSolverShape* commonValue(const VrexDimension3D& dimension) const;
    /// Adds an unknown number that belongs to no entity. It stays where it is in memory.
    const VrexSolverShape& addNumber(double value, bool isLength);

    /// Whether a constraint of its own keeps the two parallel, so that others need not say so again.
    bool isHeldParallel(const VrexBaseGeometry& first, const VrexBaseGeometry& second) const;

    /// Writes where the bodies stand into the entities. Those whose body has not moved are left as they are.
    void writeBack() const;

private:
    struct Carried {
        VrexSolverBody* body = nullptr;
        std::optional<VrexSolverShape> shape;
    };

    /// A body and the entities that it carries.
    struct Carrier {
        VrexSolverBody* body = nullptr;
        VrexSolverFrame start;
        Geometries entities;
        bool isSet = false;
    };

    void addBodies(const std::vector<Geometries>& groups, const Constraints& constraints);
    void addSet(const Geometries& entities);
    void addFree(const std::shared_ptr<VrexBaseGeometry>& entity);
    void writeSet(const Carrier& carrier) const;
    /// Numbers that stand for lengths are counted in lengths.
    void findLengths(const Constraints& constraints);
    void addCommonValues(const Constraints& constraints);

    VrexSolverSystem m_system;
    std::vector<Carrier> m_carriers;
    std::unordered_map<const VrexBaseGeometry*, Carried> m_carried;
    std::deque<VrexSolverShape> m_numbers;
    std::unordered_map<const VrexDimension3D*, const VrexSolverShape*> m_commonValues;
    std::set<std::pair<const VrexBaseGeometry*, const VrexBaseGeometry*>> m_parallel;
};
