#include "data/constraint/3d/VrexDimension3D.h"

#include "data/VrexMemberKeeper.h"
#include "data/VrexObjectBody.h"
#include "data/geometry/VrexGeometryVariable.h"

VREX_OBJECT_ACCEPT(VrexDimension3D)

bool VrexDimension3D::isRigid() const { return m_value.isRigid(); }

void VrexDimension3D::setRigid(bool rigid) { m_value.setRigid(rigid); }

void VrexDimension3D::bindVariable(const std::shared_ptr<VrexGeometryVariable>& variable) {
    if (getVariable() != nullptr) {
        eraseGeometry(); // Leaves room for the next one.
    } else if (variable != nullptr) {
        // Before anything changes: without memory list and binding stay in step.
        initGeometry(getGeometries().size() + 1);
    }
    m_value.bindVariable(variable);
    if (variable != nullptr) {
        addGeometry(variable);
    }
}

void VrexDimension3D::doUpdateFrom(const VrexBaseObject& other) {
    // Read first: the update may drop the last share of the variable that `other` is bound to.
    const double number = dynamic_cast<const VrexDimension3D&>(other).value();
    {
        const VrexMemberKeeper kept(m_value);
        VrexConstraint3D::doUpdateFrom(other);
    }
    setValue(number);
}
