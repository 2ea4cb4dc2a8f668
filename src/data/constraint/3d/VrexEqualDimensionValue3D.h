#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexEqualDimensionElement3D;

/// The value that the dimensions tied to an element have in common: kind `EqualDimensionValue3D`, degree of
/// constraint 1.
class VREX_DATA_EXPORT VrexEqualDimensionValue3D final : public VrexDimension3D {
public:
    /// A dimension without identifier; never null. `element` may be null.
    [[nodiscard]] static std::shared_ptr<VrexEqualDimensionValue3D>
    create(const std::shared_ptr<VrexEqualDimensionElement3D>& element, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexEqualDimensionValue3D(const std::shared_ptr<VrexEqualDimensionElement3D>& element, double value);
    VrexEqualDimensionValue3D(const VrexEqualDimensionValue3D&) = default;
    VrexEqualDimensionValue3D& operator=(VrexEqualDimensionValue3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
