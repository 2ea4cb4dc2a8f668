#include "data/operation/VrexConstraintOperationData.h"

VrexConstraintOperationData::VrexConstraintOperationData(
    const std::shared_ptr<VrexBaseConstraint>& constraint)
    : m_constraint(constraint) {}

VrexOperationDataType VrexConstraintOperationData::getType() const {
    return VrexOperationDataType::Constraint;
}
