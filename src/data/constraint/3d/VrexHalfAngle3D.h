#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexDimension3D.h"

class VrexCone3D;

/// The half angle at the apex of a cone: kind `HalfAngle3D`, degree of constraint 1.
class VREX_DATA_EXPORT VrexHalfAngle3D final : public VrexDimension3D {
public:
    /// A dimension without identifier; never null. `cone` may be null.
    [[nodiscard]] static std::shared_ptr<VrexHalfAngle3D> create(const std::shared_ptr<VrexCone3D>& cone,
                                                                 double value);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

private:
    friend class VrexObjectAccess;

    VrexHalfAngle3D(const std::shared_ptr<VrexCone3D>& cone, double value);
    VrexHalfAngle3D(const VrexHalfAngle3D&) = default;
    VrexHalfAngle3D& operator=(VrexHalfAngle3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
