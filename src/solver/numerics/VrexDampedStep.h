#pragma once

#include <utility>
#include <vector>

#include <Eigen/Core>
#include <Eigen/SparseCholesky>
#include <Eigen/SparseCore>

#include "solver/numerics/VrexNormalMatrix.h"

/// The minimum of |J d + r|^2 + mu |D d|^2 over the step d.
///
/// D holds the lengths of the columns of J, as J. J. More has them (The Levenberg-Marquardt algorithm, 1978),
/// but those of a group of unknowns taken together. Column by column, what hardly changes any residual would
/// be next to free: points on a line would leave it sideways for every small change along it.
class VrexDampedStep {
public:
    /// The group of each unknown, named by one of its unknowns.
    explicit VrexDampedStep(std::vector<Eigen::Index> groups) : m_groups(std::move(groups)) {}

    /// For one iteration after the other on matrices of the same size.
    void setJacobian(const Eigen::SparseMatrix<double>& jacobian, const Eigen::VectorXd& values);
    Eigen::VectorXd solve(double damping);
    /// What the linear model says that the step gains in half the sum of squares.
    double predictedGain(const Eigen::VectorXd& step, double damping) const;

private:
    /// Up to so many unknowns, those of six bodies, the decomposition of the full matrix costs at most twice
    /// as much as the normal equations, and does not square what is nearly singular.
    static constexpr Eigen::Index DENSE_LIMIT = 36;

    Eigen::VectorXd solveDense(double damping);
    Eigen::VectorXd solveSparse(double damping);
    void raiseScale();

    std::vector<Eigen::Index> m_groups;
    const Eigen::SparseMatrix<double>* m_jacobian = nullptr;
    Eigen::VectorXd m_values;
    Eigen::VectorXd m_gradient;
    Eigen::VectorXd m_scale; ///< D: the longest that each group has been.
    Eigen::MatrixXd m_dense;
    VrexNormalMatrix m_normal;
    Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> m_factor;
    bool m_isAnalysed = false; ///< The order of m_factor is that for the latest pattern.
};
