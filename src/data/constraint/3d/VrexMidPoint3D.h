#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"

class VrexGeometry3D;
class VrexPoint3D;

/// A point halfway between two geometries: kind `MidPoint3D`, degree of constraint 1.
///
/// The point is the third of the list.
class VREX_DATA_EXPORT VrexMidPoint3D final : public VrexConstraint3D {
public:
    /// Whether all three are there, and the point lies between two points or between two planes.
    [[nodiscard]] static bool canCreate(const std::shared_ptr<VrexGeometry3D>& geometry1,
                                        const std::shared_ptr<VrexGeometry3D>& geometry2,
                                        const std::shared_ptr<VrexPoint3D>& point);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexMidPoint3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           const std::shared_ptr<VrexPoint3D>& point);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    /// Null when it was created so.
    std::shared_ptr<VrexPoint3D> midPoint() const;

private:
    friend class VrexObjectAccess;

    VrexMidPoint3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                   const std::shared_ptr<VrexGeometry3D>& geometry2,
                   const std::shared_ptr<VrexPoint3D>& point);
    VrexMidPoint3D(const VrexMidPoint3D&) = default;
    VrexMidPoint3D& operator=(VrexMidPoint3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
