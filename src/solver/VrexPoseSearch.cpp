#include "solver/VrexPoseSearch.h"

#include <cstdint>
#include <random>
#include <utility>

#include "solver/model/VrexSolverBuilder.h"
#include "solver/system/VrexSolverSystem.h"

namespace {

/// Contacts that move that often go from side to side for ever.
constexpr int MOST_CONTACT_MOVES = 20;

} // namespace

VrexPoseSearch::VrexPoseSearch(const VrexSolverOptions& options, VrexLeastSquares::KeepGoing keepGoing,
                               const VrexSolverBuilder& builder, double mostWork)
    : m_builder(builder),
      m_system(builder.model().system()),
      m_method(options.tolerance, options.maxIterations, std::move(keepGoing)),
      m_retries(options.retries),
      m_mostWork(mostWork),
      m_start(m_system.bodies()) {}

VrexLeastSquaresResult VrexPoseSearch::run() {
    m_result = {};
    m_system.bodies() = m_start;
    attempt();
    for (int i = 1; i <= m_retries && isWorthAnother(); ++i) {
        m_system.bodies() = m_start;
        disturb(i);
        attempt();
    }
    return m_result;
}

bool VrexPoseSearch::isWorthAnother() const {
    const double work =
        static_cast<double>(m_result.iterations) * static_cast<double>(m_system.unknownCount());
    return !m_result.isConverged && !m_result.isCancelled && work < m_mostWork;
}

/// Contacts that moved open a search from where the bodies are now.
void VrexPoseSearch::attempt() {
    search();
    for (int again = 0; m_result.isConverged && m_builder.moveContacts(); ++again) {
        search();
        m_result.isConverged = m_result.isConverged && again < MOST_CONTACT_MOVES;
    }
}

void VrexPoseSearch::search() {
    const VrexLeastSquaresResult before = m_result;
    m_result = m_method.solve(m_system, false);
    m_result.iterations += before.iterations;
    m_result.isUnfinished = m_result.isUnfinished || before.isUnfinished;
}

/// A start from which a search may go another way: half turns and points on each other are saddles. Each is
/// further off than the one before.
void VrexPoseSearch::disturb(int attempt) {
    std::mt19937_64 random(static_cast<std::uint64_t>(attempt));
    const double reach = 0.03 * attempt;
    std::uniform_real_distribution<double> uniform(-reach, reach);
    m_system.move(
        Eigen::VectorXd::NullaryExpr(m_system.unknownCount(), [&](Eigen::Index) { return uniform(random); }));
}
