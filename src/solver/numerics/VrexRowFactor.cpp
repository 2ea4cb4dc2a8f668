#include "solver/numerics/VrexRowFactor.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include <Eigen/OrderingMethods>

namespace {

using Matrix = Eigen::SparseMatrix<double>;

/// What is left of a square of 1 below this may be rounding, many times over.
constexpr double LEAST_CERTAIN = 1e-6;
/// Each takes away what rounding left in the one before.
constexpr int PASSES = 3;

} // namespace

VrexRowFactor::VrexRowFactor(const Matrix& matrix, double tolerance) : m_matrix(matrix) {
    Matrix product = matrix * Matrix(matrix.transpose());
    order(product);
    Eigen::PermutationMatrix<Eigen::Dynamic, Eigen::Dynamic, int> permutation(product.rows());
    std::copy(m_placeOf.begin(), m_placeOf.end(), permutation.indices().data());
    product = product.twistedBy(permutation);
    analyse(product);
    factorize(product, tolerance);
}

void VrexRowFactor::order(const Matrix& product) {
    Eigen::PermutationMatrix<Eigen::Dynamic, Eigen::Dynamic, int> inverse;
    Eigen::AMDOrdering<int>()(product, inverse);
    const auto size = static_cast<std::size_t>(product.rows());
    m_rowAt.assign(inverse.indices().data(), inverse.indices().data() + size);
    m_placeOf.resize(size);
    for (std::size_t place = 0; place < size; ++place) {
        m_placeOf[static_cast<std::size_t>(m_rowAt[place])] = static_cast<int>(place);
    }
}

void VrexRowFactor::analyse(const Matrix& product) {
    const auto size = static_cast<std::size_t>(product.rows());
    m_parents.assign(size, -1);
    std::vector<int> marks(size, -1);
    std::vector<int> counts(size, 0);
    for (int k = 0; k < product.cols(); ++k) {
        marks[static_cast<std::size_t>(k)] = k;
        for (Matrix::InnerIterator entry(product, k); entry && entry.row() < k; ++entry) {
            climb(static_cast<int>(entry.row()), k, marks, counts);
        }
    }
    m_starts.assign(size + 1, 0);
    for (std::size_t i = 0; i < size; ++i) {
        m_starts[i + 1] = m_starts[i] + counts[i];
    }
    m_ends.assign(m_starts.begin(), m_starts.end() - 1);
    m_places.resize(static_cast<std::size_t>(m_starts.back()));
    m_entries.resize(m_places.size());
}

/// From a column up the tree of columns to those that row k has met: each column on the way gets an entry.
void VrexRowFactor::climb(int column, int k, std::vector<int>& marks, std::vector<int>& counts) {
    for (auto at = static_cast<std::size_t>(column); marks[at] != k;
         at = static_cast<std::size_t>(m_parents[at])) {
        m_parents[at] = m_parents[at] < 0 ? k : m_parents[at];
        ++counts[at];
        marks[at] = k;
    }
}

/// The columns of L that row k of it has entries in, at the end of `stack`, each behind those it depends on.
int VrexRowFactor::reach(const Matrix& product, int k, std::vector<int>& marks,
                         std::vector<int>& stack) const {
    int top = static_cast<int>(product.cols());
    marks[static_cast<std::size_t>(k)] = k;
    for (Matrix::InnerIterator entry(product, k); entry && entry.row() < k; ++entry) {
        int length = 0;
        for (int i = static_cast<int>(entry.row()); marks[static_cast<std::size_t>(i)] != k;
             i = m_parents[static_cast<std::size_t>(i)]) {
            stack[static_cast<std::size_t>(length++)] = i;
            marks[static_cast<std::size_t>(i)] = k;
        }
        while (length > 0) {
            stack[static_cast<std::size_t>(--top)] = stack[static_cast<std::size_t>(--length)];
        }
    }
    return top;
}

/// Takes column i out of row k, whose entries stand in `work`; what the pivot of the row loses by it.
double VrexRowFactor::eliminate(std::size_t i, int k, std::vector<double>& work) {
    const double value = std::exchange(work[i], 0.0);
    if (m_pivots[i] == 0.0) {
        return 0.0; // a row that is left out
    }
    for (int p = m_starts[i]; p < m_ends[i]; ++p) {
        work[static_cast<std::size_t>(m_places[static_cast<std::size_t>(p)])] -=
            m_entries[static_cast<std::size_t>(p)] * value;
    }
    const auto end = static_cast<std::size_t>(m_ends[i]++);
    m_places[end] = k;
    m_entries[end] = value / m_pivots[i];
    return m_entries[end] * value;
}

void VrexRowFactor::factorize(const Matrix& product, double tolerance) {
    const auto size = static_cast<std::size_t>(product.cols());
    m_pivots.assign(size, 0.0);
    std::vector<int> marks(size, -1);
    std::vector<int> stack(size);
    std::vector<double> work(size, 0.0);
    for (int k = 0; k < product.cols(); ++k) {
        for (Matrix::InnerIterator entry(product, k); entry && entry.row() <= k; ++entry) {
            work[static_cast<std::size_t>(entry.row())] = entry.value();
        }
        const double square = std::exchange(work[static_cast<std::size_t>(k)], 0.0);
        double pivot = square;
        for (int top = reach(product, k, marks, stack); top < product.cols(); ++top) {
            const int i = stack[static_cast<std::size_t>(top)];
            pivot -= eliminate(static_cast<std::size_t>(i), k, work);
        }
        const int row = m_rowAt[static_cast<std::size_t>(k)];
        pivot = square > 0.0 && pivot < LEAST_CERTAIN ? certain(row, tolerance) : pivot;
        m_pivots[static_cast<std::size_t>(k)] = pivot;
        if (pivot > 0.0) {
            ++m_rank;
        } else {
            m_dependentRows.push_back(row);
        }
    }
    std::sort(m_dependentRows.begin(), m_dependentRows.end());
}

/// The pivot of a row that is next to the span of the independent ones so far; zero where it is in there.
double VrexRowFactor::certain(Eigen::Index row, double tolerance) const {
    const double distance = withoutRows(vectorOf(row)).norm();
    return distance > tolerance ? distance * distance : 0.0;
}

/// L x = x.
void VrexRowFactor::solveLower(Vectors& x) const {
    for (std::size_t i = 0; i < m_pivots.size(); ++i) {
        const auto from = static_cast<Eigen::Index>(i);
        for (auto p = static_cast<std::size_t>(m_starts[i]); p < static_cast<std::size_t>(m_ends[i]); ++p) {
            x.row(m_places[p]) -= m_entries[p] * x.row(from);
        }
    }
}

/// L^T x = x, where x is zero at dependent rows.
void VrexRowFactor::solveUpper(Vectors& x) const {
    for (std::size_t i = m_pivots.size(); i-- > 0;) {
        const auto to = static_cast<Eigen::Index>(i);
        for (auto p = static_cast<std::size_t>(m_starts[i]); p < static_cast<std::size_t>(m_ends[i]); ++p) {
            x.row(to) -= m_entries[p] * x.row(m_places[p]);
        }
    }
}

VrexRowFactor::Vectors VrexRowFactor::inRowOrder(const Vectors& x) const {
    Vectors result(x.rows(), x.cols());
    for (Eigen::Index i = 0; i < x.rows(); ++i) {
        result.row(m_rowAt[static_cast<std::size_t>(i)]) = x.row(i);
    }
    return result;
}

Eigen::VectorXd VrexRowFactor::combination(Eigen::Index row) const {
    Eigen::VectorXd multiples = Eigen::VectorXd::Zero(m_matrix.rows());
    Eigen::VectorXd rest = vectorOf(row);
    for (int pass = 0; pass < PASSES; ++pass) {
        const Eigen::VectorXd part = solve(m_matrix * rest);
        multiples += part;
        rest -= m_matrix.transpose() * part;
    }
    return multiples;
}

Eigen::VectorXd VrexRowFactor::vectorOf(Eigen::Index row) const {
    return m_matrix.transpose() * Eigen::VectorXd::Unit(m_matrix.rows(), row);
}

/// (J J^T) x = right over the independent rows, zero for the others.
VrexRowFactor::Vectors VrexRowFactor::solve(const Vectors& right) const {
    Vectors x(right.rows(), right.cols());
    for (Eigen::Index i = 0; i < x.rows(); ++i) {
        x.row(i) = right.row(m_rowAt[static_cast<std::size_t>(i)]);
    }
    solveLower(x);
    for (Eigen::Index i = 0; i < x.rows(); ++i) {
        const double pivot = m_pivots[static_cast<std::size_t>(i)];
        x.row(i) *= pivot != 0.0 ? 1.0 / pivot : 0.0;
    }
    solveUpper(x);
    return inRowOrder(x);
}

Eigen::MatrixXd VrexRowFactor::withoutRows(const Eigen::MatrixXd& motions) const {
    Vectors result = motions;
    for (int pass = 0; pass < PASSES; ++pass) {
        result -= m_matrix.transpose() * solve(m_matrix * result);
    }
    return result;
}
