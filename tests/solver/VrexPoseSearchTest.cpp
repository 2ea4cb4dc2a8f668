#include "solver/VrexPoseSearch.h"

#include <gtest/gtest.h>

#include "solver/JacobianChecks.h"
#include "solver/PlantedSystem.h"

namespace {

constexpr double NO_LIMIT = 1e300;

/// Two points at two distances: no search ends well.
struct Unsolvable : PlantedSystem {
    Unsolvable() {
        const auto a = point(0, 0, 0);
        const auto b = point(1, 0.1, 0);
        distance(a, b, 1.0);
        distance(a, b, 2.0);
    }
};

/// What one search took.
struct Effort {
    int attempts = 0; ///< Each begins at iteration 0.
    VrexLeastSquaresResult result;
    double unknowns = 0.0;

    double work() const { return static_cast<double>(result.iterations) * unknowns; }
};

Effort effortOf(const PlantedSystem& system, int retries, double mostWork) {
    SolverProbe probe(system.geometries, system.constraints);
    VrexSolverOptions options;
    options.retries = retries;
    Effort effort;
    effort.unknowns = static_cast<double>(probe.system().unknownCount());
    const auto count = [&effort](int iteration, double /*largestResidual*/) {
        effort.attempts += iteration == 0 ? 1 : 0;
        return true;
    };
    effort.result = VrexPoseSearch(options, count, probe.builder(), mostWork).run();
    return effort;
}

TEST(VrexPoseSearch, TriesAgainFromCloseByAsOftenAsIsAllowed) {
    for (const int retries : {0, 1, 3}) {
        const Effort effort = effortOf(Unsolvable(), retries, NO_LIMIT);
        EXPECT_EQ(effort.attempts, 1 + retries);
        EXPECT_FALSE(effort.result.isConverged);
    }
}

TEST(VrexPoseSearch, DoesNotTryAgainOnceItIsThere) {
    PlantedSystem system;
    system.distance(system.point(0, 0, 0), system.point(1, 0.1, 0), 2.0);
    const Effort effort = effortOf(system, 3, NO_LIMIT);
    EXPECT_TRUE(effort.result.isConverged);
    EXPECT_EQ(effort.attempts, 1);
}

/// Work is iterations, of all attempts, times unknowns.
TEST(VrexPoseSearch, DoesNotTryAgainOnceTheWorkIsDone) {
    const double first = effortOf(Unsolvable(), 0, NO_LIMIT).work();
    const double second = effortOf(Unsolvable(), 1, NO_LIMIT).work();
    ASSERT_GT(first, 0.0);
    ASSERT_GT(second, first);
    EXPECT_EQ(effortOf(Unsolvable(), 3, 0.0).attempts, 1);
    EXPECT_EQ(effortOf(Unsolvable(), 3, first).attempts, 1);
    EXPECT_EQ(effortOf(Unsolvable(), 3, first + 1.0).attempts, 2);
    EXPECT_EQ(effortOf(Unsolvable(), 3, second).attempts, 2);
    EXPECT_EQ(effortOf(Unsolvable(), 3, second + 1.0).attempts, 3);
}

} // namespace
