#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// One value that several dimensions share: kind `EQUAL_DIMENSION_ELEMENT`, name prefix "eq_d_ele", one
/// degree of freedom.
///
/// Parameters: slot VALUE holds the value, a length or an angle in radians, as the dimensions take it.
class VREX_DATA_EXPORT VrexEqualDimensionElement3D final : public VrexGeometry3D {
public:
    static constexpr int VALUE = 0;
    static constexpr int PARAMETERS_AMOUNT = 1;
    /// An element without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexEqualDimensionElement3D> create(double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the value differs from the latest snapshot's by more than `tolerance`; false without a
    /// snapshot. `second` has no meaning here.
    bool checkChanged(double tolerance, double second) const override;

    double getValue() const { return getParameter(VALUE); }
    void setValue(double value);

private:
    friend class VrexObjectAccess;

    explicit VrexEqualDimensionElement3D(double value);
    VrexEqualDimensionElement3D(const VrexEqualDimensionElement3D&) = default;
    VrexEqualDimensionElement3D& operator=(VrexEqualDimensionElement3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
