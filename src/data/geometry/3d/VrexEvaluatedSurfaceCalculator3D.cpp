#include "data/geometry/3d/VrexEvaluatedSurfaceCalculator3D.h"

#include <algorithm>

#include "data/geometry/3d/VrexEvaluatedFormulas.h"

namespace {

template <typename T>
VrexVector3DT<T> turnedDerivative(const VrexEvaluatedSurface3D& surface, const std::vector<T>& values,
                                  const VrexQuaternionT<T>& rotation, const std::vector<int>& orders) {
    const std::vector<std::shared_ptr<VrexVar>> by{surface.getU(), surface.getV()};
    return nsEvaluated::turned(surface, rotation, [&](VrexExpressionParser& parser) {
        return nsEvaluated::derivative(parser, values, by, orders);
    });
}

template <typename T>
VrexSurfaceSample<VrexVector3DT<T>> evaluate(const VrexEvaluatedSurface3D& surface,
                                             const std::vector<T>& values, const nsEvaluated::Frame<T>& frame,
                                             int order) {
    using Sample = VrexSurfaceSample<VrexVector3DT<T>>;
    nsEvaluated::requireBound(surface, values.size());
    const int reached = std::min(order, Sample::HIGHEST_ORDER);
    Sample sample;
    sample[0] = nsEvaluated::turned(surface, frame.rotation, [&](VrexExpressionParser& parser) {
        return nsEvaluated::value(parser, values);
    });
    sample[0] += frame.origin;
    for (int i = 0; i <= reached; ++i) {
        for (int j = i == 0 ? 1 : 0; j <= reached; ++j) {
            sample[Sample::index(i, j)] = turnedDerivative(surface, values, frame.rotation, {i, j});
        }
    }
    return sample;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexEvaluatedSurfaceCalculator3D::calculate(const std::vector<VrexVariable>& parameters,
                                            const VrexVariable& u, const VrexVariable& v, int order) {
    std::vector<VrexVariable> values{u, v};
    nsEvaluated::appendDescriptorValues(m_surface, parameters, values);
    if (order < 0) {
        return {};
    }
    auto result =
        evaluate(m_surface, values, nsEvaluated::frameOf<VrexEvaluatedSurface3D>(parameters), order);
    if (isAddZeroDerivatives()) {
        addZeroDerivatives(parameters, result);
    }
    return result;
}

VrexSurfaceSample<VrexVector3DT<double>> VrexEvaluatedSurfaceCalculator3D::calculate(double u, double v,
                                                                                     int order) {
    if (order < 0) {
        return {};
    }
    std::vector<double> values{u, v};
    nsEvaluated::appendDescriptorValues(m_surface, values);
    return evaluate(m_surface, values, nsEvaluated::frameOf(m_surface), order);
}
