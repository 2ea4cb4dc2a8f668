#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexGeometry3D;
class VrexParametricSurface3D;

/// A geometry whose direction is the normal of a surface: kind `SurfaceNormal3D`, degree of constraint 1.
class VREX_DATA_EXPORT VrexSurfaceNormal3D final : public VrexConstraint3D {
public:
    /// Whether both are there and the second has a direction.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexParametricSurface3D>& surface,
                                        const std::shared_ptr<VrexGeometry3D>& geometry);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexSurfaceNormal3D>
    create(const std::shared_ptr<VrexParametricSurface3D>& surface,
           const std::shared_ptr<VrexGeometry3D>& geometry);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexSurfaceNormal3D(const std::shared_ptr<VrexParametricSurface3D>& surface,
                        const std::shared_ptr<VrexGeometry3D>& geometry);
    VrexSurfaceNormal3D(const VrexSurfaceNormal3D&) = default;
    VrexSurfaceNormal3D& operator=(VrexSurfaceNormal3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
