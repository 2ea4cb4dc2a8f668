#include "solver/VrexConflictSearch.h"

#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "solver/JacobianChecks.h"
#include "solver/PlantedSystem.h"
#include "solver/VrexPoseSearch.h"
#include "solver/VrexSolver3D.h"

namespace {

using Members = VrexConflictSearch::Members;

/// A search for conflicts and what it takes: trials are searches for a pose, of one attempt each.
class Trials {
public:
    explicit Trials(const PlantedSystem& system)
        : m_probe(system.geometries, system.constraints),
          m_search(
              withoutRetries(),
              [this](int iteration, double /*largestResidual*/) {
                  m_count += iteration == 0 ? 1 : 0;
                  return true;
              },
              m_probe.builder()) {}

    /// Once a first search has not come to a solution.
    std::vector<Members> run(double mostWork = VrexConflictSearch::MOST_WORK) {
        EXPECT_FALSE(m_search.run().isConverged);
        m_count = 0;
        return VrexConflictSearch(m_search, m_probe.system(), mostWork).run();
    }
    int count() const { return m_count; }
    VrexSolverSystem& system() { return m_probe.system(); }

private:
    static VrexSolverOptions withoutRetries() {
        VrexSolverOptions options;
        options.retries = 0;
        return options;
    }

    SolverProbe m_probe;
    int m_count = 0;
    VrexPoseSearch m_search;
};

/// A chain of bars, all a bit too long or too short, of which the last is asked to have two lengths.
struct TornChain : PlantedSystem {
    explicit TornChain(std::size_t bars) {
        auto last = fixed(point(0, 0, 0));
        for (std::size_t i = 1; i <= bars; ++i) {
            const auto next = point(static_cast<double>(i), i % 2 == 0 ? 0.0 : 0.2, 0);
            distance(last, next, 1.1);
            last = i < bars ? next : last;
        }
        const auto& end = std::static_pointer_cast<VrexGeometry3D>(geometries.back());
        distance(last, end, 1.5);
    }
};

TEST(VrexConflictSearch, TriesOnlyWhatItTakesToTellTheTwoFromTheOthers) {
    const std::size_t bars = 16;
    const TornChain chain(bars);
    Trials trials(chain);
    const std::size_t last = chain.constraints.size() - 1;
    EXPECT_EQ(trials.run(), (std::vector<Members>{{last - 1, last}}));
    // 2 of 17 take at most 4 log2(17 / 2) + 4 trials, whether they hold together one, and the rest one.
    EXPECT_LE(trials.count(), 18);
    EXPECT_GE(trials.count(), 4);
}

/// The trial that goes beyond the limit is the last that tells anything; after it the system is brought to
/// where all that is held was tried.
TEST(VrexConflictSearch, StopsOnceTheWorkIsDone) {
    Trials trials(TornChain(16));
    EXPECT_TRUE(trials.run(0.0).empty());
    EXPECT_EQ(trials.count(), 2);
    const auto& rows = trials.system().rowConstraints();
    std::size_t unmet = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        unmet += std::abs(trials.system().values()[static_cast<Eigen::Index>(row)]) > 1e-3 ? 1 : 0;
    }
    EXPECT_EQ(unmet, 2U); // the two lengths, neither left out
}

TEST(VrexConflictSearch, TakesNoMoreTrialsThanTheWorkAllows) {
    const TornChain chain(16);
    Trials unlimited(chain);
    unlimited.run();
    int before = 2;
    for (const double mostWork : {1e2, 1e3, 1e4}) {
        Trials trials(chain);
        trials.run(mostWork);
        EXPECT_GE(trials.count(), before) << mostWork;
        EXPECT_LE(trials.count(), unlimited.count() + 1) << mostWork;
        before = trials.count();
    }
}

/// Where nothing was tried there is nothing to go back to either.
TEST(VrexConflictSearch, TriesNothingAmongTooMany) {
    PlantedSystem system;
    const auto a = system.point(0, 0, 0);
    const auto b = system.point(100, 0.1, 0);
    for (int i = 1; i <= 202; ++i) {
        system.distance(a, b, i);
    }
    Trials trials(system);
    EXPECT_TRUE(trials.run().empty());
    EXPECT_EQ(trials.count(), 0);
}

/// Iterations that still gained when they ran out tell nothing about what further ones would have solved.
TEST(VrexConflictSearch, WhatOnlyTakesLongerIsNoConflict) {
    for (const int iterations : {0, 1, 200}) {
        PlantedSystem system;
        const auto a = system.point(0, 0, 0);
        const auto b = system.point(1, 0.1, 0);
        system.distance(a, b, 100);
        system.distance(b, system.point(0, 1, 0.2), 100);
        VrexSolverOptions options;
        options.maxIterations = iterations;
        const auto report = VrexSolver3D(options).solve({system.component()}).components.at(0);
        EXPECT_EQ(report.isConverged, iterations == 200) << iterations;
        EXPECT_TRUE(report.overConstrained.empty()) << iterations;
    }
}

} // namespace
