#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "solver/VrexSolverReport.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexSystemLists.h"

/// What the solver has found, for users.
class VrexSolveReport {
public:
    /// The lists are what was solved. All arguments outlive the report.
    VrexSolveReport(const VrexSolverReport& solved, const nsVrexSystemLists::Geometries& geometries,
                    const nsVrexSystemLists::Constraints& constraints);

    /// Whether a component was not solved, or a constraint of it.
    bool isUnsolved() const { return !m_firstFailure.empty(); }
    /// Whether constraints repeat or contradict each other; with `areSolvedAllowed`, in components that did
    /// not converge.
    bool isOverConstrained(bool areSolvedAllowed) const;
    std::size_t freedom() const { return m_freedom; }

    /// Sentences about what is not as it should be.
    const std::string& firstFailure() const { return m_firstFailure; }
    std::string culprits() const;

    /// Adds all that is known of the components.
    void addTo(VrexReport& report) const;

private:
    std::string nameOfConstraint(std::uint64_t id) const;
    std::string placeOf(const VrexSolverComponentReport& component) const;
    void addComponents(VrexReport& report) const;
    void addGroup(VrexReport::Table& table, std::size_t component, std::size_t group,
                  const std::vector<std::uint64_t>& ids) const;
    void addOverConstrained(VrexReport& report) const;
    void addRemarks(VrexReport& report) const;
    /// None for what cannot move.
    void addFreedom(VrexReport::Table& table, std::size_t component, const VrexSolverFreedom& freedom) const;
    void addFreedoms(VrexReport& report) const;
    /// Identifier, kind and label.
    template <class Object>
    static std::vector<LumoJson> describe(std::uint64_t id,
                                          const std::unordered_map<std::uint64_t, const Object*>& known);

    const VrexSolverReport& m_solved;
    std::unordered_map<std::uint64_t, const VrexBaseGeometry*> m_geometries;
    std::unordered_map<std::uint64_t, const VrexBaseConstraint*> m_constraints;
    std::size_t m_freedom = 0;
    std::string m_firstFailure;
};
