#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// Two geometries with one centre in common: kind `IncidenceToCenter3D`, degree of constraint 3.
class VREX_DATA_EXPORT VrexIncidenceToCenter3D final : public VrexConstraint3D {
public:
    /// Whether entities of these types both have a centre, or an apex.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexIncidenceToCenter3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1,
           const std::shared_ptr<VrexGeometry3D>& geometry2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexIncidenceToCenter3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                            const std::shared_ptr<VrexGeometry3D>& geometry2);
    VrexIncidenceToCenter3D(const VrexIncidenceToCenter3D&) = default;
    VrexIncidenceToCenter3D& operator=(VrexIncidenceToCenter3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
