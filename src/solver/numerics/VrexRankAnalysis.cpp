#include "solver/numerics/VrexRankAnalysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>

#include <Eigen/QR>

#include "solver/numerics/VrexDependentGroups.h"
#include "solver/numerics/VrexRowFactor.h"
#include "solver/numerics/VrexSpareRows.h"
#include "solver/system/VrexSolverSystem.h"

namespace {

/// Rows have length 1: what is left of one below this counts as nothing.
constexpr double RANK_TOLERANCE = 1e-6;
/// A motion of less than this, beside motions near 1, is none.
constexpr double STANDING_STILL = 1e-7;
/// A body has at most eight unknowns.
constexpr Eigen::Index MOTIONS = 8;

using Matrix = Eigen::SparseMatrix<double>;

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

/// How far the columns from this one on are from being independent: the freedom of points of contact to slide
/// while everything else stands still.
std::size_t slack(const Matrix& jacobian, Eigen::Index firstColumn) {
    const Eigen::Index count = jacobian.cols() - firstColumn;
    if (count == 0) {
        return 0;
    }
    const Matrix columns = jacobian.rightCols(count);
    const VrexRowFactor factor(unitRows(columns.transpose()), RANK_TOLERANCE);
    return static_cast<std::size_t>(count - factor.rank());
}

nsDependentGroups::Relation relationOf(const VrexRowFactor& factor, Eigen::Index row) {
    const Eigen::VectorXd parts = factor.combination(row);
    nsDependentGroups::Relation relation{row, parts.sparseView(1.0, RANK_TOLERANCE)};
    relation.multiples.coeffRef(row) = -1.0;
    return relation;
}

} // namespace

VrexRankAnalysis::VrexRankAnalysis(VrexSolverSystem& system) {
    system.evaluate(true, false);
    Matrix jacobian = unitRows(system.jacobian());
    const auto spares = nsSpareRows::clear(jacobian, system, RANK_TOLERANCE);
    const VrexRowFactor factor(jacobian, RANK_TOLERANCE);
    m_freedom =
        static_cast<std::size_t>(system.unknownCount() - factor.rank()) - slack(jacobian, system.firstHelp());
    findMotions(factor, system.unknownCount());
    findDependence(factor, system, spares);
}

void VrexRankAnalysis::findMotions(const VrexRowFactor& factor, Eigen::Index unknowns) {
    if (m_freedom == 0) {
        return;
    }
    std::mt19937_64 random(20261121);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    m_motions = factor.withoutRows(Eigen::MatrixXd::NullaryExpr(
        unknowns, MOTIONS, [&](Eigen::Index, Eigen::Index) { return uniform(random); }));
    m_leastMotion = STANDING_STILL * std::max(1.0, m_motions.cwiseAbs().maxCoeff());
}

std::size_t VrexRankAnalysis::freedomOf(const VrexSolverBody& body) const {
    if (body.isFixed() || m_freedom == 0) {
        return 0;
    }
    const auto first = static_cast<Eigen::Index>(body.firstUnknown());
    const auto count = static_cast<Eigen::Index>(body.unknownCount());
    using Part = Eigen::Matrix<double, MOTIONS, Eigen::Dynamic, Eigen::ColMajor, MOTIONS, MOTIONS>;
    const Eigen::ColPivHouseholderQR<Part> factor(m_motions.middleRows(first, count).transpose());
    return static_cast<std::size_t>((factor.matrixR().diagonal().cwiseAbs().array() > m_leastMotion).count());
}

void VrexRankAnalysis::findDependence(const VrexRowFactor& factor, const VrexSolverSystem& system,
                                      const std::unordered_set<Eigen::Index>& spares) {
    std::vector<nsDependentGroups::Relation> relations;
    for (const Eigen::Index row : factor.dependentRows()) {
        if (!system.isIdle(row) && !spares.contains(row)) { // else it binds nothing where the bodies stand
            relations.push_back(relationOf(factor, row));
        }
    }
    m_dependent = nsDependentGroups::minimal(relations, system.rowConstraints());
}
