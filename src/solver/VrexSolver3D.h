#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "solver/VrexSolverExport.h"
#include "solver/VrexSolverOptions.h"
#include "solver/VrexSolverReport.h"

class VrexBaseConstraint;
class VrexBaseGeometry;
class VrexConnectedComponent;
class VrexStreamGraphEncoder3D;
class VrexTransform3D;

/// Moves entities so that constraints hold.
///
/// Each component is solved for itself by a damped Gauss-Newton search from where its entities stand, so the
/// solution is one near by. A component that does not converge keeps its pose. The same input gives the same
/// bits. One thread at a time.
class VREX_SOLVER_EXPORT VrexSolver3D {
public:
    /// Throws `std::invalid_argument` for a tolerance that is not positive and finite.
    explicit VrexSolver3D(VrexSolverOptions options = {});

    /// Splits the system into components, solves copies of them and lays the results back into these
    /// objects: numbers, dimensions of mates and statuses. What constraints bind has to be in the list, else
    /// `std::runtime_error` is thrown; nulls are passed over.
    ///
    /// With a drag, entities go where it takes them as far as the constraints allow.
    VrexSolverReport solve(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                           const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints,
                           const VrexTransform3D* drag = nullptr) const;

    /// Solves these components themselves.
    VrexSolverReport solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components,
                           const VrexTransform3D* drag = nullptr) const;

    /// Solves the components of a stream, as `VrexStreamGraphEncoder::encodeConstraintGraphs` writes them,
    /// and leaves them in `result` as the same kind of stream, with statuses and groups of over-constrained
    /// identifiers. False, and nothing in `result`, for a buffer that is no such stream and where what was
    /// solved cannot be written. Functions of equations in the stream are called: only streams of this
    /// process are to be trusted.
    bool solve(const unsigned char* buffer, unsigned int size, VrexStreamGraphEncoder3D& result,
               VrexSolverReport& report) const;

private:
    VrexSolverReport solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components,
                           const VrexTransform3D* drag,
                           const std::function<std::uint64_t(std::uint64_t id)>& sourceId) const;

    VrexSolverOptions m_options;
};
