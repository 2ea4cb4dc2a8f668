#pragma once

#include <memory>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVariableDescriptor.h"
#include "data/VrexVariableDescriptorInterface.h"
#include "data/constraint/equation/VrexEquationConditionType.h"

/// The base of the equations, conditions on a function of single parameters of objects: base kind `Equation`,
/// name prefix "eq".
///
/// Descriptors name the parameters; their order is that of the function's arguments. An equation shares the
/// ownership of the objects behind them. One thread at a time, also where only constants are at hand.
class VREX_DATA_EXPORT VrexBaseEquation : public VrexBaseConstraint, public VrexVariableDescriptorInterface {
public:
    ~VrexBaseEquation() override;

    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    /// 1 for `equalToZero`; no other condition takes a degree of freedom away.
    int doc() const override;
    /// The geometries that descriptors name, free scalars among them, in the order of first use; objects that
    /// are no geometry are left out. Kept: told apart by identifier, so that of those without one only the
    /// first is there. The list is made at the first call after a change and valid until the next change.
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& getGeometries() const override;

    /// Fixed at creation; an update takes it over.
    VrexEquationConditionType conditionType() const { return m_conditionType; }
    /// The value of the function for one argument a descriptor, with the derivatives that the arguments
    /// bring.
    VrexVariable evaluate(const std::vector<VrexVariable>& args);

protected:
    explicit VrexBaseEquation(VrexEquationConditionType conditionType);
    VrexBaseEquation(const VrexBaseEquation&) = default;
    VrexBaseEquation(VrexBaseEquation&&) = default;
    VrexBaseEquation& operator=(const VrexBaseEquation&) = default;
    VrexBaseEquation& operator=(VrexBaseEquation&&) = default;

    /// Keeps the descriptors besides identifier and label: an update never binds an equation to others.
    void doUpdateFrom(const VrexBaseObject& other) override;

    virtual VrexVariable evaluateInternal(const std::vector<VrexVariable>& args) = 0;

public:
    // Behind `evaluateInternal`, which has the first slot of its own that an equation adds.

    const std::vector<VrexVariableDescriptor>& descriptors() const override;
    void setDescriptors(std::vector<VrexVariableDescriptor> descriptors) override;

private:
    void collectGeometries() const;

    std::vector<VrexVariableDescriptor> m_descriptors;
    VrexEquationConditionType m_conditionType;
    mutable std::vector<std::shared_ptr<VrexBaseGeometry>> m_geometries; ///< Made of the descriptors.
    mutable bool m_geometriesDirty = false;
};
