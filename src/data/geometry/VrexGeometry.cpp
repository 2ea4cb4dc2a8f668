#include "data/geometry/VrexGeometry.h"

#include "data/VrexCastList.h"
#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexGeometry)

VrexGeometry::VrexGeometry() : VrexBaseGeometry(VrexObjectType::Geometry) {}

VrexGeometry::VrexGeometry(std::uint32_t parameterCount)
    : VrexBaseGeometry(VrexObjectType::Geometry, parameterCount) {}

std::vector<std::shared_ptr<VrexGeometry>> VrexGeometry::geometries() const {
    return keepOnly<VrexGeometry>(getGeometries());
}
