#include "data/constraint/VrexConstraint.h"

#include <utility>

#include "data/VrexCastList.h"
#include "data/VrexDeferredRelease.h"
#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/VrexGeometry.h"

VREX_OBJECT_ACCEPT(VrexConstraint)

VrexConstraint::VrexConstraint() : VrexBaseConstraint(VrexObjectType::Constraint) {}

VrexConstraint::VrexConstraint(std::uint32_t parameterCount)
    : VrexBaseConstraint(VrexObjectType::Constraint, parameterCount) {}

VrexConstraint::~VrexConstraint() { nsRelease::dropAll(m_geometries); }

const char* VrexConstraint::getNamePrefix() const { return "c"; }

const std::vector<std::shared_ptr<VrexBaseGeometry>>& VrexConstraint::getGeometries() const {
    return m_geometries;
}

bool VrexConstraint::isRigid() const { return false; }

void VrexConstraint::setRigid(bool) {}

bool VrexConstraint::isHelpPointSupported() const { return false; }

bool VrexConstraint::isHelpParameterSupported() const { return false; }

void VrexConstraint::satisfy() {}

std::vector<std::shared_ptr<VrexGeometry>> VrexConstraint::geomArguments() const {
    return keepOnly<VrexGeometry>(m_geometries);
}

void VrexConstraint::doUpdateFrom(const VrexBaseObject& other) {
    {
        const VrexMemberKeeper kept(m_geometries);
        VrexBaseConstraint::doUpdateFrom(other);
    }
    m_geometriesChanged = true;
}

void VrexConstraint::addGeometry(std::shared_ptr<VrexBaseGeometry> geometry) {
    m_geometries.push_back(std::move(geometry));
    m_geometriesChanged = true;
}

void VrexConstraint::eraseGeometry() {
    if (!m_geometries.empty()) {
        m_geometries.pop_back();
    }
    m_geometriesChanged = true;
}

void VrexConstraint::initGeometry(std::uint64_t capacity) { m_geometries.reserve(capacity); }
