#pragma once

#include <cstdint>

#include <gtest/gtest.h>

#include "solver/JacobianChecks.h"
#include "solver/SolverRuns.h"

/// Solves what `make` yields from 200 starts about it, the same ones in each run, and hands each solution
/// with its report to `check`. All unknowns are moved by up to `size`: lengths in that of the whole, angles
/// in radians.
template <class Make, class Check>
void solveFromRandomStarts(double size, const Make& make, const Check& check) {
    constexpr std::uint64_t starts = 200;
    for (std::uint64_t seed = 1; seed <= starts; ++seed) {
        SCOPED_TRACE(seed);
        auto mechanism = make();
        disturb(mechanism.geometries, mechanism.constraints, size, seed);
        const VrexSolverComponentReport report = solve(mechanism);
        ASSERT_TRUE(report.isConverged) << reasonOf(report);
        ASSERT_LT(report.largestResidual, 1e-10);
        check(mechanism, report);
        if (testing::Test::HasFailure()) {
            return; // one is enough to tell
        }
    }
}
