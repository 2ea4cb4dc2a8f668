#pragma once

#include <deque>

#include "solver/VrexSolverOptions.h"
#include "solver/numerics/VrexLeastSquares.h"
#include "solver/system/VrexSolverBody.h"

class VrexSolverBuilder;
class VrexSolverSystem;

/// Looks for a pose of a component in which its residuals vanish, always from the same start.
class VrexPoseSearch {
public:
    /// How many iterations times unknowns may go before another start: some seconds. What went on for so long
    /// was on its way, and a start close by only sends many bodies back.
    static constexpr double MOST_WORK = 5e6;

    /// The start is where the bodies stand now.
    VrexPoseSearch(const VrexSolverOptions& options, VrexLeastSquares::KeepGoing keepGoing,
                   const VrexSolverBuilder& builder, double mostWork = MOST_WORK);

    /// Tries again from places close by where the search does not converge. The bodies end where the last
    /// attempt led; the iterations are those of all.
    VrexLeastSquaresResult run();

private:
    /// Whether a start close by may lead where the last one did not.
    bool isWorthAnother() const;
    void attempt();
    void search();
    void disturb(int attempt);

    const VrexSolverBuilder& m_builder;
    VrexSolverSystem& m_system;
    VrexLeastSquares m_method;
    int m_retries;
    double m_mostWork;
    std::deque<VrexSolverBody> m_start;
    VrexLeastSquaresResult m_result;
};
