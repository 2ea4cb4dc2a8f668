#include "data/geometry/3d/VrexSpinSurfaceCalculator3D.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexDrawnSurface.h"

namespace {

/// The axis line: a point of it and its direction.
template <typename T>
struct Axis {
    VrexVector3DT<T> origin;
    VrexVector3DT<T> direction;
};

/// M w, the columns of M being the images of the unit vectors.
template <typename T>
VrexVector3DT<T> multiply(const std::tuple<VrexVector3DT<T>, VrexVector3DT<T>, VrexVector3DT<T>>& columns,
                          const VrexVector3DT<T>& w) {
    return std::get<0>(columns) * w.x() + std::get<1>(columns) * w.y() + std::get<2>(columns) * w.z();
}

/// The derivative of order i by the angle, from the vector w that is turned:
/// w, a x w, a (a . w) - w, and so on, in the signs that the grid has.
template <typename T>
VrexVector3DT<T> deriveByAngle(const VrexVector3DT<T>& w, const VrexVector3DT<T>& a, int i) {
    if (i == 0) {
        return w;
    }
    const VrexVector3DT<T> derivative = i % 2 != 0 ? a.crossProduct(w) : a * a.dotProduct(w) - w;
    // Kept: a (a . w) - w is the second derivative as it stands; negated it has the opposite sign.
    return i % 4 >= 2 ? -derivative : derivative;
}

template <typename T>
VrexSurfaceSample<VrexVector3DT<T>> spin(const std::vector<VrexVector3DT<T>>& profile, const Axis<T>& axis,
                                         const T& v, int order) {
    using Sample = VrexSurfaceSample<VrexVector3DT<T>>;
    Sample sample;
    const auto matrix = VrexVector3DT<T>::getRotationMatrixAroundAxis(axis.direction, v);
    for (int j = 0; j <= order; ++j) {
        const VrexVector3DT<T>& c = profile[static_cast<std::size_t>(j)];
        const VrexVector3DT<T> turned = multiply(matrix, j == 0 ? c - axis.origin : c);
        for (int i = 0; i <= order; ++i) {
            sample[Sample::index(i, j)] = deriveByAngle(turned, axis.direction, i);
        }
    }
    sample[0] += axis.origin;
    return sample;
}

} // namespace

VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexSpinSurfaceCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& u,
                                       const VrexVariable& v, int order) {
    requireCurves();
    nsDrawn::requireParameters(parameters, *m_surface.getProfileCurve());
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, VrexSurfaceSample<VrexVariable>::HIGHEST_ORDER);
    const int line = nsDrawn::firstLineSlot(parameters);
    const Axis<VrexVariable> axis{nsCalculator::getVector(parameters, line + VrexLine3D::X),
                                  nsCalculator::getDirection(parameters, line + VrexLine3D::POLAR)};
    return spin(m_surface.getProfileCurve()->evaluate(parameters, u, reached), axis, v, reached);
}

VrexSurfaceSample<VrexVector3DT<double>> VrexSpinSurfaceCalculator3D::calculate(double u, double v,
                                                                                int order) {
    requireCurves();
    if (order < 0) {
        return {};
    }
    const int reached = std::min(order, VrexSurfaceSample<double>::HIGHEST_ORDER);
    const VrexLine3D& line = *m_surface.getAxisLine();
    const Axis<double> axis{line.getOrigin(), line.getDirection()};
    return spin(m_surface.getProfileCurve()->evaluate(u, reached), axis, v, reached);
}

void VrexSpinSurfaceCalculator3D::requireCurves() const {
    if (m_surface.getProfileCurve() == nullptr || m_surface.getAxisLine() == nullptr) {
        VREX_RAISE(std::invalid_argument, "The spin surface lacks its profile curve or its axis line.");
    }
}
