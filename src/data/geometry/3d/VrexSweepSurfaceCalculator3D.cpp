#include "data/geometry/3d/VrexSweepSurfaceCalculator3D.h"

#include <algorithm>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexDrawnSurface.h"

namespace {

template <typename T>
VrexSurfaceSample<VrexVector3DT<T>> sweep(const std::vector<VrexVector3DT<T>>& profile,
                                          const VrexVector3DT<T>& direction, const T& v, int order) {
    using Sample = VrexSurfaceSample<VrexVector3DT<T>>;
    Sample sample;
    for (int i = 0; i <= order; ++i) {
        sample[Sample::index(i, 0)] =
            profile[static_cast<std::size_t>(i)] + (i == 0 ? direction * v : VrexVector3DT<T>::ZERO());
        if (order >= 1) {
            sample[Sample::index(i, 1)] = direction;
        }
    }
    return sample;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexSweepSurfaceCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                        const VrexVariable& v, int order) {
    requireCurves();
    nsDrawn::requireParameters(parameters, *m_surface.getProfileCurve());
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, VrexSurfaceSample<VrexVariable>::HIGHEST_ORDER);
    const auto direction =
        nsCalculator::getDirection(parameters, nsDrawn::firstLineSlot(parameters) + VrexLine3D::POLAR);
    return sweep(m_surface.getProfileCurve()->evaluate(parameters, u, reached), direction, v, reached);
}

VrexSurfaceSample<VrexVector3DT<double>> VrexSweepSurfaceCalculator3D::calculate(double u, double v,
                                                                                 int order) {
    requireCurves();
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, VrexSurfaceSample<double>::HIGHEST_ORDER);
    return sweep(m_surface.getProfileCurve()->evaluate(u, reached),
                 m_surface.getTrajectoryLine()->getDirection(), v, reached);
}

void VrexSweepSurfaceCalculator3D::requireCurves() const {
    if (m_surface.getProfileCurve() == nullptr || m_surface.getTrajectoryLine() == nullptr) {
        VREX_RAISE(std::invalid_argument,
                   "The sweep surface lacks its profile curve or its trajectory line.");
    }
}
