#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexRationalRule.h"
#include "data/geometry/3d/VrexSplineWindow.h"

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
        std::vector<Vector> A(order + 1);
        m_w.resize(d + 1);
        m_points.resize(m_window.size());
        for (std::size_t j = 0; j < m_window.size(); ++j) {
            m_points[j] = positionAt(m_window.controlIndex(j));
        }
        for (std::size_t k = 0; k <= d; ++k) {
            T w(0.0);
            Vector sum;
            for (std::size_t j = 0; j < m_window.size(); ++j) {
                const T factor = m_window.weight(j) * basisAt(k, j, t);
                sum += m_points[j] * factor;
                w += factor;
            }
            A[k] = sum;
            m_w[k] = w;
        }
        nsRational::applyRule(
            d, m_w.data(), m_window.binomials(),
            [&A](std::size_t k, std::size_t i, const T& factor) { A[k] -= A[i] * factor; },
            [&A](std::size_t k, const T& divisor) { A[k] = A[k] / divisor; });
        return A;
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
