#include "data/geometry/3d/VrexEvaluatedCurveCalculator3D.h"

#include <cstddef>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexEvaluatedFormulas.h"

namespace {

template <typename T>
std::vector<VrexVector3DT<T>> evaluate(const VrexEvaluatedCurve3D& curve, const std::vector<T>& values,
                                       const nsEvaluated::Frame<T>& frame, std::size_t order) {
    nsEvaluated::requireBound(curve, values.size());
    const auto t = curve.getT();
    std::vector<VrexVector3DT<T>> result;
    for (std::size_t k = 0; k <= order; ++k) {
        result.push_back(nsEvaluated::turned(curve, frame.rotation, [&](VrexExpressionParser& parser) {
            return nsEvaluated::derivative(parser, values, t, k);
        }));
    }
    result[0] += frame.origin;
    return result;
}

} // namespace

std::vector<VrexVector3DT<VrexVariable>>
VrexEvaluatedCurveCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                          int order) {
    std::vector<VrexVariable> values{t};
    nsEvaluated::appendDescriptorValues(m_curve, parameters, values);
    if (order < 0) {
        return {};
    }
    auto result = evaluate(m_curve, values, nsEvaluated::frameOf<VrexEvaluatedCurve3D>(parameters),
                           nsCalculator::requireOrder(order));
    if (isAddZeroDerivatives()) {
        addZeroDerivatives(parameters, result);
    }
    return result;
}

std::vector<VrexVector3DT<double>> VrexEvaluatedCurveCalculator3D::calculate(double t, int order) {
    if (order < 0) {
        return {};
    }
    std::vector<double> values{t};
    nsEvaluated::appendDescriptorValues(m_curve, values);
    return evaluate(m_curve, values, nsEvaluated::frameOf(m_curve), nsCalculator::requireOrder(order));
}
