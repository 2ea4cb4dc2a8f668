#include "data/geometry/3d/VrexSplineGradient.h"

#include <algorithm>

#include "data/geometry/3d/VrexGeneralCalculator.h"
#include "data/geometry/3d/VrexRationalRule.h"

std::vector<VrexSplineGradient::Vector>
VrexSplineGradient::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                              std::size_t order, const ControlPoints& controlPoints,
                              bool addZeroDerivatives) {
    const std::size_t d = std::min(order, m_window.degree());
    const std::size_t reached = d + VrexGeneralCalculator<VrexVariable>::countDerivatives(t);
    m_window.move(t.value(), reached, controlPoints);
    combine(parameters, reached);
    m_layout.learn(parameters);
    std::vector<Vector> result(order + 1);
    for (std::size_t component = 0; component < 3; ++component) {
        layOut(t, component, addZeroDerivatives);
        for (std::size_t k = 0; k <= d; ++k) {
            assign(result[k][static_cast<int>(component)], k, component, parameters, t);
        }
    }
    if (addZeroDerivatives && d < order) {
        fillWithZeros(std::span(result).subspan(d + 1));
    }
    return result;
}

void VrexSplineGradient::fillWithZeros(std::span<Vector> vectors) {
    m_layout.clear();
    m_layout.addRest();
    for (Vector& vector : vectors) {
        m_layout.fill(vector.x().derivatives());
        m_layout.fill(vector.y().derivatives());
        m_layout.fill(vector.z().derivatives());
    }
}

void VrexSplineGradient::combine(const std::vector<VrexVariable>& parameters, std::size_t order) {
    const std::size_t width = 3 + m_window.size();
    m_rows.assign((order + 1) * width, 0.0);
    m_w.assign(order + 1, 0.0);
    for (std::size_t j = 0; j < m_window.size(); ++j) {
        const VrexVariable* const P = parameters.data() + parameterOf(j, 0);
        for (std::size_t k = 0; k <= order; ++k) {
            const double factor = m_window.weight(j) * m_window.basis(k)[j];
            double* const A = row(k);
            A[0] += P[0].value() * factor;
            A[1] += P[1].value() * factor;
            A[2] += P[2].value() * factor;
            A[3 + j] = factor;
            m_w[k] += factor;
        }
    }
    nsRational::applyRule(
        order, m_w.data(), m_window.binomials(),
        [this, width](std::size_t k, std::size_t i, double factor) {
            std::transform(row(k), row(k) + width, row(i), row(k),
                           [factor](double a, double b) { return a - b * factor; });
        },
        [this, width](std::size_t k, double divisor) {
            std::for_each(row(k), row(k) + width, [divisor](double& a) { a /= divisor; });
        });
}

void VrexSplineGradient::layOut(const VrexVariable& t, std::size_t component, bool addZeroDerivatives) {
    m_layout.clear();
    for (std::size_t j = 0; j < m_window.size(); ++j) {
        m_layout.addParameter(parameterOf(j, component));
        if (j == 0 && !t.derivatives().empty()) {
            m_layout.addKey(t.derivatives().begin()->key);
        }
    }
    if (addZeroDerivatives) {
        m_layout.addRest();
    }
}

void VrexSplineGradient::assign(VrexVariable& result, std::size_t k, std::size_t component,
                                const std::vector<VrexVariable>& parameters, const VrexVariable& t) const {
    result.setValue(row(k)[component]);
    m_layout.fill(result.derivatives());
    for (std::size_t j = 0; j < m_window.size(); ++j) {
        const std::size_t parameter = parameterOf(j, component);
        m_layout.accumulate(result.derivatives(), parameter, parameters[parameter].derivatives(),
                            row(k)[3 + j]);
    }
    if (!t.derivatives().empty()) {
        m_layout.accumulateKey(result.derivatives(), row(k + 1)[component]);
    }
}
