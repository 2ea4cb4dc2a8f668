#pragma once

#include "data/VrexExport.h"
#include "data/constraint/VrexDimensionLimits.h"

/// One free degree of a mate: a length in the model's unit or an angle in radians.
struct VREX_DATA_EXPORT VrexMateDimension3D {
    double value = 0.0;
    VrexDimensionLimits limits;

    /// Whether the degree is held.
    bool fixed() const { return m_fixed; }
    void setFixed(bool fixed) { m_fixed = fixed; }

    bool operator==(const VrexMateDimension3D&) const = default;

private:
    bool m_fixed = false;
};
