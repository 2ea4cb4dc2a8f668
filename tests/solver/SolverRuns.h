#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "solver/Mechanism.h"
#include "solver/VrexSolver3D.h"

/// Solves what has been built as one component.
inline VrexSolverComponentReport solve(const Mechanism& mechanism) {
    return VrexSolver3D().solve({mechanism.component()}).components.at(0);
}

/// Solves these as one component.
inline VrexSolverComponentReport
solveOne(const std::vector<std::shared_ptr<VrexGeometry3D>>& entities,
         const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints,
         const std::vector<std::shared_ptr<VrexBaseGeometry>>& numbers = {}) {
    Mechanism mechanism;
    for (const auto& entity : entities) {
        mechanism.add(entity);
    }
    for (const auto& number : numbers) {
        mechanism.add(number);
    }
    for (const auto& constraint : constraints) {
        mechanism.bind(constraint);
    }
    return solve(mechanism);
}

/// Where it did not, the first reason that the report gives.
inline std::string reasonOf(const VrexSolverComponentReport& report) {
    return !report.refusal.empty() ? report.refusal : report.remarks.empty() ? "" : report.remarks[0].reason;
}
