#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// The angle between the directions of two entities: kind `Angle3D`, degree of constraint 2.
class VREX_DATA_EXPORT VrexAngle3D final : public VrexDimension3D {
public:
    /// Whether entities of these kinds both have a direction.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A dimension without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexAngle3D> create(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                                             const std::shared_ptr<VrexGeometry3D>& geometry2,
                                                             double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexAngle3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                const std::shared_ptr<VrexGeometry3D>& geometry2, double value);
    VrexAngle3D(const VrexAngle3D&) = default;
    VrexAngle3D& operator=(VrexAngle3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
