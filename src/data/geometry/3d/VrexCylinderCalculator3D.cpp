#include "data/geometry/3d/VrexCylinderCalculator3D.h"

#include <cmath>
#include <utility>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexCylinder3D.h"

namespace {

template <typename T>
using Sample = VrexSurfaceSample<VrexVector3DT<T>>;

template <typename T>
Sample<T> evaluate(const VrexVector3DT<T>& origin, const T& r, const VrexAxisFrame3D<T>& frame, const T& u,
                   const T& v, int order) {
    using std::cos;
    using std::sin;
    Sample<T> sample;
    if (order < 0) {
        return sample;
    }
    const T cosine = r * cos(u);
    const T sine = r * sin(u);
    const T zero(0.0);
    sample[Sample<T>::index(0, 0)] = frame.combine({cosine, sine, v}) + origin;
    if (order >= 1) {
        sample[Sample<T>::index(1, 0)] = frame.combine({-sine, cosine, zero});
        sample[Sample<T>::index(0, 1)] = frame.combine({zero, zero, T(1.0)});
        sample[Sample<T>::index(1, 1)] = frame.combine({zero, zero, zero});
    }
    if (order >= 2) {
        sample[Sample<T>::index(2, 0)] = -frame.combine({cosine, sine, zero});
        for (const auto& [i, j] : {std::pair(0, 2), std::pair(1, 2), std::pair(2, 1), std::pair(2, 2)}) {
            sample[Sample<T>::index(i, j)] = sample[Sample<T>::index(1, 1)];
        }
    }
    return sample;
}

template <typename T>
VrexVector3DT<T> evaluateNormal(const T& r, const VrexAxisFrame3D<T>& frame, const T& u) {
    using std::cos;
    using std::sin;
    if (std::fabs(nsVariableUtils::toValue(r)) < 1e-08) {
        return VrexVector3DT<T>::ZERO();
    }
    const VrexVector3DT<T> normal = frame.combine({cos(u), sin(u), T(0.0)});
    return r < 0.0 ? -normal : normal;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexCylinderCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                    const VrexVariable& v, int order) {
    nsCalculator::requireParameters(parameters, VrexCylinder3D::PARAMETERS_AMOUNT);
    if (order < 0) {
        return {};
    }
    auto sample =
        evaluate(nsCalculator::getVector(parameters, VrexCylinder3D::X), parameters[VrexCylinder3D::RADIUS],
                 VrexAxisFrame3D<VrexVariable>(parameters[VrexCylinder3D::POLAR],
                                               parameters[VrexCylinder3D::AZIMUTHAL]),
                 u, v, order);
    if (isAddZeroDerivatives()) {
        addZeroDerivatives(parameters, sample);
    }
    return sample;
}

VrexSurfaceSample<VrexVector3DT<double>> VrexCylinderCalculator3D::calculate(double u, double v, int order) {
    return evaluate(m_cylinder.getOrigin(), m_cylinder.getRadius(),
                    m_frame.at(m_cylinder.getParameter(VrexCylinder3D::POLAR),
                               m_cylinder.getParameter(VrexCylinder3D::AZIMUTHAL)),
                    u, v, order);
}

VrexVector3DT<VrexVariable>
VrexCylinderCalculator3D::calculateNormal(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                          const VrexVariable& /*v*/) {
    nsCalculator::requireParameters(parameters, VrexCylinder3D::PARAMETERS_AMOUNT);
    return evaluateNormal(parameters[VrexCylinder3D::RADIUS],
                          VrexAxisFrame3D<VrexVariable>(parameters[VrexCylinder3D::POLAR],
                                                        parameters[VrexCylinder3D::AZIMUTHAL]),
                          u);
}

VrexVector3DT<double> VrexCylinderCalculator3D::calculateNormal(double u, double /*v*/) {
    return evaluateNormal(m_cylinder.getRadius(),
                          m_frame.at(m_cylinder.getParameter(VrexCylinder3D::POLAR),
                                     m_cylinder.getParameter(VrexCylinder3D::AZIMUTHAL)),
                          u);
}
