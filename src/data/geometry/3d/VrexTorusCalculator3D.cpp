#include "data/geometry/3d/VrexTorusCalculator3D.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexTorus3D.h"

namespace {

template <typename T>
using Sample = VrexSurfaceSample<VrexVector3DT<T>>;

template <typename T>
struct Torus {
    VrexVector3DT<T> center;
    T majorRadius;
    T minorRadius;
};

/// The derivatives of cosine and sine of an angle, by order.
template <typename T>
struct Turn {
    explicit Turn(const T& angle) {
        using std::cos;
        using std::sin;
        const T c = cos(angle);
        const T s = sin(angle);
        cosine = {c, -s, -c};
        sine = {s, c, -s};
    }

    std::array<T, 3> cosine;
    std::array<T, 3> sine;
};

template <typename T>
Sample<T> evaluate(const Torus<T>& torus, const VrexAxisFrame3D<T>& frame, const T& u, const T& v,
                   int order) {
    const auto& [center, R, r] = torus;
    Sample<T> sample;
    const Turn<T> turnU(u);
    const Turn<T> turnV(v);
    const T zero(0.0);
    const int highest = std::min(order, Sample<T>::HIGHEST_ORDER);
    for (int j = 0; j <= highest; ++j) {
        const T tube = turnV.cosine[j] * r;
        const T& spine = j == 0 ? R : zero;
        for (int i = 0; i <= highest; ++i) {
            sample[Sample<T>::index(i, j)] = frame.combine({tube * turnU.cosine[i] + spine * turnU.cosine[i],
                                                            tube * turnU.sine[i] + spine * turnU.sine[i],
                                                            turnV.sine[j] * (i == 0 ? r : zero)});
        }
    }
    if (order >= 0) {
        sample[0] += center;
    }
    return sample;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexTorusCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                 const VrexVariable& v, int order) {
    nsCalculator::requireParameters(parameters, VrexTorus3D::PARAMETERS_AMOUNT);
    return evaluate<VrexVariable>({nsCalculator::getVector(parameters, VrexTorus3D::X),
                                   parameters[VrexTorus3D::MAJOR_RAD], parameters[VrexTorus3D::MINOR_RAD]},
                                  {parameters[VrexTorus3D::POLAR], parameters[VrexTorus3D::AZIMUTHAL]}, u, v,
                                  order);
}

VrexSurfaceSample<VrexVector3DT<double>> VrexTorusCalculator3D::calculate(double u, double v, int order) {
    return evaluate<double>(
        {m_torus.getCenter(), m_torus.getMajorRadius(), m_torus.getMinorRadius()},
        m_frame.at(m_torus.getParameter(VrexTorus3D::POLAR), m_torus.getParameter(VrexTorus3D::AZIMUTHAL)), u,
        v, order);
}
