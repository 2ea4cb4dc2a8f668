#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexGeometryVariable;

/// The value of a dimension: a length in the model's unit or an angle in radians.
///
/// A bound variable takes the place of the stored number as long as it lives; it is held weakly, so whoever
/// binds keeps it alive. The stored number then stands still, and is the value again once the variable is
/// gone. Nothing is validated. Copies are bound to the same variable; what was moved from is bound to none.
class VREX_DATA_EXPORT VrexDimensionValue {
public:
    explicit VrexDimensionValue(double value) : m_value(value) {}

    /// The bound variable's value, without one the stored number.
    double get() const;
    /// Writes into the bound variable, without one into the stored number.
    void set(double value);

    /// Null unbinds. Neither number changes.
    void bindVariable(const std::shared_ptr<VrexGeometryVariable>& variable);
    /// Null when none is bound or it is gone.
    std::shared_ptr<VrexGeometryVariable> variable() const;

    /// Whether the dimension keeps its value while solving.
    bool isRigid() const { return m_rigid; }
    void setRigid(bool rigid) { m_rigid = rigid; }

    /// Both ends empty at first. The solver minds them, this library does not.
    const VrexDimensionLimits& getLimits() const { return m_limits; }
    void setLimits(const VrexDimensionLimits& limits) { m_limits = limits; }

private:
    double m_value;
    std::weak_ptr<VrexGeometryVariable> m_variable;
    bool m_rigid = false;
    VrexDimensionLimits m_limits;
};
