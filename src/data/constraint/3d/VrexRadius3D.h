#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexRadius3DType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// A radius of an entity: kind `Radius3D`, `MajorRadius3D` or `MinorRadius3D`, degree of constraint 1.
class VREX_DATA_EXPORT VrexRadius3D final : public VrexDimension3D {
public:
    /// Whether an entity of this kind has a radius, whichever.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type);
    /// The kind of a dimension of this radius; `Unknown` for a value beyond the three.
    static VrexConstraint3DType type(VrexRadius3DType radiusType);
    /// A dimension without identifier; never null. A null geometry is stored as given, and so is a radius
    /// type beyond the three, which gives the kind `Unknown`.
    [[nodiscard]] static std::shared_ptr<VrexRadius3D> create(const std::shared_ptr<VrexGeometry3D>& geometry,
                                                              double value, VrexRadius3DType radiusType);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    using VrexConstraint3D::type;
    VrexRadius3DType getRadiusType() const { return m_radiusType; }
    /// Kept: the kind of the dimension stays the one that it was created with.
    void setRadiusType(VrexRadius3DType radiusType) { m_radiusType = radiusType; }

private:
    friend class VrexObjectAccess;

    VrexRadius3D(const std::shared_ptr<VrexGeometry3D>& geometry, double value, VrexRadius3DType radiusType);
    VrexRadius3D(const VrexRadius3D&) = default;
    VrexRadius3D& operator=(VrexRadius3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    VrexRadius3DType m_radiusType;
};
