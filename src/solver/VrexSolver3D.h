#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "solver/VrexSolverExport.h"
#include "solver/VrexSolverOptions.h"
#include "solver/VrexSolverReport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexConnectedComponent;

/// Moves entities so that constraints hold.
///
/// Each component is solved for itself by a damped Gauss-Newton search from where its entities stand, so the
/// solution is one near by. A component that does not converge keeps its pose. The same input gives the same
/// bits. One thread at a time.
class VREX_SOLVER_EXPORT VrexSolver3D {
public:
    explicit VrexSolver3D(VrexSolverOptions options = {});

    /// Splits the system into components, solves copies of them and lays the results back into these
    /// objects, matched by identifier: parameters, dimensions of mates and statuses. Identifiers have to be
    /// unique among geometries and among constraints; throws `std::invalid_argument` that names one that is
    /// not. Nulls are passed over.
    VrexSolverReport solve(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                           const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) const;

    /// Solves these components themselves.
    VrexSolverReport solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components) const;

private:
    VrexSolverOptions m_options;
};
