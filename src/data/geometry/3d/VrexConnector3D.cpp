#include "data/geometry/3d/VrexConnector3D.h"

#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_BODY(VrexConnector3D)

std::shared_ptr<VrexConnector3D> VrexConnector3D::create(std::shared_ptr<VrexRigidSet3D> rigidSet) {
    return VrexObjectAccess::make<VrexConnector3D>(std::move(rigidSet));
}

VrexConnector3D::VrexConnector3D(std::shared_ptr<VrexRigidSet3D> rigidSet)
    : VrexGeometry3D(VrexGeometry3DType::CONNECTOR, 0), m_rigidSet(std::move(rigidSet)) {}

VrexConnector3D::~VrexConnector3D() { nsRelease::drop(std::move(m_rigidSet)); }

const char* VrexConnector3D::getNamePrefix() const { return "mt"; }

int VrexConnector3D::dof() const { return 6; }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexConnector3D::getGeometries() const {
    return keepOnly<VrexBaseGeometry>(std::vector{m_rigidSet});
}

bool VrexConnector3D::checkChanged(double linear, double second) const {
    const auto backup = getBackupAs<VrexConnector3D>();
    if (backup == nullptr) {
        return false;
    }
    return !m_transformation.isEqual(backup->m_transformation, linear, second) ||
           (m_rigidSet != nullptr && m_rigidSet->checkChanged(linear, second));
}

void VrexConnector3D::setRigidSet(std::shared_ptr<VrexRigidSet3D> rigidSet) {
    m_rigidSet = std::move(rigidSet);
}

void VrexConnector3D::setTransformation(const VrexTransformation3DT<double>& transformation) {
    m_transformation = transformation;
}

void VrexConnector3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_rigidSet);
    VrexGeometry3D::doUpdateFrom(other);
}
