#pragma once

#include <functional>

class VrexSolverSystem;

/// How far the bodies came.
struct VrexLeastSquaresResult {
    bool isConverged = false;
    bool isCancelled = false;
    /// Whether the iterations ran out while they still gained much: more of them might have solved it.
    bool isUnfinished = false;
    int iterations = 0;
    double largestResidual = 0.0;
};

/// Moves the bodies of a system until all residuals are zero, or as near as they get from where they stand:
/// the damped Gauss-Newton method of Levenberg and Marquardt, with Nielsen's choice of the damping.
///
/// H. B. Nielsen, Damping parameter in Marquardt's method, IMM-REP-1999-05, Technical University of Denmark.
/// The steps of a small system come from an orthogonal decomposition, which minds no lack of rank; those of a
/// large one from the sparse normal equations.
class VrexLeastSquares {
public:
    /// Asked before each iteration; false ends the work.
    using KeepGoing = std::function<bool(int iteration, double largestResidual)>;

    VrexLeastSquares(double tolerance, int maxIterations, KeepGoing keepGoing);

    /// Bodies that meet the tolerance already stay exactly where they are.
    VrexLeastSquaresResult solve(VrexSolverSystem& system, bool withWishes) const;

private:
    double m_tolerance;
    int m_maxIterations;
    KeepGoing m_keepGoing;
};
