#include "data/constraint/3d/VrexBallMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexBallMate3D, VrexConstraint3DType::BallMate3D, 3)

std::shared_ptr<VrexBallMate3D> VrexBallMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                                                       const std::shared_ptr<VrexConnector3D>& connector2,
                                                       const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexBallMate3D>(connector1, connector2, angleLimits);
}

bool VrexBallMate3D::checkDimensionLimits(std::uint64_t index, const VrexDimensionLimits& limits) const {
    const auto& [lower, upper] = limits;
    return index == ANGLE && lower.has_value() && upper.has_value() && *lower >= BALL_MATE_HALF_ANGLE_MIN &&
           *upper <= BALL_MATE_HALF_ANGLE_MAX && *upper >= *lower;
}
