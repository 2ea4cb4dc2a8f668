#pragma once

#include <cstdint>
#include <functional>

/// How far the work on a component is.
struct VrexSolverProgress {
    std::uint64_t component = 0; ///< Its place among the components.
    std::uint64_t componentCount = 0;
    int iteration = 0;
    double largestResidual = 0.0;
};

/// What a caller may ask of the solver.
struct VrexSolverOptions {
    /// What a residual may be in the end: of lengths as a part of the component's size, of angles in radians.
    double tolerance = 1e-10;
    int maxIterations = 200;
    /// How often a component that does not converge is tried again from a place close by; not after a search
    /// that took seconds.
    int retries = 3;
    /// Called before each iteration, if set; false ends the work, and components that are not solved by then
    /// keep their pose.
    std::function<bool(const VrexSolverProgress&)> progress;
};
