#pragma once

#include <vector>

#include <Eigen/Core>
#include <Eigen/SparseCore>

/// J^T J of a sparse J with something added to its diagonal: the lower triangle, each diagonal entry first in
/// its column and there whether or not J has anything in that column.
class VrexNormalMatrix {
public:
    void assign(const Eigen::SparseMatrix<double>& jacobian);
    /// Whether the latest J has entries where the latest one of a new pattern had none, so that orders and
    /// trees made for that one are of no use.
    bool isNewPattern() const { return m_isNewPattern; }
    /// Good until the next call.
    const Eigen::SparseMatrix<double>& plus(const Eigen::VectorXd& diagonal);

private:
    using Rows = Eigen::SparseMatrix<double, Eigen::RowMajor>;

    bool isWithinPattern(const Eigen::SparseMatrix<double>& jacobian) const;
    void addColumn(int column, const Eigen::SparseMatrix<double>& jacobian);
    void meet(int place, int column);

    bool m_isNewPattern = true;
    Eigen::SparseMatrix<double> m_pattern; ///< Has entries wherever a J since the latest new pattern has.
    Rows m_rows;                           ///< J by rows.
    Eigen::SparseMatrix<double> m_matrix;
    Eigen::VectorXd m_diagonal;
    std::vector<double> m_sums; ///< Of the column that is being made.
    std::vector<int> m_marks;   ///< The column that each place of it was last met in.
    std::vector<int> m_places;  ///< Where the column has entries.
};
