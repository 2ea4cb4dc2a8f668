#include "solver/numerics/VrexNormalMatrix.h"

#include <algorithm>
#include <cstddef>
#include <span>

void VrexNormalMatrix::assign(const Eigen::SparseMatrix<double>& jacobian) {
    m_isNewPattern = !isWithinPattern(jacobian);
    if (m_isNewPattern) {
        m_pattern = jacobian;
    }
    m_rows = jacobian;
    const Eigen::Index size = jacobian.cols();
    m_sums.resize(static_cast<std::size_t>(size));
    m_marks.assign(static_cast<std::size_t>(size), -1);
    m_matrix.resize(size, size);
    m_diagonal.resize(size);
    for (int column = 0; column < size; ++column) {
        addColumn(column, jacobian);
    }
    m_matrix.finalize();
}

bool VrexNormalMatrix::isWithinPattern(const Eigen::SparseMatrix<double>& jacobian) const {
    if (m_pattern.rows() != jacobian.rows() || m_pattern.cols() != jacobian.cols()) {
        return false;
    }
    const auto rowsOf = [](const auto& matrix, Eigen::Index column) {
        const int* const rows = matrix.innerIndexPtr();
        return std::span(rows + matrix.outerIndexPtr()[column], rows + matrix.outerIndexPtr()[column + 1]);
    };
    for (Eigen::Index column = 0; column < jacobian.cols(); ++column) {
        if (!std::ranges::includes(rowsOf(m_pattern, column), rowsOf(jacobian, column))) {
            return false;
        }
    }
    return true;
}

void VrexNormalMatrix::addColumn(int column, const Eigen::SparseMatrix<double>& jacobian) {
    m_places.clear();
    meet(column, column);
    for (Eigen::SparseMatrix<double>::InnerIterator entry(jacobian, column); entry; ++entry) {
        for (Rows::ReverseInnerIterator other(m_rows, entry.row()); other && other.col() >= column; --other) {
            meet(static_cast<int>(other.col()), column);
            m_sums[static_cast<std::size_t>(other.col())] += entry.value() * other.value();
        }
    }
    std::sort(m_places.begin(), m_places.end());
    m_diagonal[column] = m_sums[static_cast<std::size_t>(column)];
    m_matrix.startVec(column);
    for (const int place : m_places) {
        m_matrix.insertBackByOuterInner(column, place) = m_sums[static_cast<std::size_t>(place)];
    }
}

void VrexNormalMatrix::meet(int place, int column) {
    const auto at = static_cast<std::size_t>(place);
    if (m_marks[at] != column) {
        m_marks[at] = column;
        m_sums[at] = 0.0;
        m_places.push_back(place);
    }
}

const Eigen::SparseMatrix<double>& VrexNormalMatrix::plus(const Eigen::VectorXd& diagonal) {
    for (Eigen::Index column = 0; column < m_matrix.cols(); ++column) {
        m_matrix.valuePtr()[m_matrix.outerIndexPtr()[column]] = m_diagonal[column] + diagonal[column];
    }
    return m_matrix;
}
