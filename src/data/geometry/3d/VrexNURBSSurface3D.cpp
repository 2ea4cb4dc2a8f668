#include "data/geometry/3d/VrexNURBSSurface3D.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexControlPoints.h"
#include "data/geometry/3d/VrexKnots.h"

VREX_OBJECT_BODY(VrexNURBSSurface3D)

namespace {

using Row = std::vector<VrexNURBSSurface3D::ControlPoint>;

// Kept: a thousandth of the limit of the spline.
constexpr double WEIGHT_TOLERANCE = 2.220446049250313e-16;

bool isChanged(const VrexNURBSSurface3D::ControlPoint& now, const VrexNURBSSurface3D::ControlPoint& before) {
    return nsControlPoint::isPointChanged(now, before) ||
           std::fabs(now.weight - before.weight) > WEIGHT_TOLERANCE;
}

/// Whether the first `columns` control points differ, or one of them is missing.
bool isRowChanged(const Row& now, const Row& before, std::size_t columns) {
    if (now.size() < columns || before.size() < columns) {
        return true;
    }
    return !std::equal(now.begin(), now.begin() + static_cast<std::ptrdiff_t>(columns), before.begin(),
                       [](const auto& a, const auto& b) { return !isChanged(a, b); });
}

std::uint32_t countParameters(const std::vector<Row>& rows) {
    const std::size_t count = 3 * nsControlPoint::countPoints(rows);
    if (count > std::numeric_limits<std::uint32_t>::max()) {
        VREX_RAISE(std::length_error, "Too many control points.");
    }
    return static_cast<std::uint32_t>(count);
}

} // namespace

std::shared_ptr<VrexNURBSSurface3D> VrexNURBSSurface3D::create(const VrexNURBSOptions& options) {
    return VrexObjectAccess::make<VrexNURBSSurface3D>(options);
}

VrexNURBSSurface3D::VrexNURBSSurface3D(const VrexNURBSOptions& options)
    : VrexParametricSurface3D(VrexGeometry3DType::NURBS_SURFACE, countParameters(options.controlPoints)),
      m_uDegree(options.uDegree),
      m_vDegree(options.vDegree),
      m_uKnots(options.uKnots),
      m_vKnots(options.vKnots),
      m_controlPoints(options.controlPoints) {}

const char* VrexNURBSSurface3D::getNamePrefix() const { return "nurbs"; }

int VrexNURBSSurface3D::dof() const {
    return static_cast<int>(3 * nsControlPoint::countPoints(m_controlPoints));
}

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexNURBSSurface3D::getGeometries() const {
    std::vector<std::shared_ptr<VrexBaseGeometry>> geometries;
    geometries.reserve(nsControlPoint::countPoints(m_controlPoints));
    for (const Row& row : m_controlPoints) {
        nsControlPoint::appendPoints(row, geometries);
    }
    return geometries;
}

bool VrexNURBSSurface3D::checkChanged(double tolerance, double) const {
    const auto backup = getBackupAs<VrexNURBSSurface3D>();
    if (backup == nullptr) {
        return false;
    }
    const std::size_t columns = nsControlPoint::countColumns(m_controlPoints);
    return m_uDegree != backup->m_uDegree || m_vDegree != backup->m_vDegree ||
           m_controlPoints.size() != backup->m_controlPoints.size() ||
           columns != nsControlPoint::countColumns(backup->m_controlPoints) ||
           nsKnots::isChanged(m_uKnots, backup->m_uKnots, tolerance) ||
           nsKnots::isChanged(m_vKnots, backup->m_vKnots, tolerance) ||
           !std::equal(
               m_controlPoints.begin(), m_controlPoints.end(), backup->m_controlPoints.begin(),
               [columns](const Row& now, const Row& before) { return !isRowChanged(now, before, columns); });
}

std::pair<std::optional<double>, std::optional<double>> VrexNURBSSurface3D::intervalU() const {
    return nsKnots::interval(startU(), endU(), m_uKnots, m_uDegree);
}

std::pair<std::optional<double>, std::optional<double>> VrexNURBSSurface3D::intervalV() const {
    return nsKnots::interval(startV(), endV(), m_vKnots, m_vDegree);
}

void VrexNURBSSurface3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_controlPoints);
    VrexParametricSurface3D::doUpdateFrom(other);
}
