#include "data/VrexBaseGeometry.h"

#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexBaseGeometry)

VrexBaseGeometry::VrexBaseGeometry(VrexObjectType type) : VrexBaseObject(type) {}

VrexBaseGeometry::VrexBaseGeometry(VrexObjectType type, std::uint32_t parameterCount)
    : VrexBaseObject(type, parameterCount) {}

std::vector<std::shared_ptr<VrexBaseGeometry>> VrexBaseGeometry::getGeometries() const { return {}; }

std::vector<std::shared_ptr<VrexGeometryVariable>> VrexBaseGeometry::getVariables() const { return {}; }

bool VrexBaseGeometry::checkChanged(double, double) const { return false; }

bool VrexBaseGeometry::isPattern() const { return false; }
