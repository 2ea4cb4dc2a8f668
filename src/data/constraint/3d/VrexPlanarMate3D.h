#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that slides in a plane and turns about its normal: kind `PlanarMate3D`, degree of constraint 3,
/// three dimensions.
class VREX_DATA_EXPORT VrexPlanarMate3D final : public VrexMate3D {
public:
    static constexpr int DISTANCE_X = 0, DISTANCE_Y = 1, ANGLE = 2;
    static constexpr int DIMENSIONS_AMOUNT = 3;
    /// A mate without identifier, its dimensions 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexPlanarMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& distanceXLimits,
           const VrexDimensionLimits& distanceYLimits, const VrexDimensionLimits& angleLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexMateDimension3D& getDistanceX() { return getDimension(DISTANCE_X); }
    const VrexMateDimension3D& getDistanceX() const { return getDimension(DISTANCE_X); }
    VrexMateDimension3D& getDistanceY() { return getDimension(DISTANCE_Y); }
    const VrexMateDimension3D& getDistanceY() const { return getDimension(DISTANCE_Y); }
    VrexMateDimension3D& getAngle() { return getDimension(ANGLE); }
    const VrexMateDimension3D& getAngle() const { return getDimension(ANGLE); }

private:
    friend class VrexObjectAccess;

    VrexPlanarMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                     const std::shared_ptr<VrexConnector3D>& connector2);
    VrexPlanarMate3D(const VrexPlanarMate3D&) = default;
    VrexPlanarMate3D& operator=(VrexPlanarMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
