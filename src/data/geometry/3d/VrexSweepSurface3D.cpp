#include "data/geometry/3d/VrexSweepSurface3D.h"

#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexChangeTests.h"
#include "data/geometry/3d/VrexDrawnSurface.h"

VREX_OBJECT_BODY(VrexSweepSurface3D)

std::shared_ptr<VrexSweepSurface3D>
VrexSweepSurface3D::create(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                           std::shared_ptr<VrexLine3D> trajectoryLine,
                           const std::pair<std::optional<double>, std::optional<double>>& range) {
    return VrexObjectAccess::make<VrexSweepSurface3D>(std::move(profileCurve), std::move(trajectoryLine),
                                                      range);
}

VrexSweepSurface3D::VrexSweepSurface3D(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                                       std::shared_ptr<VrexLine3D> trajectoryLine,
                                       const std::pair<std::optional<double>, std::optional<double>>& range)
    : VrexParametricSurface3D(VrexGeometry3DType::SWEEP_SURFACE, PARAMETERS_AMOUNT),
      m_profileCurve(std::move(profileCurve)),
      m_trajectoryLine(std::move(trajectoryLine)) {
    startV() = range.first;
    endV() = range.second;
}

VrexSweepSurface3D::~VrexSweepSurface3D() {
    nsRelease::drop(std::move(m_profileCurve));
    nsRelease::drop(std::move(m_trajectoryLine));
}

const char* VrexSweepSurface3D::getNamePrefix() const { return "sweep"; }

int VrexSweepSurface3D::dof() const { return nsDrawn::dofOf(m_profileCurve, m_trajectoryLine); }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexSweepSurface3D::getGeometries() const {
    return nsDrawn::geometriesOf(m_profileCurve, m_trajectoryLine);
}

bool VrexSweepSurface3D::checkChanged(double first, double) const {
    const auto backup = getBackupAs<VrexSweepSurface3D>();
    if (backup == nullptr || backup->m_trajectoryLine == nullptr) {
        return false;
    }
    const auto before = backup->m_trajectoryLine->getBackupDirection();
    if (!before.has_value()) {
        return false;
    }
    return m_trajectoryLine == nullptr ||
           nsChange::isDirectionChanged(m_trajectoryLine->getDirection(), *before, first) ||
           m_profileCurve != backup->m_profileCurve || nsDrawn::isMarkedChanged(m_profileCurve);
}

std::pair<std::optional<double>, std::optional<double>> VrexSweepSurface3D::intervalU() const {
    return nsDrawn::intervalOf(m_profileCurve);
}

std::pair<std::optional<double>, std::optional<double>> VrexSweepSurface3D::intervalV() const {
    return {startV(), endV()};
}

void VrexSweepSurface3D::setProfileCurve(std::shared_ptr<VrexParametricCurve3D> profileCurve) {
    m_profileCurve = std::move(profileCurve);
}

void VrexSweepSurface3D::setTrajectoryLine(std::shared_ptr<VrexLine3D> trajectoryLine) {
    m_trajectoryLine = std::move(trajectoryLine);
}

void VrexSweepSurface3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_profileCurve, m_trajectoryLine);
    VrexParametricSurface3D::doUpdateFrom(other);
}
