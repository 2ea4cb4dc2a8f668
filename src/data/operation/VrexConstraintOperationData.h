#pragma once

#include <memory>

#include "data/VrexBaseConstraint.h"
#include "data/VrexExport.h"
#include "data/operation/VrexOperationData.h"

/// Names a constraint or an equation. Copies share the object; null is stored as given.
class VREX_DATA_EXPORT VrexConstraintOperationData final : public VrexOperationData {
public:
    explicit VrexConstraintOperationData(const std::shared_ptr<VrexBaseConstraint>& constraint);

    VrexOperationDataType getType() const override; ///< `Constraint`.

    const std::shared_ptr<VrexBaseConstraint>& getConstraint() const { return m_constraint; }

private:
    std::shared_ptr<VrexBaseConstraint> m_constraint;
};
