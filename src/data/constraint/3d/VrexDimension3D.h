#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/VrexDimensionLimits.h"
#include "data/constraint/VrexDimensionValue.h"

/// The base of the constraints with a value: a length in the model's unit or an angle in radians, the
/// dimension's own or that of a bound variable, with limits that the solver minds.
///
/// A bound variable is the last element of the geometry list, which keeps it alive. The setters leave the
/// dirty flag alone.
class VREX_DATA_EXPORT VrexDimension3D : public VrexConstraint3D {
public:
    void accept(VrexVisitor3D& visitor) override;
    /// Whether the dimension keeps its value while solving.
    bool isRigid() const override;
    void setRigid(bool rigid) override;

    /// The bound variable's value, without one the dimension's own.
    double value() const { return m_value.get(); }
    /// Writes into the bound variable, without one into the dimension.
    void setValue(double value) { m_value.set(value); }

    /// Binds to `variable` instead of the one bound now, null to none, and keeps the geometry list in step.
    ///
    /// No number changes: without a variable the value is again the one that the dimension held before it was
    /// bound. A manager that holds the dimension learns of the variable by `updateRelatedGeometries`.
    void bindVariable(const std::shared_ptr<VrexGeometryVariable>& variable);
    /// Null when none is bound.
    std::shared_ptr<VrexGeometryVariable> getVariable() const { return m_value.variable(); }

    const VrexDimensionLimits& getLimits() const { return m_value.getLimits(); }
    /// Stored as given, whatever their order.
    void setLimits(const VrexDimensionLimits& limits) { m_value.setLimits(limits); }

protected:
    VrexDimension3D(VrexConstraint3DType type, double value, VrexGeometryComponentType component1,
                    VrexGeometryComponentType component2)
        : VrexConstraint3D(type, component1, component2), m_value(value) {}
    /// Without components.
    VrexDimension3D(VrexConstraint3DType type, double value) : VrexConstraint3D(type), m_value(value) {}
    VrexDimension3D(const VrexDimension3D&) = default;
    VrexDimension3D(VrexDimension3D&&) = default;
    VrexDimension3D& operator=(const VrexDimension3D&) = default;
    VrexDimension3D& operator=(VrexDimension3D&&) = default;

    /// Keeps binding, rigid flag and limits besides the geometries: only the number travels, into the
    /// variable if one is bound.
    void doUpdateFrom(const VrexBaseObject& other) override;

private:
    VrexDimensionValue m_value;
};
