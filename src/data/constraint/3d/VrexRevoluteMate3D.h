#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that turns about one axis without sliding: kind `RevoluteMate3D`, degree of constraint 5, one
/// dimension.
class VREX_DATA_EXPORT VrexRevoluteMate3D final : public VrexMate3D {
public:
    static constexpr int ANGLE = 0;
    static constexpr int DIMENSIONS_AMOUNT = 1;
    /// A mate without identifier, its dimension 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexRevoluteMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& angleLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexMateDimension3D& getAngle() { return getDimension(ANGLE); }
    const VrexMateDimension3D& getAngle() const { return getDimension(ANGLE); }

private:
    friend class VrexObjectAccess;

    VrexRevoluteMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                       const std::shared_ptr<VrexConnector3D>& connector2);
    VrexRevoluteMate3D(const VrexRevoluteMate3D&) = default;
    VrexRevoluteMate3D& operator=(VrexRevoluteMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
