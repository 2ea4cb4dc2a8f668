#include "data/geometry/3d/VrexGeometrySet3D.h"

#include <stdexcept>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexLog.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexGeometrySet3D)

namespace {

bool isGeometrySet3D(VrexGeometry3DType type) { return type == VrexGeometry3DType::RIGID_SET; }

} // namespace

VrexGeometrySet3D::VrexGeometrySet3D(VrexGeometry3DType type, std::uint32_t parameterCount)
    : VrexGeometry3D(type, parameterCount) {
    if (!isGeometrySet3D(type)) {
        VREX_RAISE(std::runtime_error,
                   "The specified type isn't a geometry set! It must be added to isGeometrySet3D().");
    }
}

VrexGeometrySet3D::~VrexGeometrySet3D() { nsRelease::dropAll(m_geometries); }

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexGeometrySet3D::getGeometries() const {
    return keepOnly<VrexBaseGeometry>(m_geometries);
}

void VrexGeometrySet3D::doUpdateFrom(const VrexBaseObject& other) {
    const VrexMemberKeeper kept(m_geometries);
    VrexGeometry3D::doUpdateFrom(other);
}
