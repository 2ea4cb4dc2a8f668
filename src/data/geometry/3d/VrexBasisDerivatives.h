#pragma once

#include <algorithm>
#include <cstddef>

#include "data/geometry/3d/VrexUnrolled.h"

/// Hidden: the B-spline basis functions that do not vanish on one span of knots, and their derivatives.
///
/// Algorithm A2.3 of Piegl and Tiller, The NURBS Book. Its square table of basis values and knot differences
/// keeps here only the rows that the derivatives of the wanted orders read, so that the room grows with the
/// degree and not with its square. The arrays lie in memory of the caller's. `Degree` and `Order` are
/// `std::size_t`, or an integral constant for loops that the compiler unrolls once all is inlined.
template <typename T, typename Degree = std::size_t, typename Order = std::size_t>
class VrexBasisDerivatives {
public:
    /// How many numbers `scratch` has to hold.
    static constexpr std::size_t scratchSize(std::size_t degree, std::size_t order) {
        return (5 * order + 7) * (degree + 1);
    }

    /// `order` is at most `degree`; `scratch` is assigned to, and outlives this. The derivatives are left at
    /// its beginning, row behind row.
    VrexBasisDerivatives(Degree degree, Order order, T* scratch)
        : m_degree(degree),
          m_order(order),
          m_derivatives(scratch),
          m_lower(m_derivatives + (order + 1) * size()),
          m_differences(m_lower + order * size()),
          m_left(m_differences + (order + 1) * size()),
          m_right(m_left + size()),
          m_ratios(m_right + size()),
          m_coefficients(m_ratios + size()) {}

    /// `span` points to knot U[s], where p + 1 knots before and p knots behind it exist.
    [[gnu::always_inline]] void calculate(const double* span, const T& t) {
        calculateBasis(span, t);
        std::fill_n(m_coefficients, size(), T(1.0));
        nsUnrolled::repeat(m_order, [this](std::size_t k) { differentiate(k + 1); });
    }

private:
    std::size_t size() const { return m_degree + 1; }
    /// The functions of degree p - k, for k from 1 to the order.
    T* lowerRow(std::size_t k) { return m_lower + (k - 1) * size(); }
    /// The knot differences that divide the functions of degree p - k, for k from 1 to the order; row 0 takes
    /// those that nobody asks for.
    T* differenceRow(std::size_t k) { return m_differences + k * size(); }

    [[gnu::always_inline]] void calculateBasis(const double* span, const T& t) {
        T* const N = m_derivatives;
        N[0] = T(1.0);
        nsUnrolled::repeat(m_degree, [&](std::size_t i) {
            const std::size_t j = i + 1;
            m_left[j] = t - *(span + 1 - j);
            m_right[j] = span[j] - t;
            const std::size_t k = m_degree - j + 1;
            if (k <= m_order) {
                std::copy(N, N + j, lowerRow(k));
            }
            raiseDegree(j, differenceRow(k <= m_order ? k : 0));
        });
    }

    /// From the j functions of degree j - 1 to those of degree j.
    [[gnu::always_inline]] void raiseDegree(std::size_t j, T* differences) {
        T* const N = m_derivatives;
        for (std::size_t r = 0; r < j; ++r) {
            differences[r] = m_right[r + 1] + m_left[j - r];
            m_ratios[r] = N[r] / differences[r];
        }
        T saved(0.0);
        for (std::size_t r = 0; r < j; ++r) {
            N[r] = saved + m_right[r + 1] * m_ratios[r];
            saved = m_left[j - r] * m_ratios[r];
        }
        N[j] = saved;
    }

    /// The derivatives of order k: for each function r the sum over i of a[k][i] N(r - k + i) of degree p -
    /// k, where a[k][i] is (a[k - 1][i] - a[k - 1][i - 1]) over a knot difference. The coefficients of all r
    /// stand side by side.
    [[gnu::always_inline]] void differentiate(std::size_t k) {
        T* const sums = m_derivatives + k * size();
        const T* const N = lowerRow(k);
        const T* const differences = differenceRow(k);
        std::fill_n(sums, size(), T(0.0));
        for (std::size_t i = 0; i <= k; ++i) {
            T* const a = coefficients(k, i);
            for (std::size_t q = 0; q <= m_degree - k; ++q) {
                const std::size_t r = q + k - i;
                a[r] = stepOf(k, i, r) / differences[q];
                sums[r] += a[r] * N[q];
            }
        }
        multiplyByFactorial(k, sums);
    }

    T stepOf(std::size_t k, std::size_t i, std::size_t r) {
        if (i == 0) {
            return coefficients(k - 1, i)[r];
        }
        const T& last = coefficients(k - 1, i - 1)[r];
        return i == k ? -last : coefficients(k - 1, i)[r] - last;
    }

    /// Row i of those of order k, of which two are kept.
    T* coefficients(std::size_t k, std::size_t i) {
        return m_coefficients + (k % 2 * (m_order + 1) + i) * size();
    }

    /// By p! / (p - k)!.
    void multiplyByFactorial(std::size_t k, T* sums) const {
        double factor = 1.0;
        for (std::size_t i = 0; i < k; ++i) {
            factor *= static_cast<double>(m_degree - i);
        }
        for (std::size_t r = 0; r < size(); ++r) {
            sums[r] *= factor;
        }
    }

    Degree m_degree;
    Order m_order;
    T* m_derivatives;
    T* m_lower;
    T* m_differences;
    T* m_left;
    T* m_right;
    T* m_ratios;
    T* m_coefficients;
};

/// Hidden: those functions for any scalar, or, for plain numbers, by loops that are unrolled where degree and
/// order are of the usual size.
namespace nsBasis {

/// Row k of `scratch`, which has the size that `VrexBasisDerivatives` wants, becomes the derivatives of order
/// k of the degree + 1 functions, N(s - p) first. `span` points to knot U[s].
template <typename T>
void differentiate(std::size_t degree, std::size_t order, const double* span, const T& t, T* scratch) {
    VrexBasisDerivatives<T>(degree, order, scratch).calculate(span, t);
}
template <>
void differentiate(std::size_t degree, std::size_t order, const double* span, const double& t,
                   double* scratch);

} // namespace nsBasis
