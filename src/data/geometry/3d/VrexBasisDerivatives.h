#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>

/// Hidden: the B-spline basis functions that do not vanish on one span of knots, and their derivatives.
///
/// Algorithm A2.3 of Piegl and Tiller, The NURBS Book. Its square table of basis values and knot differences
/// keeps here only the rows that the derivatives of the wanted orders read, so that the room grows with the
/// degree and not with its square. The arrays lie in memory of the caller's. `Degree` and `Order` are
/// `std::size_t`, or an integral constant for loops that the compiler unrolls.
template <typename T, typename Degree = std::size_t, typename Order = std::size_t>
class VrexBasisDerivatives {
public:
    /// How many numbers `scratch` has to hold.
    static constexpr std::size_t scratchSize(std::size_t degree, std::size_t order) {
        return (3 * order + 4) * (degree + 1) + 2 * (order + 1);
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
          m_coefficients(m_right + size()) {}

    /// `span` points to knot U[s], where p + 1 knots before and p knots behind it exist.
    void calculate(const double* span, const T& t) {
        calculateBasis(span, t);
        for (std::size_t r = 0; r < size(); ++r) {
            differentiate(r);
        }
        multiplyByFactorials();
    }

private:
    std::size_t size() const { return m_degree + 1; }
    /// The functions of degree p - k, for k from 1 to the order.
    T* lowerRow(std::size_t k) { return m_lower + (k - 1) * size(); }
    /// The knot differences that divide the functions of degree p - k, for k from 1 to the order; row 0 takes
    /// those that nobody asks for.
    T* differenceRow(std::size_t k) { return m_differences + k * size(); }

    void calculateBasis(const double* span, const T& t) {
        T* const N = m_derivatives;
        N[0] = T(1.0);
        for (std::size_t j = 1; j <= m_degree; ++j) {
            m_left[j] = t - *(span + 1 - j);
            m_right[j] = span[j] - t;
            const std::size_t k = m_degree - j + 1;
            if (k <= m_order) {
                std::copy(N, N + j, lowerRow(k));
            }
            raiseDegree(j, differenceRow(k <= m_order ? k : 0));
        }
    }

    /// From the j functions of degree j - 1 to those of degree j.
    void raiseDegree(std::size_t j, T* differences) {
        T* const N = m_derivatives;
        T saved(0.0);
        for (std::size_t r = 0; r < j; ++r) {
            differences[r] = m_right[r + 1] + m_left[j - r];
            const T ratio = N[r] / differences[r];
            N[r] = saved + m_right[r + 1] * ratio;
            saved = m_left[j - r] * ratio;
        }
        N[j] = saved;
    }

    /// The derivatives of function r, still without the factor p! / (p - k)!.
    void differentiate(std::size_t r) {
        T* before = m_coefficients;
        T* now = m_coefficients + m_order + 1;
        before[0] = T(1.0);
        for (std::size_t k = 1; k <= m_order; ++k) {
            m_derivatives[k * size() + r] = combineLower(r, k, before, now);
            std::swap(before, now);
        }
    }

    /// Sum over i of a[k][i] N(r - k + i) of degree p - k, where a[k] is made from a[k - 1].
    T combineLower(std::size_t r, std::size_t k, const T* before, T* now) {
        const std::size_t lowest = m_degree - k; // the degree
        const T* const N = lowerRow(k);
        const T* const differences = differenceRow(k);
        T sum(0.0);
        if (r >= k) {
            now[0] = before[0] / differences[r - k];
            sum = now[0] * N[r - k];
        }
        const std::size_t first = r + 1 >= k ? 1 : k - r;
        const std::size_t last = r <= lowest + 1 ? k - 1 : m_degree - r;
        for (std::size_t i = first; i <= last; ++i) {
            now[i] = (before[i] - before[i - 1]) / differences[r + i - k];
            sum += now[i] * N[r + i - k];
        }
        if (r <= lowest) {
            now[k] = -before[k - 1] / differences[r];
            sum += now[k] * N[r];
        }
        return sum;
    }

    void multiplyByFactorials() {
        double factor = static_cast<double>(m_degree);
        for (std::size_t k = 1; k <= m_order; ++k) {
            T* const derivatives = m_derivatives + k * size();
            for (std::size_t j = 0; j < size(); ++j) {
                derivatives[j] *= factor;
            }
            factor *= static_cast<double>(m_degree - k);
        }
    }

    Degree m_degree;
    Order m_order;
    T* m_derivatives;
    T* m_lower;
    T* m_differences;
    T* m_left;
    T* m_right;
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
