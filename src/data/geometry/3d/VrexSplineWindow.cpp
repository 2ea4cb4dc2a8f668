#include "data/geometry/3d/VrexSplineWindow.h"

#include <algorithm>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexBasisDerivatives.h"
#include "data/geometry/3d/VrexKnots.h"

VrexSplineWindow::VrexSplineWindow(const VrexSpline3D& spline)
    : m_degree(nsKnots::requireSpans(spline.knots(), spline.degree())),
      m_periodic(spline.periodic()),
      m_knots(&spline.knots()) {}

void VrexSplineWindow::move(double t, std::size_t order, const ControlPoints& controlPoints) {
    // Looked at again in each call: the knots may have changed since.
    nsKnots::requireSpans(*m_knots, static_cast<int>(m_degree));
    const std::size_t span = nsKnots::findSpan(*m_knots, m_degree, t);
    requireControlPoints(span, controlPoints);
    m_first = span - m_degree;
    m_controlCount = controlPoints.size();
    m_weights.resize(size());
    for (std::size_t j = 0; j < size(); ++j) {
        m_weights[j] = controlPoints[controlIndex(j)].weight;
    }
    const std::size_t reached = std::min(order, m_degree);
    m_binomials.reach(order);
    const std::size_t room = VrexBasisDerivatives<double>::scratchSize(m_degree, reached);
    m_basis.resize(std::max({m_basis.size(), room, (order + 1) * size()}));
    nsBasis::differentiate(m_degree, reached, m_knots->data() + span, t, m_basis.data());
    std::fill_n(m_basis.begin() + static_cast<std::ptrdiff_t>((reached + 1) * size()),
                (order - reached) * size(), 0.0);
}

void VrexSplineWindow::requireControlPoints(std::size_t span, const ControlPoints& controlPoints) const {
    const std::size_t count = controlPoints.size();
    const std::size_t wrapped = m_periodic && m_degree <= count ? m_degree : 0;
    const bool isNull = std::any_of(controlPoints.begin(), controlPoints.end(),
                                    [](const auto& controlPoint) { return controlPoint.point == nullptr; });
    if (span >= count + wrapped || isNull) {
        VREX_RAISE(std::invalid_argument, "Broken internal state: a control point is missing.");
    }
}
