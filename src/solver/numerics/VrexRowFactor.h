#pragma once

#include <vector>

#include <Eigen/Core>
#include <Eigen/SparseCore>

/// Which rows of a sparse matrix J are linear combinations of others, and how: the factors L D L^T of J J^T,
/// from which a row that adds nothing is left out on the way.
///
/// Rows should be of length 1 or zero. The order of the rows keeps the factors sparse, so which one of a
/// dependent group counts as the one too many is not told by the order in J. Up-looking, along the
/// elimination tree: T. A. Davis, Direct methods for sparse linear systems, SIAM 2006, chapter 4. Small
/// pivots, which squares leave to rounding, are found again from the rows themselves.
class VrexRowFactor {
public:
    /// The rows whose distance from the span of those before is `tolerance` or less are dependent.
    VrexRowFactor(const Eigen::SparseMatrix<double>& matrix, double tolerance);

    Eigen::Index rank() const { return m_rank; }
    /// In rising order.
    const std::vector<Eigen::Index>& dependentRows() const { return m_dependentRows; }
    /// The multiples of the independent rows whose sum is the dependent row `row`; zero for dependent rows.
    Eigen::VectorXd combination(Eigen::Index row) const;
    /// The part of each column of `motions` that no independent row sees.
    Eigen::MatrixXd withoutRows(const Eigen::MatrixXd& motions) const;

private:
    void order(const Eigen::SparseMatrix<double>& product);
    void analyse(const Eigen::SparseMatrix<double>& product);
    void climb(int column, int k, std::vector<int>& marks, std::vector<int>& counts);
    double eliminate(std::size_t i, int k, std::vector<double>& work);
    void factorize(const Eigen::SparseMatrix<double>& product, double tolerance);
    int reach(const Eigen::SparseMatrix<double>& product, int k, std::vector<int>& marks,
              std::vector<int>& stack) const;
    double certain(Eigen::Index row, double tolerance) const;
    Eigen::VectorXd vectorOf(Eigen::Index row) const;
    /// Several vectors side by side, so that what is done to all of them alike stands in a row.
    using Vectors = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
    void solveLower(Vectors& x) const;
    void solveUpper(Vectors& x) const;
    Vectors solve(const Vectors& right) const;
    Vectors inRowOrder(const Vectors& x) const;

    Eigen::SparseMatrix<double> m_matrix;
    std::vector<int> m_rowAt;   ///< By place in the factors, the row of J.
    std::vector<int> m_placeOf; ///< By row of J, its place in the factors.
    std::vector<int> m_parents; ///< The elimination tree.
    std::vector<int> m_starts;  ///< Of the columns of L, whose unit diagonal is not stored.
    std::vector<int> m_ends;
    std::vector<int> m_places;
    std::vector<double> m_entries;
    std::vector<double> m_pivots; ///< 0 for a dependent row.
    Eigen::Index m_rank = 0;
    std::vector<Eigen::Index> m_dependentRows;
};
