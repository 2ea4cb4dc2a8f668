#pragma once

#include <cstddef>
#include <vector>

/// Hidden: Pascal's triangle, as far as it was asked for. Doubles, since integers would overflow above row
/// 66.
class VrexBinomials {
public:
    /// Makes sure of rows 0 to `row`.
    void reach(std::size_t row) {
        for (; m_rows <= row; ++m_rows) {
            const std::size_t first = m_numbers.size();
            m_numbers.resize(first + m_rows + 1, 1.0);
            for (std::size_t i = 1; i < m_rows; ++i) {
                m_numbers[first + i] = m_numbers[first - m_rows + i - 1] + m_numbers[first - m_rows + i];
            }
        }
    }
    /// n over i, for a row that was reached.
    double operator()(std::size_t n, std::size_t i) const { return m_numbers[n * (n + 1) / 2 + i]; }

private:
    std::size_t m_rows = 0;
    std::vector<double> m_numbers;
};
