#include "data/geometry/3d/VrexSpinSurface3D.h"

#include <numbers>

#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexDrawnSurface.h"
#include "data/geometry/3d/VrexTrimmedRange.h"

VREX_OBJECT_BODY(VrexSpinSurface3D)

std::shared_ptr<VrexSpinSurface3D>
VrexSpinSurface3D::create(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                          std::shared_ptr<VrexLine3D> axisLine) {
    return VrexObjectAccess::make<VrexSpinSurface3D>(std::move(profileCurve), std::move(axisLine));
}

VrexSpinSurface3D::VrexSpinSurface3D(std::shared_ptr<VrexParametricCurve3D> profileCurve,
                                     std::shared_ptr<VrexLine3D> axisLine)
    : VrexParametricSurface3D(VrexGeometry3DType::SPIN_SURFACE, PARAMETERS_AMOUNT),
      m_profileCurve(std::move(profileCurve)),
      m_axisLine(std::move(axisLine)) {}

VrexSpinSurface3D::~VrexSpinSurface3D() {
    nsRelease::drop(std::move(m_profileCurve));
    nsRelease::drop(std::move(m_axisLine));
}

const char* VrexSpinSurface3D::getNamePrefix() const { return "spin"; }

int VrexSpinSurface3D::dof() const { return nsDrawn::dofOf(m_profileCurve, m_axisLine); }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexSpinSurface3D::getGeometries() const {
    return nsDrawn::geometriesOf(m_profileCurve, m_axisLine);
}

bool VrexSpinSurface3D::checkChanged(double, double) const {
    const auto backup = getBackupAs<VrexSpinSurface3D>();
    if (backup == nullptr) {
        return false;
    }
    return m_profileCurve != backup->m_profileCurve || m_axisLine != backup->m_axisLine ||
           nsDrawn::isMarkedChanged(m_axisLine) || nsDrawn::isMarkedChanged(m_profileCurve);
}

std::pair<std::optional<double>, std::optional<double>> VrexSpinSurface3D::intervalU() const {
    return nsDrawn::intervalOf(m_profileCurve);
}

std::pair<std::optional<double>, std::optional<double>> VrexSpinSurface3D::intervalV() const {
    return nsInterval::trimmedRange(startV(), endV(), 0.0, 2.0 * std::numbers::pi);
}

void VrexSpinSurface3D::setProfileCurve(std::shared_ptr<VrexParametricCurve3D> profileCurve) {
    m_profileCurve = std::move(profileCurve);
}

void VrexSpinSurface3D::setAxisLine(std::shared_ptr<VrexLine3D> axisLine) {
    m_axisLine = std::move(axisLine);
}

void VrexSpinSurface3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_profileCurve, m_axisLine);
    VrexParametricSurface3D::doUpdateFrom(other);
}
