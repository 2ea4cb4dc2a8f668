#pragma once

#include <cstdint>
#include <functional>

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

    /// The identifier by which a caller knows an object that has this one here.
    using SourceId = std::function<std::uint64_t(std::uint64_t id)>;

    VrexComponentSolver(const VrexSolverOptions& options, KeepGoing keepGoing, SourceId sourceId);

    /// Never throws for what a callback throws: that is the component's refusal.
    /// With a drag, which names objects of any component, entities go where it takes them as far as the
    /// constraints allow.
    VrexSolverComponentReport solve(VrexConnectedComponent& component, const VrexTransform3D* drag) const;

private:
    const VrexSolverOptions& m_options;
    KeepGoing m_keepGoing;
    SourceId m_sourceId;
};
