#pragma once

#include <array>
#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexRadius3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;

/// A radius of one geometry that equals one of another: kind `EqualRadius3D`, degree of constraint 1.
///
/// Radius types are numbered from 0, in the order of the geometries.
class VREX_DATA_EXPORT VrexEqualRadius3D final : public VrexConstraint3D {
public:
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexEqualRadius3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, VrexRadius3DType radiusType1,
           const std::shared_ptr<VrexGeometry3D>& geometry2, VrexRadius3DType radiusType2,
           VrexGeometryComponentType component1, VrexGeometryComponentType component2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    /// The radius of geometry `index`, 0 or 1. Throws `std::out_of_range` for any other.
    VrexRadius3DType getRadiusType(int index) const;
    /// Does nothing for an index other than 0 and 1.
    void setRadiusType(int index, VrexRadius3DType type);
    /// Writes the radius that a component selects: the major or minor one for `MAJOR` or `MINOR`, otherwise
    /// the only one.
    static void setRadiusType(VrexRadius3DType& out, VrexGeometryComponentType component);

private:
    friend class VrexObjectAccess;

    VrexEqualRadius3D(const std::shared_ptr<VrexGeometry3D>& geometry1, VrexRadius3DType radiusType1,
                      const std::shared_ptr<VrexGeometry3D>& geometry2, VrexRadius3DType radiusType2,
                      VrexGeometryComponentType component1, VrexGeometryComponentType component2);
    VrexEqualRadius3D(const VrexEqualRadius3D&) = default;
    VrexEqualRadius3D& operator=(VrexEqualRadius3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    std::array<VrexRadius3DType, 2> m_radiusTypes;
};
