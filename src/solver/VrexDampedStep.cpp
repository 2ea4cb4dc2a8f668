#include "solver/VrexDampedStep.h"

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
        m_normal = jacobian.transpose() * jacobian;
    }
}

void VrexDampedStep::raiseScale() {
    // An unknown that nothing depends on stands still under any damping.
    constexpr double smallest = 1e-6;
    if (m_scale.size() != m_jacobian->cols()) {
        m_scale.setConstant(m_jacobian->cols(), smallest);
    }
    for (Eigen::Index column = 0; column < m_jacobian->cols(); ++column) {
        m_scale[column] = std::max(m_scale[column], m_jacobian->col(column).norm());
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
    Eigen::SparseMatrix<double> diagonal(m_normal.cols(), m_normal.cols());
    diagonal.reserve(Eigen::VectorXi::Constant(m_normal.cols(), 1));
    for (Eigen::Index i = 0; i < m_normal.cols(); ++i) {
        diagonal.insert(i, i) = damping * m_scale[i] * m_scale[i];
    }
    m_factor.compute(m_normal + diagonal);
    return m_factor.solve(-m_gradient);
}

double VrexDampedStep::predictedGain(const Eigen::VectorXd& step, double damping) const {
    return 0.5 * (damping * m_scale.cwiseProduct(step).squaredNorm() - step.dot(m_gradient));
}
