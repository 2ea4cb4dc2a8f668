#pragma once

#include <cstddef>
#include <vector>

#include "data/geometry/3d/VrexBinomials.h"
#include "data/geometry/3d/VrexSpline3D.h"

/// Hidden: the degree + 1 control points that a spline depends on at one parameter, their weights, and the
/// derivatives of their basis functions.
///
/// Takes degree and periodicity from the spline once, and refers to its knots, which it must not outlive. The
/// arrays are kept between calls and only grow.
class VrexSplineWindow {
public:
    using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

    explicit VrexSplineWindow(const VrexSpline3D& spline);

    /// Goes to parameter `t` and prepares derivatives up to `order`. Throws `std::invalid_argument` when the
    /// knots do not fit the degree or a control point is missing.
    void move(double t, std::size_t order, const ControlPoints& controlPoints);

    std::size_t degree() const { return m_degree; }
    std::size_t size() const { return m_degree + 1; }
    /// Where control point j of the window stands in the spline; a periodic spline begins again behind its
    /// last one.
    std::size_t controlIndex(std::size_t j) const {
        const std::size_t index = m_first + j;
        return index < m_controlCount ? index : index - m_controlCount;
    }
    double weight(std::size_t j) const { return m_weights[j]; }
    /// The derivatives of order k of the basis functions of the window; all zero above the degree.
    const double* basis(std::size_t k) const { return m_basis.data() + k * size(); }
    const VrexBinomials& binomials() const { return m_binomials; }

private:
    void requireControlPoints(std::size_t span, const ControlPoints& controlPoints) const;

    std::size_t m_degree;
    bool m_periodic;
    const std::vector<double>* m_knots;
    std::size_t m_first = 0;
    std::size_t m_controlCount = 0;
    std::vector<double> m_weights;
    std::vector<double> m_basis; ///< Derivatives by rows, then scratch.
    VrexBinomials m_binomials;
};
