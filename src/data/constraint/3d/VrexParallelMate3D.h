#pragma once

#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that moves freely and turns about one axis: kind `ParallelMate3D`, degree of constraint 2, four
/// dimensions.
class VREX_DATA_EXPORT VrexParallelMate3D final : public VrexMate3D {
public:
    static constexpr int DISTANCE_X = 0, DISTANCE_Y = 1, DISTANCE_Z = 2, ANGLE = 3;
    static constexpr int DIMENSIONS_AMOUNT = 4;
    /// A mate without identifier, its dimensions 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexParallelMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& distanceXLimits,
           const VrexDimensionLimits& distanceYLimits, const VrexDimensionLimits& distanceZLimits,
           const VrexDimensionLimits& angleLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;

    VrexMateDimension3D& getDistanceX() { return getDimension(DISTANCE_X); }
    const VrexMateDimension3D& getDistanceX() const { return getDimension(DISTANCE_X); }
    VrexMateDimension3D& getDistanceY() { return getDimension(DISTANCE_Y); }
    const VrexMateDimension3D& getDistanceY() const { return getDimension(DISTANCE_Y); }
    VrexMateDimension3D& getDistanceZ() { return getDimension(DISTANCE_Z); }
    const VrexMateDimension3D& getDistanceZ() const { return getDimension(DISTANCE_Z); }
    VrexMateDimension3D& getAngle() { return getDimension(ANGLE); }
    const VrexMateDimension3D& getAngle() const { return getDimension(ANGLE); }

private:
    friend class VrexObjectAccess;

    VrexParallelMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                       const std::shared_ptr<VrexConnector3D>& connector2);
    VrexParallelMate3D(const VrexParallelMate3D&) = default;
    VrexParallelMate3D& operator=(VrexParallelMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
