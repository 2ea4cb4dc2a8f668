#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A constraint that was not solved, and why.
struct VrexSolverRemark {
    std::uint64_t id = 0;
    std::string kind;
    std::string reason;
};

/// The freedom that an entity has left.
struct VrexSolverFreedom {
    std::uint64_t id = 0;
    std::size_t degrees = 0;
};

/// What became of one component.
struct VrexSolverComponentReport {
    bool isConverged = false;
    bool isCancelled = false;
    int iterations = 0;
    double largestResidual = 0.0;
    /// Degrees of freedom that are left, those of the whole and off a limit included.
    std::size_t freedom = 0;
    /// Entities in the order of the component, those that others carry included.
    std::vector<VrexSolverFreedom> freedoms;
    /// Identifiers of constraints that contradict each other or say the same; leaving out any one of a group
    /// ends that. Where the component is solved they say the same. Else groups that contradict each other
    /// come first; what says the same, and the freedom, are those of a pose without the last one of each.
    std::vector<std::vector<std::uint64_t>> overConstrained;
    std::vector<VrexSolverRemark> remarks;
    /// Why the component was not tried, or what ended it; else empty.
    std::string refusal;
};

struct VrexSolverReport {
    std::vector<VrexSolverComponentReport> components;

    bool isConverged() const {
        for (const VrexSolverComponentReport& component : components) {
            if (!component.isConverged) {
                return false;
            }
        }
        return true;
    }
};
