#include "solver/VrexRankAnalysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>

#include <Eigen/OrderingMethods>
#include <Eigen/QR>
#include <Eigen/SparseQR>

#include "solver/VrexSolverSystem.h"

namespace {

/// Rows and columns have length 1 or less: what is left of one below this counts as nothing.
constexpr double RANK_TOLERANCE = 1e-8;
/// A body has at most eight unknowns.
constexpr Eigen::Index MOTIONS = 8;

using Matrix = Eigen::SparseMatrix<double>;
using Factor = Eigen::SparseQR<Matrix, Eigen::COLAMDOrdering<int>>;

/// The rows that bind anything, each of length 1.
Matrix unitRows(const Matrix& jacobian) {
    Eigen::VectorXd squares = Eigen::VectorXd::Zero(jacobian.rows());
    for (Eigen::Index column = 0; column < jacobian.outerSize(); ++column) {
        for (Matrix::InnerIterator entry(jacobian, column); entry; ++entry) {
            squares[entry.row()] += entry.value() * entry.value();
        }
    }
    Matrix result = jacobian;
    for (Eigen::Index column = 0; column < result.outerSize(); ++column) {
        for (Matrix::InnerIterator entry(result, column); entry; ++entry) {
            const double length = std::sqrt(squares[entry.row()]);
            entry.valueRef() = length > RANK_TOLERANCE ? entry.value() / length : 0.0;
        }
    }
    result.prune(0.0);
    result.makeCompressed();
    return result;
}

void factorize(Factor& factor, const Matrix& matrix) {
    factor.setPivotThreshold(RANK_TOLERANCE);
    factor.compute(matrix);
}

/// The first `rank` columns of R, a triangle, applied backwards to `right`.
template <class Right>
Eigen::MatrixXd solveTriangle(const Factor& factor, const Right& right) {
    const Eigen::Index rank = factor.rank();
    const Matrix triangle = factor.matrixR().topLeftCorner(rank, rank);
    return triangle.triangularView<Eigen::Upper>().solve(Eigen::MatrixXd(right));
}

/// How far the columns from this one on are from being independent: the freedom of points of contact to slide
/// while everything else stands still.
std::size_t slack(const Matrix& jacobian, Eigen::Index firstColumn) {
    const Eigen::Index count = jacobian.cols() - firstColumn;
    if (count == 0) {
        return 0;
    }
    Matrix columns = jacobian.rightCols(count);
    columns.makeCompressed();
    if (columns.nonZeros() == 0) {
        return static_cast<std::size_t>(count);
    }
    Factor factor;
    factorize(factor, columns);
    return static_cast<std::size_t>(count - factor.rank());
}

} // namespace

VrexRankAnalysis::VrexRankAnalysis(VrexSolverSystem& system) {
    system.evaluate(true, false);
    const Matrix jacobian = unitRows(system.jacobian());
    findFreedom(jacobian, system.firstHelp());
    findDependence(jacobian, system.rowConstraints());
}

void VrexRankAnalysis::findFreedom(const Matrix& jacobian, Eigen::Index firstHelp) {
    const Eigen::Index unknowns = jacobian.cols();
    if (unknowns == 0) {
        return;
    }
    std::mt19937_64 random(20261121);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    const auto next = [&](Eigen::Index, Eigen::Index) { return uniform(random); };
    if (jacobian.nonZeros() == 0) {
        m_freedom = static_cast<std::size_t>(firstHelp);
        m_motions = Eigen::MatrixXd::NullaryExpr(unknowns, MOTIONS, next);
        return;
    }
    Factor factor;
    factorize(factor, jacobian);
    const Eigen::Index rank = factor.rank();
    m_freedom = static_cast<std::size_t>(unknowns - rank) - slack(jacobian, firstHelp);
    m_motions.setZero(unknowns, MOTIONS);
    if (m_freedom == 0) {
        return;
    }
    Eigen::MatrixXd motions(unknowns, MOTIONS);
    motions.bottomRows(unknowns - rank) = Eigen::MatrixXd::NullaryExpr(unknowns - rank, MOTIONS, next);
    const Matrix rest = factor.matrixR().topRightCorner(rank, unknowns - rank);
    motions.topRows(rank) = -solveTriangle(factor, rest * motions.bottomRows(unknowns - rank));
    m_motions = factor.colsPermutation() * motions;
}

std::size_t VrexRankAnalysis::freedomOf(const VrexSolverBody& body) const {
    if (body.isFixed() || m_freedom == 0) {
        return 0;
    }
    const auto first = static_cast<Eigen::Index>(body.firstUnknown());
    const auto count = static_cast<Eigen::Index>(body.unknownCount());
    Eigen::ColPivHouseholderQR<Eigen::MatrixXd> factor;
    factor.setThreshold(RANK_TOLERANCE);
    const Eigen::MatrixXd part = m_motions.middleRows(first, count);
    constexpr double standingStill = 1e-9;
    if (part.cwiseAbs().maxCoeff() < standingStill * std::max(1.0, m_motions.cwiseAbs().maxCoeff())) {
        return 0;
    }
    return static_cast<std::size_t>(factor.compute(part).rank());
}

void VrexRankAnalysis::findDependence(const Matrix& jacobian, const std::vector<std::size_t>& constraints) {
    Matrix columns = jacobian.transpose();
    columns.makeCompressed();
    if (columns.nonZeros() == 0) {
        return;
    }
    Factor factor;
    factorize(factor, columns);
    const Eigen::Index rank = factor.rank();
    const auto& order = factor.colsPermutation().indices(); // of the columns of R among the rows
    for (Eigen::Index i = rank; i < columns.cols(); ++i) {
        const Eigen::Index row = order[i];
        if (columns.col(row).nonZeros() == 0) {
            continue;
        }
        const Matrix column = factor.matrixR().block(0, i, rank, 1);
        const Eigen::VectorXd parts = solveTriangle(factor, column);
        std::set<std::size_t> members{constraints[static_cast<std::size_t>(row)]};
        for (Eigen::Index k = 0; k < rank; ++k) {
            if (std::abs(parts[k]) > RANK_TOLERANCE) {
                members.insert(constraints[static_cast<std::size_t>(order[k])]);
            }
        }
        m_dependent.emplace(members.begin(), members.end());
    }
}
