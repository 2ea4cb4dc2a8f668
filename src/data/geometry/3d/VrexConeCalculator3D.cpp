#include "data/geometry/3d/VrexConeCalculator3D.h"

#include <cmath>
#include <numbers>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexCone3D.h"

namespace {

template <typename T>
using Sample = VrexSurfaceSample<VrexVector3DT<T>>;

template <typename T>
Sample<T> evaluate(const VrexVector3DT<T>& origin, const T& alpha, const VrexAxisFrame3D<T>& frame,
                   const T& u, const T& v, int order) {
    using std::cos;
    using std::sin;
    Sample<T> sample;
    if (order < 0) {
        return sample;
    }
    const T s = sin(alpha);
    const T c = cos(alpha);
    const T cosU = cos(u);
    const T sinU = sin(u);
    const T zero(0.0);
    const auto reflect = [isNegative = s < 0.0](const VrexVector3DT<T>& vector) {
        return isNegative ? -vector : vector;
    };
    const T reach = v * s;
    const T x = reach * cosU;
    const T y = reach * sinU;
    sample[Sample<T>::index(0, 0)] = reflect(frame.combine({x, y, v * c})) + origin;
    if (order >= 1) {
        sample[Sample<T>::index(1, 0)] = reflect(frame.combine({-y, x, zero}));
        sample[Sample<T>::index(0, 1)] = reflect(frame.combine({s * cosU, s * sinU, c}));
    }
    if (order >= 2) {
        sample[Sample<T>::index(2, 0)] = reflect(frame.combine({-x, -y, zero}));
        sample[Sample<T>::index(1, 1)] = reflect(frame.combine({-(s * sinU), s * cosU, zero}));
        sample[Sample<T>::index(0, 2)] = frame.combine({zero, zero, zero});
    }
    return sample;
}

/// Whether the cone is a line, which has no normal.
bool isDegenerate(double alpha) {
    constexpr double tolerance = 1e-12;
    return std::fabs(alpha) < tolerance || std::fabs(std::fabs(alpha) - std::numbers::pi) < tolerance;
}

template <typename T>
VrexVector3DT<T> evaluateNormal(const T& alpha, const VrexAxisFrame3D<T>& frame, const T& u) {
    using std::cos;
    using std::sin;
    if (isDegenerate(nsVariableUtils::toValue(alpha))) {
        return VrexVector3DT<T>::ZERO();
    }
    const T c = cos(alpha);
    return frame.combine({c * cos(u), c * sin(u), -sin(alpha)});
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexConeCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                const VrexVariable& v, int order) {
    nsCalculator::requireParameters(parameters, VrexCone3D::PARAMETERS_AMOUNT);
    return evaluate(
        nsCalculator::getVector(parameters, VrexCone3D::X), parameters[VrexCone3D::ALPHA],
        VrexAxisFrame3D<VrexVariable>(parameters[VrexCone3D::POLAR], parameters[VrexCone3D::AZIMUTHAL]), u, v,
        order);
}

VrexSurfaceSample<VrexVector3DT<double>> VrexConeCalculator3D::calculate(double u, double v, int order) {
    return evaluate(
        m_cone.getOrigin(), m_cone.getAperture(),
        m_frame.at(m_cone.getParameter(VrexCone3D::POLAR), m_cone.getParameter(VrexCone3D::AZIMUTHAL)), u, v,
        order);
}

VrexVector3DT<VrexVariable> VrexConeCalculator3D::calculateNormal(const std::vector<VrexVariable>& parameters,
                                                                  const VrexVariable& u,
                                                                  const VrexVariable& /*v*/) {
    nsCalculator::requireParameters(parameters, VrexCone3D::PARAMETERS_AMOUNT);
    return evaluateNormal(
        parameters[VrexCone3D::ALPHA],
        VrexAxisFrame3D<VrexVariable>(parameters[VrexCone3D::POLAR], parameters[VrexCone3D::AZIMUTHAL]), u);
}

VrexVector3DT<double> VrexConeCalculator3D::calculateNormal(double u, double /*v*/) {
    return evaluateNormal(
        m_cone.getAperture(),
        m_frame.at(m_cone.getParameter(VrexCone3D::POLAR), m_cone.getParameter(VrexCone3D::AZIMUTHAL)), u);
}
