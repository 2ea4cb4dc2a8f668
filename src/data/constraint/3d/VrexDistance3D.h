#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;

/// The distance between two entities or components of them: kind `Distance3D`, degree of constraint 1.
class VREX_DATA_EXPORT VrexDistance3D final : public VrexDimension3D {
public:
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexDistance3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           double value, VrexGeometryComponentType component1, VrexGeometryComponentType component2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpPointSupported() const override;     ///< True.
    bool isHelpParameterSupported() const override; ///< True.

private:
    friend class VrexObjectAccess;

    VrexDistance3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                   const std::shared_ptr<VrexGeometry3D>& geometry2, double value,
                   VrexGeometryComponentType component1, VrexGeometryComponentType component2);
    VrexDistance3D(const VrexDistance3D&) = default;
    VrexDistance3D& operator=(VrexDistance3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
