#pragma once

#include <cstddef>
#include <vector>

/// Hidden: some neighbouring B-spline basis functions at one parameter, by the recursion of Cox and de Boor.
///
/// N(i, 0) is 1 for U[i] <= t < U[i + 1], else 0; N(i, k) is 0 outside the closed range from U[i] to
/// U[i + k + 1], and inside it (t - U[i]) / (U[i + k] - U[i]) N(i, k - 1) +
/// (U[i + k + 1] - t) / (U[i + k + 1] - U[i + 1]) N(i + 1, k - 1), where a factor whose divisor is exactly 0
/// is 0. A function of a degree is made from two of the degree below, all of which stand side by side here:
/// the recursion itself would take 2^p steps for each.
class VrexCoxDeBoorRow {
public:
    /// Functions `first` to `first` + `count` - 1 of the degree, at `t`.
    const std::vector<double>& calculate(const std::vector<double>& knots, std::size_t degree,
                                         std::size_t first, std::size_t count, double t);

private:
    std::vector<double> m_functions;
};
