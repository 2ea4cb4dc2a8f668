#include "data/geometry/3d/VrexCircleCalculator3D.h"

#include <cmath>
#include <cstddef>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCurveDerivatives.h"

namespace {

template <typename T>
std::vector<VrexVector3DT<T>> evaluate(const VrexVector3DT<T>& center, const T& r,
                                       const VrexAxisFrame3D<T>& frame, const T& t, std::size_t order) {
    using std::cos;
    using std::sin;
    const T cosine = r * cos(t);
    const T sine = r * sin(t);
    const T zero(0.0);
    std::vector<VrexVector3DT<T>> result(order + 1);
    result[0] = frame.combine({cosine, sine, zero});
    if (order >= 1) {
        result[1] = frame.combine({-sine, cosine, zero});
    }
    nsCalculator::fillByOpposites(result);
    // Kept: only the point is put right for a negative radius, its derivatives are not.
    if (r > 0.0) {
        result[0] += center;
    } else if (r <= 0.0) {
        result[0] = center - result[0];
    }
    return result;
}

} // namespace

std::vector<VrexVector3DT<VrexVariable>>
VrexCircleCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                  int order) {
    nsCalculator::requireParameters(parameters, VrexCircle3D::PARAMETERS_AMOUNT);
    if (order < 0) {
        return {};
    }
    return evaluate(nsCalculator::getVector(parameters, VrexCircle3D::X), parameters[VrexCircle3D::RADIUS],
                    {parameters[VrexCircle3D::POLAR], parameters[VrexCircle3D::AZIMUTHAL]}, t,
                    nsCalculator::requireOrder(order));
}

std::vector<VrexVector3DT<double>> VrexCircleCalculator3D::calculate(double t, int order) {
    if (order < 0) {
        return {};
    }
    return evaluate(m_circle.getCenter(), m_circle.getRadius(),
                    m_frame.at(m_circle.getParameter(VrexCircle3D::POLAR),
                               m_circle.getParameter(VrexCircle3D::AZIMUTHAL)),
                    t, nsCalculator::requireOrder(order));
}
