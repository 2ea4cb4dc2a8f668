#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"

/// A geometry with whatever parts it is told.
class PartedGeometry : public VrexBaseGeometry {
public:
    explicit PartedGeometry(std::uint64_t id, bool isPattern = false)
        : VrexBaseGeometry(VrexObjectType::Geometry), m_isPattern(isPattern) {
        setID(id);
    }
    static std::shared_ptr<PartedGeometry> create(std::uint64_t id,
                                                  std::vector<std::shared_ptr<VrexBaseGeometry>> parts = {}) {
        auto geometry = std::make_shared<PartedGeometry>(id);
        geometry->parts = std::move(parts);
        return geometry;
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<PartedGeometry>(*this); }
    const char* getNamePrefix() const override { return "part"; }
    int dof() const override { return 3; }
    bool isPattern() const override { return m_isPattern; }
    std::vector<std::shared_ptr<VrexBaseGeometry>> getGeometries() const override { return parts; }

    std::vector<std::shared_ptr<VrexBaseGeometry>> parts;

private:
    void restoreFromCopy(const VrexBaseObject&) override {}

    bool m_isPattern;
};

/// A constraint of whatever geometries, depending on whatever constraints.
class LooseConstraint : public VrexBaseConstraint {
public:
    using Geometries = std::vector<std::shared_ptr<VrexBaseGeometry>>;

    explicit LooseConstraint(std::uint64_t id) : VrexBaseConstraint(VrexObjectType::Constraint) { setID(id); }
    static std::shared_ptr<LooseConstraint> create(std::uint64_t id, Geometries geometries) {
        auto constraint = std::make_shared<LooseConstraint>(id);
        constraint->geometries = std::move(geometries);
        return constraint;
    }
    /// A complete fixation.
    static std::shared_ptr<LooseConstraint> fix(std::uint64_t id,
                                                const std::shared_ptr<VrexBaseGeometry>& geometry) {
        auto constraint = create(id, {geometry});
        constraint->isFixation = true;
        return constraint;
    }

    std::shared_ptr<VrexBaseObject> makeCopy() override { return std::make_shared<LooseConstraint>(*this); }
    int doc() const override { return 1; }
    const Geometries& getGeometries() const override { return geometries; }
    bool isCompleteFixed() const override { return isFixation; }
    std::vector<std::shared_ptr<VrexBaseConstraint>> getConstraints() override { return dependencies; }

    Geometries geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> dependencies;
    bool isFixation = false;

private:
    void restoreFromCopy(const VrexBaseObject&) override {}
};

/// A system as a graph takes it.
struct GraphSystem {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;
};

/// Systems at random, of `scale` objects or one more: sets in sets with shared members, patterns, constraints
/// of up to three geometries, dependencies, fixations of all of these, first and second ones; some objects
/// are referred to without being listed. Identifiers are unique.
class RandomGraphSystems {
public:
    explicit RandomGraphSystems(std::uint64_t seed) : m_random(seed) {}

    bool chance(double probability) { return std::bernoulli_distribution(probability)(m_random); }
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    GraphSystem make(std::size_t scale, bool isAllListed = false) {
        m_nextID = 1 + below(1000);
        const std::size_t geometryCount = 1 + below(scale);
        const double fixed = 0.3 * double(below(4)) / 3;
        std::vector<std::shared_ptr<PartedGeometry>> geometries;
        for (std::size_t i = 0; i < geometryCount; ++i) {
            geometries.push_back(makeGeometry(geometries));
        }
        std::vector<std::shared_ptr<LooseConstraint>> constraints;
        while (geometries.size() + constraints.size() < scale) {
            constraints.push_back(makeConstraint(geometries, constraints, fixed));
        }
        GraphSystem system;
        for (const auto& geometry : geometries) {
            if (isAllListed || chance(0.9)) {
                system.geometries.push_back(geometry);
            }
        }
        for (const auto& constraint : constraints) {
            if (isAllListed || chance(0.9)) {
                system.constraints.push_back(constraint);
            }
        }
        shuffle(system);
        return system;
    }
    void shuffle(GraphSystem& system) {
        std::shuffle(system.geometries.begin(), system.geometries.end(), m_random);
        std::shuffle(system.constraints.begin(), system.constraints.end(), m_random);
    }

private:
    std::shared_ptr<PartedGeometry> makeGeometry(const std::vector<std::shared_ptr<PartedGeometry>>& others) {
        auto geometry = std::make_shared<PartedGeometry>(takeID(), chance(0.1));
        const std::size_t parts = !others.empty() && chance(0.2) ? below(4) : 0;
        for (std::size_t i = 0; i < parts; ++i) {
            geometry->parts.push_back(others[below(others.size())]);
        }
        return geometry;
    }
    std::shared_ptr<LooseConstraint>
    makeConstraint(const std::vector<std::shared_ptr<PartedGeometry>>& geometries,
                   const std::vector<std::shared_ptr<LooseConstraint>>& others, double fixed) {
        auto constraint = std::make_shared<LooseConstraint>(takeID());
        constraint->isFixation = chance(fixed);
        const std::size_t arguments = constraint->isFixation ? 1 : below(4);
        for (std::size_t i = 0; i < arguments; ++i) {
            constraint->geometries.push_back(geometries[below(geometries.size())]);
        }
        if (!others.empty() && chance(0.1)) {
            constraint->dependencies.push_back(others[below(others.size())]);
        }
        return constraint;
    }
    std::uint64_t takeID() {
        m_nextID += 1 + below(3);
        return m_nextID;
    }

    std::mt19937_64 m_random;
    std::uint64_t m_nextID = 1;
};
