#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexGeometry3D;

/// The angle between two entities with respect to a third: kind `PlanarAngle3D`, degree of constraint 1.
class VREX_DATA_EXPORT VrexPlanarAngle3D final : public VrexDimension3D {
public:
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexPlanarAngle3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           const std::shared_ptr<VrexGeometry3D>& geometry3, double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexPlanarAngle3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                      const std::shared_ptr<VrexGeometry3D>& geometry2,
                      const std::shared_ptr<VrexGeometry3D>& geometry3, double value);
    VrexPlanarAngle3D(const VrexPlanarAngle3D&) = default;
    VrexPlanarAngle3D& operator=(VrexPlanarAngle3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
