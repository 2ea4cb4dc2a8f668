#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexGeometryVariable;

/// Holds the value of a free scalar: kind `VariableFixation3D`, degree of constraint 1.
///
/// The variable is the one element of the geometry list.
class VREX_DATA_EXPORT VrexVariableFixation3D final : public VrexConstraint3D {
public:
    /// A constraint without identifier; never null. A null variable leaves the geometry list empty.
    [[nodiscard]] static std::shared_ptr<VrexVariableFixation3D>
    create(const std::shared_ptr<VrexGeometryVariable>& variable);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    /// Null, with a line in the log, when it was created so.
    std::shared_ptr<VrexGeometryVariable> variable() const;

private:
    friend class VrexObjectAccess;

    explicit VrexVariableFixation3D(const std::shared_ptr<VrexGeometryVariable>& variable);
    VrexVariableFixation3D(const VrexVariableFixation3D&) = default;
    VrexVariableFixation3D& operator=(VrexVariableFixation3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
