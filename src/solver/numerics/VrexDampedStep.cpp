#include "solver/numerics/VrexDampedStep.h"

#include <algorithm>
#include <cmath>

#include <Eigen/QR>

void VrexDampedStep::setJacobian(const Eigen::SparseMatrix<double>& jacobian, const Eigen::VectorXd& values) {
    m_jacobian = &jacobian;
    m_values = values;
    m_gradient = jacobian.transpose() * values;
    raiseScale();
    if (jacobian.cols() <= DENSE_LIMIT) {
        m_dense = jacobian;
    } else {
        m_normal.assign(jacobian);
        m_isAnalysed = m_isAnalysed && !m_normal.isNewPattern();
    }
}

void VrexDampedStep::raiseScale() {
    // An unknown that nothing depends on stands still under any damping.
    constexpr double smallest = 1e-6;
    if (m_scale.size() != m_jacobian->cols()) {
        m_scale.setConstant(m_jacobian->cols(), smallest);
    }
    Eigen::VectorXd squares = Eigen::VectorXd::Zero(m_jacobian->cols());
    for (Eigen::Index column = 0; column < m_jacobian->cols(); ++column) {
        squares[m_groups[static_cast<std::size_t>(column)]] += m_jacobian->col(column).squaredNorm();
    }
    for (Eigen::Index column = 0; column < m_jacobian->cols(); ++column) {
        const double square = squares[m_groups[static_cast<std::size_t>(column)]];
        m_scale[column] = std::max(m_scale[column], std::sqrt(square));
    }
}

Eigen::VectorXd VrexDampedStep::solve(double damping) {
    return m_jacobian->cols() <= DENSE_LIMIT ? solveDense(damping) : solveSparse(damping);
}

Eigen::VectorXd VrexDampedStep::solveDense(double damping) {
    const Eigen::Index rows = m_dense.rows();
    const Eigen::Index columns = m_dense.cols();
    Eigen::MatrixXd stacked = Eigen::MatrixXd::Zero(rows + columns, columns);
    stacked.topRows(rows) = m_dense;
    stacked.bottomRows(columns).diagonal() = std::sqrt(damping) * m_scale;
    Eigen::VectorXd target = Eigen::VectorXd::Zero(rows + columns);
    target.head(rows) = -m_values;
    return stacked.colPivHouseholderQr().solve(target);
}

Eigen::VectorXd VrexDampedStep::solveSparse(double damping) {
    const auto& matrix = m_normal.plus(damping * m_scale.cwiseAbs2());
    if (!m_isAnalysed) {
        m_factor.analyzePattern(matrix);
        m_isAnalysed = true;
    }
    m_factor.factorize(matrix);
    return m_factor.solve(-m_gradient);
}

double VrexDampedStep::predictedGain(const Eigen::VectorXd& step, double damping) const {
    return 0.5 * (damping * m_scale.cwiseProduct(step).squaredNorm() - step.dot(m_gradient));
}
