#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// Two geometries with parallel directions: kind `Parallelism3D`, degree of constraint 2.
class VREX_DATA_EXPORT VrexParallelism3D final : public VrexConstraint3D {
public:
    /// Whether entities of these types both have a direction.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexParallelism3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1,
           const std::shared_ptr<VrexGeometry3D>& geometry2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexParallelism3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                      const std::shared_ptr<VrexGeometry3D>& geometry2);
    VrexParallelism3D(const VrexParallelism3D&) = default;
    VrexParallelism3D& operator=(VrexParallelism3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
