#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexIncidence3DType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/VrexGeometryComponentType.h"

class VrexGeometry3D;

/// Lays one geometry, or a component of it, onto another: kind `Incidence3D`.
///
/// The degree of constraint is the freedom of the first geometry where both are of one type, otherwise 1.
class VREX_DATA_EXPORT VrexIncidence3D final : public VrexConstraint3D {
public:
    /// Whether these components of entities of these types can lie on each other; the types are those of the
    /// whole entities.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2,
                                        VrexGeometryComponentType component1,
                                        VrexGeometryComponentType component2,
                                        VrexIncidence3DType incidenceType);
    /// A constraint without identifier; never null. Null geometries are stored as given.
    [[nodiscard]] static std::shared_ptr<VrexIncidence3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry1, const std::shared_ptr<VrexGeometry3D>& geometry2,
           VrexIncidence3DType incidenceType, VrexGeometryComponentType component1,
           VrexGeometryComponentType component2);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    bool isHelpPointSupported() const override;     ///< True.
    bool isHelpParameterSupported() const override; ///< True.

    VrexIncidence3DType getIncidenceType() const { return m_incidenceType; }
    void setIncidenceType(VrexIncidence3DType type) { m_incidenceType = type; }

private:
    friend class VrexObjectAccess;

    VrexIncidence3D(const std::shared_ptr<VrexGeometry3D>& geometry1,
                    const std::shared_ptr<VrexGeometry3D>& geometry2, VrexIncidence3DType incidenceType,
                    VrexGeometryComponentType component1, VrexGeometryComponentType component2);
    VrexIncidence3D(const VrexIncidence3D&) = default;
    VrexIncidence3D& operator=(VrexIncidence3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    VrexIncidence3DType m_incidenceType;
};
