#include "solver/VrexWishSearch.h"

#include <cstddef>
#include <utility>

#include "solver/model/VrexSolverBuilder.h"
#include "solver/system/VrexSolverSystem.h"

namespace {

/// A pose that leaves less by this part is no better: as near as the search comes to a minimum.
constexpr double LEAST_GAIN = 1e-8;

} // namespace

VrexWishSearch::VrexWishSearch(const VrexSolverOptions& options, VrexLeastSquares::KeepGoing keepGoing,
                               const VrexSolverBuilder& builder)
    : m_builder(builder),
      m_system(builder.model().system()),
      m_method(options.tolerance, options.maxIterations, std::move(keepGoing)),
      m_tolerance(options.tolerance) {}

int VrexWishSearch::run() {
    if (!m_system.hasWishes()) {
        return 0;
    }
    m_system.evaluate(false, false);
    const auto start = m_system.bodies();
    if (m_system.largestValue() <= m_tolerance && !m_builder.moveContacts()) {
        m_start = start;
        m_unmet = unmet();
    }
    m_system.bodies() = start;
    return m_method.solve(m_system, true).iterations;
}

void VrexWishSearch::settle(VrexLeastSquaresResult& result) {
    if (!m_start.has_value() || result.isCancelled) {
        return;
    }
    if (!result.isConverged || !(unmet() < (1.0 - LEAST_GAIN) * m_unmet)) {
        m_system.bodies() = *m_start;
        result.isConverged = true;
    }
    m_system.evaluate(false, false);
    result.largestResidual = m_system.largestValue();
}

double VrexWishSearch::unmet() {
    m_system.evaluate(false, true);
    double sum = 0.0;
    Eigen::Index row = 0;
    for (const VrexSolverResidual& residual : m_system.residuals()) {
        const auto rows = static_cast<Eigen::Index>(residual.rows);
        if (residual.kind == VrexSolverResidual::Kind::WISH) {
            sum += m_system.values().segment(row, rows).squaredNorm();
        }
        row += rows;
    }
    return sum;
}
