#pragma once

#include <cstdint>
#include <memory>

#include "data/VrexExport.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimension3D.h"
#include "data/constraint/VrexDimensionLimits.h"

class VrexConnector3D;

/// A joint that turns about one point: kind `BallMate3D`, degree of constraint 3, one dimension.
///
/// The dimension is the half angle of the cone within which the joint swings.
class VREX_DATA_EXPORT VrexBallMate3D final : public VrexMate3D {
public:
    static constexpr int ANGLE = 0;
    static constexpr int DIMENSIONS_AMOUNT = 1;
    /// Radians.
    static constexpr double BALL_MATE_HALF_ANGLE_MIN = 0.0;
    static constexpr double BALL_MATE_HALF_ANGLE_MAX = 3.141592653589793;
    /// A mate without identifier, its angle 0; never null. Null connectors and any limits are stored as
    /// given.
    [[nodiscard]] static std::shared_ptr<VrexBallMate3D>
    create(const std::shared_ptr<VrexConnector3D>& connector1,
           const std::shared_ptr<VrexConnector3D>& connector2, const VrexDimensionLimits& angleLimits);

    std::shared_ptr<VrexBaseObject> makeCopy() override;
    void accept(VrexVisitor3D& visitor) override;
    int doc() const override;
    /// True for index 0 with both ends given, 0 <= lower <= upper <= pi.
    bool checkDimensionLimits(std::uint64_t index, const VrexDimensionLimits& limits) const override;

    VrexMateDimension3D& getAngle() { return getDimension(ANGLE); }
    const VrexMateDimension3D& getAngle() const { return getDimension(ANGLE); }

private:
    friend class VrexObjectAccess;

    VrexBallMate3D(const std::shared_ptr<VrexConnector3D>& connector1,
                   const std::shared_ptr<VrexConnector3D>& connector2);
    VrexBallMate3D(const VrexBallMate3D&) = default;
    VrexBallMate3D& operator=(VrexBallMate3D&&) = default;
    void restoreFromCopy(const VrexBaseObject& copy) override;
};
