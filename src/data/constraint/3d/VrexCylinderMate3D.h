#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that slides along one axis and turns about it: kind `CylinderMate3D`, degree of constraint 4, two
/// dimensions.
class VREX_DATA_EXPORT VrexCylinderMate3D final : public VrexMate3D {
public:
    static constexpr int DISTANCE = 0, ANGLE = 1;
    static constexpr int DIMENSIONS_AMOUNT = 2;
    /// A mate without identifier, its dimensions 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexCylinderMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& distanceLimits,
           const VrexDimensionLimits& angleLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexMateDimension3D& getDistance() { return getDimension(DISTANCE); }
    const VrexMateDimension3D& getDistance() const { return getDimension(DISTANCE); }
    VrexMateDimension3D& getAngle() { return getDimension(ANGLE); }
    const VrexMateDimension3D& getAngle() const { return getDimension(ANGLE); }

private:
    friend class VrexObjectAccess;

    VrexCylinderMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                       const std::shared_ptr<VrexConnector3D>& connector2);
    VrexCylinderMate3D(const VrexCylinderMate3D&) = default;
    VrexCylinderMate3D& operator=(VrexCylinderMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
