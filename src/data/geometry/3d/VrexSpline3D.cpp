#include "data/geometry/3d/VrexSpline3D.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexControlPoints.h"
#include "data/geometry/3d/VrexKnots.h"
#include "data/geometry/3d/VrexPoint3D.h"

VREX_OBJECT_BODY(VrexSpline3D)

namespace {

// Kept: a thousand times the limit of the NURBS surface.
constexpr double WEIGHT_TOLERANCE = 2.220446049250313e-13;

bool isChanged(const VrexSpline3D::ControlPoint& now, const VrexSpline3D::ControlPoint& before) {
    return std::fabs(now.weight - before.weight) > WEIGHT_TOLERANCE ||
           nsControlPoint::isPointChanged(now, before);
}

} // namespace

std::shared_ptr<VrexSpline3D> VrexSpline3D::create(const VrexSplineOptions& options) {
    return VrexObjectAccess::make<VrexSpline3D>(options);
}

VrexSpline3D::VrexSpline3D(const VrexSplineOptions& options)
    : VrexParametricCurve3D(VrexGeometry3DType::SPLINE,
                            static_cast<std::uint32_t>(2 * options.controlPoints.size())),
      m_degree(options.degree),
      m_periodic(options.periodic),
      m_knots(options.knots),
      m_controlPoints(options.controlPoints) {}

const char* VrexSpline3D::getNamePrefix() const { return "s"; }

int VrexSpline3D::dof() const { return static_cast<int>(3 * m_controlPoints.size()); }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexSpline3D::getGeometries() const {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    geometries.reserve(m_controlPoints.size() + m_interpolatedPoints.size());
    nsControlPoint::appendPoints(m_controlPoints, geometries);
    std::copy_if(m_interpolatedPoints.begin(), m_interpolatedPoints.end(), std::back_inserter(geometries),
                 [](const auto& point) { return point != nullptr; });
    return geometries;
}

bool VrexSpline3D::checkChanged(double tolerance, double) const {
    const auto backup = getBackupAs<VrexSpline3D>();
    if (backup == nullptr) {
        return false;
    }
    return m_degree != backup->m_degree || m_periodic != backup->m_periodic ||
           nsKnots::isChanged(m_knots, backup->m_knots, tolerance) ||
           m_controlPoints.size() != backup->m_controlPoints.size() ||
           !std::equal(m_controlPoints.begin(), m_controlPoints.end(), backup->m_controlPoints.begin(),
                       [](const auto& now, const auto& before) { return !isChanged(now, before); });
}

std::pair<std::optional<double>, std::optional<double>> VrexSpline3D::interval() const {
    return nsKnots::interval(start(), end(), m_knots, m_degree);
}

void VrexSpline3D::setInterpolatedPoints(std::vector<std::shared_ptr<VrexPoint3D>> points) {
    m_interpolatedPoints = std::move(points);
}

void VrexSpline3D::setInterpolatedParameters(std::vector<double> parameters) {
    m_interpolatedParameters = std::move(parameters);
}

void VrexSpline3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_controlPoints, m_interpolatedPoints);
    VrexParametricCurve3D::doUpdateFrom(other);
}
