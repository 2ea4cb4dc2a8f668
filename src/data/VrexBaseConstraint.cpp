#include "data/VrexBaseConstraint.h"

#include "data/VrexObjectBody.h"

VREX_OBJECT_ACCEPT(VrexBaseConstraint)

VrexBaseConstraint::VrexBaseConstraint(VrexObjectType type, std::uint32_t parameterCount)
    : VrexBaseObject(type, parameterCount) {}

const char* VrexBaseConstraint::getNamePrefix() const { return "d"; }

bool VrexBaseConstraint::isCompleteFixed() const { return false; }

std::vector<std::shared_ptr<VrexBaseConstraint>> VrexBaseConstraint::getConstraints() { return {}; }
