#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;

/// Two geometries, or components of them, that touch: kind `Tangency3D`.
///
/// The degree of constraint is the freedom of the first geometry where both are of one type, otherwise 1.
class VREX_DATA_EXPORT VrexTangency3D final : public VrexConstraint3D {
public:
    /// Whether entities of these types can touch; a line or a plane touches neither of the two.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexTangency3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           VrexGeometryComponentType component1, VrexGeometryComponentType component2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpPointSupported() const override;     ///< True.
    bool isHelpParameterSupported() const override; ///< True.

private:
    friend class VrexObjectAccess;

    VrexTangency3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                   const std::shared_ptr<VrexGeometry3D>& geometry2, VrexGeometryComponentType component1,
                   VrexGeometryComponentType component2);
    VrexTangency3D(const VrexTangency3D&) = default;
    VrexTangency3D& operator=(VrexTangency3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
