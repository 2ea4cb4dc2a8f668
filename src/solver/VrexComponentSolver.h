#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "solver/VrexSolverOptions.h"
#include "solver/VrexSolverReport.h"

class VrexConnectedComponent;
class VrexTransform3D;

/// Solves one component in place: entities, statuses, dimensions of mates and the component's groups of
/// over-constrained identifiers. Where it does not converge only the statuses change.
class VrexComponentSolver {
public:
    /// Asked before each iteration; false ends the work.
    using KeepGoing = std::function<bool(int iteration, double largestResidual)>;

    VrexComponentSolver(const VrexSolverOptions& options, KeepGoing keepGoing);

    /// Never throws for what a callback throws: that is the component's refusal.
    VrexSolverComponentReport solve(VrexConnectedComponent& component) const;

private:
    const VrexSolverOptions& m_options;
    KeepGoing m_keepGoing;
};
