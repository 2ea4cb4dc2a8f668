#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexRationalRule.h"
#include "data/geometry/3d/VrexSplineWindow.h"
#include "data/geometry/3d/VrexUnrolled.h"

/// Hidden: evaluates a spline over one scalar, by its operators.
///
/// A basis value depends on t too: where t has a derivative, by one variable, t is taken to be that variable,
/// and the entry of each basis value is the basis value of the next order.
template <typename T>
class VrexGeneralCalculator {
public:
    using Vector = VrexVector3DT<T>;
    using ControlPoints = VrexSplineWindow::ControlPoints;

    /// Refers to the spline's knots; see `VrexSplineWindow`.
    explicit VrexGeneralCalculator(const VrexSpline3D& spline) : m_window(spline) {}

    /// The point at `t` and its derivatives of orders 1 to `order`; those above the degree are zero.
    /// `positionAt(i)` is the position of control point i. Throws `std::runtime_error` for a t of several
    /// derivatives and what `VrexSplineWindow::move` throws.
    template <typename PositionAt>
    std::vector<Vector> calculate(const T& t, std::size_t order, const ControlPoints& controlPoints,
                                  const PositionAt& positionAt) {
        const std::size_t d = std::min(order, m_window.degree());
        m_window.move(nsVariableUtils::toValue(t), d + countDerivatives(t), controlPoints);
        std::vector<Vector> result(order + 1);
        if constexpr (std::is_same_v<T, double>) {
            nsUnrolled::call(m_window.degree(), d,
                             [&](auto p, auto k) { combine(p, k, t, positionAt, result.data()); });
        } else {
            combine(m_window.degree(), d, t, positionAt, result.data());
        }
        return result;
    }

    /// Of t, at most one.
    static std::size_t countDerivatives(double /*t*/) { return 0; }
    static std::size_t countDerivatives(const VrexVariable& t) {
        if (t.derivatives().size() > 1) {
            VREX_RAISE(std::runtime_error,
                       "VrexGeneralCalculator: parameter t has more than one derivatives");
        }
        return t.derivatives().size();
    }

private:
    template <typename PositionAt>
    void combine(std::size_t degree, std::size_t order, const T& t, const PositionAt& positionAt, Vector* A) {
        m_points.resize(degree + 1);
        m_w.resize(order + 1);
        addAndDivide(degree, order, t, positionAt, m_points.data(), A, m_w.data());
    }
    /// In arrays that the compiler keeps in registers.
    template <std::size_t Degree, std::size_t Order, typename PositionAt>
    void combine(nsUnrolled::Constant<Degree> degree, nsUnrolled::Constant<Order> order, const T& t,
                 const PositionAt& positionAt, Vector* result) {
        std::array<Vector, Degree + 1> points;
        std::array<Vector, Order + 1> A;
        std::array<T, Order + 1> w;
        addAndDivide(degree, order, t, positionAt, points.data(), A.data(), w.data());
        nsUnrolled::repeat(nsUnrolled::Constant<Order + 1>(), [&](std::size_t k) { result[k] = A[k]; });
    }

    template <typename Degree, typename Order, typename PositionAt>
    [[gnu::always_inline]] void addAndDivide(Degree degree, Order order, const T& t,
                                             const PositionAt& positionAt, Vector* points, Vector* A, T* w) {
        for (std::size_t j = 0; j <= degree; ++j) {
            points[j] = positionAt(m_window.controlIndex(j));
        }
        for (std::size_t k = 0; k <= order; ++k) {
            T weights(0.0);
            Vector sum;
            for (std::size_t j = 0; j <= degree; ++j) {
                const T factor = m_window.weight(j) * basisAt(k, j, t);
                sum += points[j] * factor;
                weights += factor;
            }
            A[k] = sum;
            w[k] = weights;
        }
        nsRational::applyRule(
            order, w, m_window.binomials(),
            [A](std::size_t k, std::size_t i, const T& factor) { A[k] -= A[i] * factor; },
            [A](std::size_t k, const T& divisor) { A[k] = A[k] / divisor; });
    }

    double basisAt(std::size_t k, std::size_t j, double /*t*/) const { return m_window.basis(k)[j]; }
    VrexVariable basisAt(std::size_t k, std::size_t j, const VrexVariable& t) const {
        VrexVariable basis(m_window.basis(k)[j], t);
        for (const auto& entry : t.derivatives()) {
            basis.derivatives().set(entry.key, m_window.basis(k + 1)[j]);
        }
        return basis;
    }

    VrexSplineWindow m_window;
    std::vector<Vector> m_points; ///< The positions in the window.
    std::vector<T> m_w;           ///< The derivatives of the sum of the weights.
};
