#include "tools/vrex/VrexSolveReport.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <fmt/format.h>

#include "tools/vrex/VrexObjectNames.h"

namespace {

using Component = VrexSolverComponentReport;

/// Infinities and NaN have no place in JSON.
LumoJson numberOrNull(double number) { return std::isfinite(number) ? LumoJson(number) : LumoJson(); }

/// Why the component counts as unsolved; empty where it does not.
std::string failureOf(const Component& component) {
    if (!component.refusal.empty()) {
        return component.refusal;
    }
    if (component.isCancelled) {
        return "It was cancelled.";
    }
    if (!component.isConverged) {
        return fmt::format("It did not converge in {} iterations; the largest residual is {:.3g}.",
                           component.iterations, component.largestResidual);
    }
    if (!component.remarks.empty()) {
        const VrexSolverRemark& remark = component.remarks.front();
        return fmt::format("{} is not solved: {}",
                           nsVrexObjectNames::nameOf(remark.kind, "", std::to_string(remark.id)),
                           remark.reason);
    }
    return {};
}

/// How a sentence about culprits ends.
const char* endOf(bool isRepetition, bool isOneAlone) {
    if (isOneAlone) {
        return " cannot hold, with or without the others.";
    }
    return isRepetition ? " repeat each other; leaving out any one of them ends that."
                        : " cannot hold together; leaving out any one of them ends that.";
}

} // namespace

VrexSolveReport::VrexSolveReport(const VrexSolverReport& solved,
                                 const nsVrexSystemLists::Geometries& geometries,
                                 const nsVrexSystemLists::Constraints& constraints)
    : m_solved(solved) {
    for (const auto& geometry : geometries) {
        m_geometries[geometry->getID()] = geometry.get();
    }
    for (const auto& constraint : constraints) {
        m_constraints[constraint->getID()] = constraint.get();
    }
    for (std::size_t i = 0; i < m_solved.components.size(); ++i) {
        m_freedom += m_solved.components[i].freedom;
        const std::string failure = failureOf(m_solved.components[i]);
        if (m_firstFailure.empty() && !failure.empty()) {
            m_firstFailure = fmt::format("Component {}{}: {}", i, placeOf(m_solved.components[i]), failure);
        }
    }
}

bool VrexSolveReport::isOverConstrained(bool areSolvedAllowed) const {
    return std::ranges::any_of(m_solved.components, [&](const Component& component) {
        return !component.overConstrained.empty() && !(areSolvedAllowed && component.isConverged);
    });
}

std::string VrexSolveReport::culprits() const {
    for (const Component& component : m_solved.components) {
        if (component.overConstrained.empty()) {
            continue;
        }
        const auto& ids = component.overConstrained.front();
        std::string names;
        for (const std::uint64_t id : ids) {
            names.append(names.empty() ? "" : ", ").append(nameOfConstraint(id));
        }
        return names.append(endOf(component.isConverged, ids.size() == 1));
    }
    return {};
}

std::string VrexSolveReport::nameOfConstraint(std::uint64_t id) const {
    const auto found = m_constraints.find(id);
    return found != m_constraints.end() ? nsVrexObjectNames::nameOf(*found->second)
                                        : fmt::format("id {}", id);
}

/// The first entity, by which the user finds the component; of one that was refused the sentence names one.
std::string VrexSolveReport::placeOf(const VrexSolverComponentReport& component) const {
    if (component.freedoms.empty() || !component.refusal.empty()) {
        return {};
    }
    const auto first = m_geometries.find(component.freedoms.front().id);
    return first != m_geometries.end() ? " with " + nsVrexObjectNames::nameOf(*first->second) : "";
}

void VrexSolveReport::addTo(VrexReport& report) const {
    addComponents(report);
    addOverConstrained(report);
    addRemarks(report);
    addFreedoms(report);
}

void VrexSolveReport::addComponents(VrexReport& report) const {
    auto& table = report.addTable(
        "components", {"index", "converged", "iterations", "largestResidual", "freedom", "failure"});
    for (std::size_t i = 0; i < m_solved.components.size(); ++i) {
        const Component& component = m_solved.components[i];
        const std::string failure = failureOf(component);
        table.add({i, component.isConverged, component.iterations, numberOrNull(component.largestResidual),
                   component.freedom, failure.empty() ? LumoJson() : LumoJson(failure)});
    }
}

template <class Object>
std::vector<LumoJson>
VrexSolveReport::describe(std::uint64_t id, const std::unordered_map<std::uint64_t, const Object*>& known) {
    const auto found = known.find(id);
    if (found == known.end()) {
        return {id, nullptr, ""};
    }
    return {id, nsVrexObjectNames::kindOf(*found->second), found->second->label()};
}

void VrexSolveReport::addGroup(VrexReport::Table& table, std::size_t component, std::size_t group,
                               const std::vector<std::uint64_t>& ids) const {
    for (const std::uint64_t id : ids) {
        std::vector<LumoJson> row = describe(id, m_constraints);
        row.insert(row.begin(), {component, group});
        table.add(std::move(row));
    }
}

void VrexSolveReport::addOverConstrained(VrexReport& report) const {
    auto& table = report.addTable("overConstrainedGroups", {"component", "group", "id", "type", "label"});
    std::size_t group = 0;
    for (std::size_t i = 0; i < m_solved.components.size(); ++i) {
        for (const auto& ids : m_solved.components[i].overConstrained) {
            addGroup(table, i, group++, ids);
        }
    }
}

void VrexSolveReport::addRemarks(VrexReport& report) const {
    auto& table = report.addTable("remarks", {"component", "id", "type", "reason"});
    for (std::size_t i = 0; i < m_solved.components.size(); ++i) {
        for (const VrexSolverRemark& remark : m_solved.components[i].remarks) {
            table.add({i, remark.id, remark.kind, remark.reason});
        }
    }
}

void VrexSolveReport::addFreedom(VrexReport::Table& table, std::size_t component,
                                 const VrexSolverFreedom& freedom) const {
    if (freedom.degrees > 0) {
        std::vector<LumoJson> row = describe(freedom.id, m_geometries);
        row.insert(row.begin(), {component, freedom.degrees});
        table.add(std::move(row));
    }
}

void VrexSolveReport::addFreedoms(VrexReport& report) const {
    auto& table = report.addTable("freedoms", {"component", "degrees", "id", "type", "label"});
    for (std::size_t i = 0; i < m_solved.components.size(); ++i) {
        for (const VrexSolverFreedom& freedom : m_solved.components[i].freedoms) {
            addFreedom(table, i, freedom);
        }
    }
}
