#include "solver/numerics/VrexSpareRows.h"

#include <vector>

#include "solver/system/VrexSolverSystem.h"

namespace {

using Row = Eigen::SparseVector<double>;

/// What the rows so far span, by unit vectors at right angles.
class Span {
public:
    explicit Span(double tolerance) : m_tolerance(tolerance) {}

    /// False for a row that is in the span already.
    bool add(Row row) {
        reduce(row);
        reduce(row);
        const double length = row.norm();
        if (length <= m_tolerance) {
            return false;
        }
        m_basis.emplace_back(row / length);
        return true;
    }

private:
    void reduce(Row& row) const {
        for (const Row& direction : m_basis) {
            const double part = direction.dot(row);
            row -= direction * part;
        }
    }

    double m_tolerance;
    std::vector<Row> m_basis;
};

/// Of the columns from `first` on, before `end`, those that follow from the ones before.
void addSpares(const Eigen::SparseMatrix<double>& columns, Eigen::Index first, Eigen::Index end,
               double tolerance, std::unordered_set<Eigen::Index>& spares) {
    Span span(tolerance);
    for (Eigen::Index column = first; column < end; ++column) {
        if (!span.add(columns.col(column))) {
            spares.insert(column);
        }
    }
}

void clearRows(Eigen::SparseMatrix<double>& jacobian, const std::unordered_set<Eigen::Index>& rows) {
    if (!rows.empty()) {
        jacobian.prune([&rows](Eigen::Index row, Eigen::Index, double) { return !rows.contains(row); });
    }
}

} // namespace

std::unordered_set<Eigen::Index> nsSpareRows::clear(Eigen::SparseMatrix<double>& jacobian,
                                                    const VrexSolverSystem& system, double tolerance) {
    std::unordered_set<Eigen::Index> spares;
    const Eigen::SparseMatrix<double> transposed = jacobian.transpose(); // one column a row
    Eigen::Index row = 0;
    for (const VrexSolverResidual& residual : system.residuals()) {
        const Eigen::Index end = row + static_cast<Eigen::Index>(residual.rows);
        if (residual.kind == VrexSolverResidual::Kind::WITH_SPARES) {
            addSpares(transposed, row, end, tolerance, spares);
        }
        for (; residual.kind == VrexSolverResidual::Kind::ONE_SIDED && row < end; ++row) {
            spares.insert(row);
        }
        row = end;
    }
    clearRows(jacobian, spares);
    return spares;
}
