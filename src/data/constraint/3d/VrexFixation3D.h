#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/geometry/3d/VrexGeometry3DType.h"

class VrexGeometry3D;

/// Holds one geometry, or a part of what determines it, in place: kind `Fixation3D`.
///
/// The degree of constraint is the freedom of the geometry for a complete fixation, 3 for a location, 2 for a
/// direction and 1 for a single number.
class VREX_DATA_EXPORT VrexFixation3D final : public VrexConstraint3D {
public:
    /// Whether an entity of this type has what the fixation holds.
    [[nodiscard]] static bool canCreate(VrexGeometry3DType type, VrexFixation3DType fixationType);
    /// A constraint without identifier; never null. A null geometry is stored as given.
    [[nodiscard]] static std::shared_ptr<VrexFixation3D>
    create(const std::shared_ptr<VrexGeometry3D>& geometry, VrexFixation3DType fixationType);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    /// Throws `std::runtime_error` "not implemented" for a fixation of unknown type.
    int doc() const override;
    /// Whether the fixation, as it is set now, holds all of the geometry.
    bool isCompleteFixed() const override;

    VrexFixation3DType getFixationType() const { return m_fixationType; }
    void setFixationType(VrexFixation3DType type) { m_fixationType = type; }

private:
    friend class VrexObjectAccess;

    VrexFixation3D(const std::shared_ptr<VrexGeometry3D>& geometry, VrexFixation3DType fixationType);
    VrexFixation3D(const VrexFixation3D&) = default;
    VrexFixation3D& operator=(VrexFixation3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;

    VrexFixation3DType m_fixationType;
};
