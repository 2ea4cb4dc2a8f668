#include "data/geometry/3d/VrexCoxDeBoorRow.h"

namespace {

/// N(0, k) of the knots that begin at `U`, from `lower` = N(0, k - 1) and N(1, k - 1).
double raiseDegree(const double* U, std::size_t k, const double* lower, double t) {
    if (t < U[0] || t > U[k + 1]) {
        return 0.0;
    }
    const double a = U[k] - U[0];
    const double b = U[k + 1] - U[1];
    const double left = a == 0.0 ? 0.0 : (t - U[0]) / a;
    const double right = b == 0.0 ? 0.0 : (U[k + 1] - t) / b;
    return left * lower[0] + right * lower[1];
}

} // namespace

const std::vector<double>& VrexCoxDeBoorRow::calculate(const std::vector<double>& knots, std::size_t degree,
                                                       std::size_t first, std::size_t count, double t) {
    const double* const U = knots.data() + first;
    m_functions.resize(count + degree);
    for (std::size_t i = 0; i < m_functions.size(); ++i) {
        m_functions[i] = U[i] <= t && t < U[i + 1] ? 1.0 : 0.0;
    }
    for (std::size_t k = 1; k <= degree; ++k) {
        for (std::size_t i = 0; i < count + degree - k; ++i) {
            m_functions[i] = raiseDegree(U + i, k, &m_functions[i], t);
        }
    }
    m_functions.resize(count);
    return m_functions;
}
