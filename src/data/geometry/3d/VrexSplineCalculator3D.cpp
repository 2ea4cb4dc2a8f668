#include "data/geometry/3d/VrexSplineCalculator3D.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexGeneralCalculator.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSplineGradient.h"

namespace {

struct Differentiable {
    explicit Differentiable(const VrexSpline3D& spline) : general(spline), gradient(spline) {}

    VrexGeneralCalculator<VrexVariable> general;
    VrexSplineGradient gradient;
};

/// In the range of a periodic spline, whose ends may be given in either order.
template <typename T>
T reduced(const VrexSpline3D& spline, const T& t) {
    using std::floor;
    const auto [start, end] = spline.interval();
    const double lowest = std::min(*start, *end);
    const double period = std::fabs(*end - *start);
    return t - floor((t - lowest) / period) * period;
}

bool isAnyLogged(const std::vector<VrexVariable>& parameters, const VrexVariable& t) {
    return t.hasLog() || std::any_of(parameters.begin(), parameters.end(),
                                     [](const VrexVariable& parameter) { return parameter.hasLog(); });
}

} // namespace

struct VrexSplineCalculator3D::Engines {
    std::optional<VrexGeneralCalculator<double>> plain;
    std::optional<Differentiable> differentiable;
};

VrexSplineCalculator3D::VrexSplineCalculator3D(const VrexSpline3D& spline) : m_spline(spline) {}

VrexSplineCalculator3D::VrexSplineCalculator3D(const VrexSplineCalculator3D& other)
    : VrexParametricCurveCalculator3D(other), m_spline(other.m_spline) {
    if (other.m_engines != nullptr) {
        m_engines = std::make_unique<Engines>(*other.m_engines);
    }
}

VrexSplineCalculator3D::~VrexSplineCalculator3D() = default;

VrexSplineCalculator3D::Engines& VrexSplineCalculator3D::engines() {
    if (m_engines == nullptr) {
        m_engines = std::make_unique<Engines>();
    }
    return *m_engines;
}

std::vector<VrexVector3DT<VrexVariable>>
VrexSplineCalculator3D::calculate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                  int order) {
    const auto& controlPoints = m_spline.controlPoints();
    nsCalculator::requireParameters(parameters, 3 * controlPoints.size());
    if (order < 0) {
        return {};
    }
    const std::size_t count = nsCalculator::requireOrder(order);
    if (m_spline.periodic()) {
        // Kept: the caller sees the reduced parameter.
        const_cast<VrexVariable&>(t) = reduced(m_spline, t);
    }
    auto& engine = engines().differentiable;
    if (!engine) {
        engine.emplace(m_spline);
    }
    if (!isAnyLogged(parameters, t)) {
        return engine->gradient.calculate(parameters, t, count, controlPoints, isAddZeroDerivatives());
    }
    auto result = engine->general.calculate(t, count, controlPoints, [&parameters](std::size_t i) {
        return nsCalculator::getVector(parameters, 3 * i);
    });
    if (isAddZeroDerivatives()) {
        addZeroDerivatives(parameters, result);
    }
    return result;
}

std::vector<VrexVector3DT<double>> VrexSplineCalculator3D::calculate(double t, int order) {
    if (order < 0) {
        return {};
    }
    const std::size_t count = nsCalculator::requireOrder(order);
    auto& engine = engines().plain;
    if (!engine) {
        engine.emplace(m_spline);
    }
    const auto& controlPoints = m_spline.controlPoints();
    return engine->calculate(
        m_spline.periodic() ? reduced(m_spline, t) : t, count, controlPoints,
        [&controlPoints](std::size_t i) { return controlPoints[i].point->getPosition(); });
}
