#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// Two geometries with one axis or centre in common: kind `Concentricity3D`.
///
/// The degree of constraint is 3 between two point-like geometries, points or spheres, 2 if exactly one is,
/// otherwise 4.
class VREX_DATA_EXPORT VrexConcentricity3D final : public VrexConstraint3D {
public:
    /// Whether entities of these types both have an axis or a centre.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexConcentricity3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1,
           const std::shared_ptr<VrexGeometry3D>& geometry2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexConcentricity3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                        const std::shared_ptr<VrexGeometry3D>& geometry2);
    VrexConcentricity3D(const VrexConcentricity3D&) = default;
    VrexConcentricity3D& operator=(VrexConcentricity3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
