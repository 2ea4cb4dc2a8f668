#include "data/geometry/3d/VrexEllipseCalculator3D.h"

#include <cmath>
#include <cstddef>

#include "data/VrexQuaternionT.h"
#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexCurveDerivatives.h"
#include "data/geometry/3d/VrexEllipse3D.h"

namespace {

template <typename T>
struct Ellipse {
    VrexVector3DT<T> center;
    VrexQuaternionT<T> rotation;
    T majorRadius;
    T minorRadius;
};

template <typename T>
std::vector<VrexVector3DT<T>> evaluate(const Ellipse<T>& ellipse, const T& t, std::size_t order) {
    using std::cos;
    using std::sin;
    const auto& [center, rotation, a, b] = ellipse;
    const T cosine = cos(t);
    const T sine = sin(t);
    const T zero(0.0);
    std::vector<VrexVector3DT<T>> result(order + 1);
    result[0] = {a * cosine, b * sine, zero};
    if (order >= 1) {
        result[1] = {-(a * sine), b * cosine, zero};
    }
    nsCalculator::fillByOpposites(result);
    for (VrexVector3DT<T>& derivative : result) {
        derivative = VrexQuaternionT<T>::rotate(derivative, rotation, false);
    }
    result[0] += center;
    return result;
}

} // namespace

std::vector<VrexVector3DT<VrexVariable>>
VrexEllipseCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                   int order) {
    nsCalculator::requireParameters(parameters, VrexEllipse3D::PARAMETERS_AMOUNT);
    if (order < 0) {
        return {};
    }
    return evaluate<VrexVariable>({nsCalculator::getVector(parameters, VrexEllipse3D::X),
                                   nsCalculator::getRotation(parameters, VrexEllipse3D::SCALAR),
                                   parameters[VrexEllipse3D::R1], parameters[VrexEllipse3D::R2]},
                                  t, nsCalculator::requireOrder(order));
}

std::vector<VrexVector3DT<double>> VrexEllipseCalculator3D::calculate(double t, int order) {
    if (order < 0) {
        return {};
    }
    return evaluate<double>({m_ellipse.getCenter(), m_ellipse.getRotation(), m_ellipse.getMajorRadius(),
                             m_ellipse.getMinorRadius()},
                            t, nsCalculator::requireOrder(order));
}
