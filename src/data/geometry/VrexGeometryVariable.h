#pragma once

#include <memory>

#include "data/VrexBaseGeometry.h"
#include "data/VrexExport.h"

/// One free scalar: base kind `Variable`, name prefix "v", one degree of freedom. A length or an angle in
/// radians, as its users take it.
class VREX_DATA_EXPORT VrexGeometryVariable final : public VrexBaseGeometry {
public:
    static constexpr int V = 0;
    static constexpr int PARAMETERS_AMOUNT = 1;
    /// A variable without identifier; never null.
    [[nodiscard]] static std::shared_ptr<VrexGeometryVariable> create(double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    const char* getNamePrefix() const override;
    void accept(VrexVisitor3D& visitor) override;
    int dof() const override;
    /// True when the value differs from the latest snapshot's by more than `tolerance`; false without a
    /// snapshot. `second` has no meaning for a variable.
    bool checkChanged(double tolerance, double second) const override;

    double getValue() const { return getParameter(V); }
    void setValue(double value); ///< Leaves the dirty flag alone.

private:
    friend class VrexObjectAccess;

    explicit VrexGeometryVariable(double value);
    VrexGeometryVariable(const VrexGeometryVariable&) = default;
    VrexGeometryVariable& operator=(VrexGeometryVariable&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
