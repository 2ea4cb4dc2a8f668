#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexGradientLayout.h"
#include "data/geometry/3d/VrexSplineWindow.h"

/// Hidden: evaluates a spline over differentiable parameters without their operators.
///
/// Each result is a linear combination of the control points of one window, whose factors, the rational basis
/// functions, are the derivatives by them: plain numbers do the work, and each store is built once. Gives the
/// values, keys and order of keys that `VrexGeneralCalculator` gives, as long as nothing is logged.
class VrexSplineGradient {
public:
    using ControlPoints = VrexSplineWindow::ControlPoints;
    using Vector = VrexVector3DT<VrexVariable>;

    /// Refers to the spline's knots; see `VrexSplineWindow`.
    explicit VrexSplineGradient(const VrexSpline3D& spline) : m_window(spline) {}

    /// As `VrexGeneralCalculator::calculate`, of the control points whose coordinates are `parameters`, three
    /// each. With `addZeroDerivatives` every component depends on every parameter.
    std::vector<Vector> calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                  std::size_t order, const ControlPoints& controlPoints,
                                  bool addZeroDerivatives);

private:
    void combine(const std::vector<VrexVariable>& parameters, std::size_t order);
    void layOut(const VrexVariable& t, std::size_t component, bool addZeroDerivatives);
    void assign(VrexVariable& result, std::size_t k, std::size_t component,
                const std::vector<VrexVariable>& parameters, const VrexVariable& t) const;
    /// Lets zero vectors depend on every parameter.
    void fillWithZeros(std::span<Vector> vectors);
    std::size_t parameterOf(std::size_t j, std::size_t component) const {
        return 3 * m_window.controlIndex(j) + component;
    }

    /// Derivatives of one order: the point, then the rational basis functions of the window.
    double* row(std::size_t k) { return m_rows.data() + k * (3 + m_window.size()); }
    const double* row(std::size_t k) const { return m_rows.data() + k * (3 + m_window.size()); }

    VrexSplineWindow m_window;
    VrexGradientLayout m_layout;
    std::vector<double> m_rows;
    std::vector<double> m_w; ///< The derivatives of the sum of the weights.
};
