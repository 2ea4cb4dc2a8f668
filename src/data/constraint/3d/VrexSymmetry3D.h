#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;
class VrexPlane3D;

/// Two geometries that mirror each other at a plane: kind `Symmetry3D`.
///
/// The degree of constraint is the freedom of the first geometry. The plane is the third of the list.
class VREX_DATA_EXPORT VrexSymmetry3D final : public VrexConstraint3D {
public:
    /// Whether entities of these types can mirror each other.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexSymmetry3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           const std::shared_ptr<VrexPlane3D>& plane);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    /// Null when it was created so.
    std::shared_ptr<VrexPlane3D> symmetryPlane() const;

private:
    friend class VrexObjectAccess;

    VrexSymmetry3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                   const std::shared_ptr<VrexGeometry3D>& geometry2,
                   const std::shared_ptr<VrexPlane3D>& plane);
    VrexSymmetry3D(const VrexSymmetry3D&) = default;
    VrexSymmetry3D& operator=(VrexSymmetry3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
