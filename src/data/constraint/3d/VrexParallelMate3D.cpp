#include "data/constraint/3d/VrexParallelMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexParallelMate3D, VrexConstraint3DType::ParallelMate3D, 2)

std::shared_ptr<VrexParallelMate3D> VrexParallelMate3D::create(
    const std::shared_ptr<VrexConnector3D>& connector1, const std::shared_ptr<VrexConnector3D>& connector2,
    const VrexDimensionLimits& distanceXLimits, const VrexDimensionLimits& distanceYLimits,
    const VrexDimensionLimits& distanceZLimits, const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexParallelMate3D>(connector1, connector2, distanceXLimits, distanceYLimits,
                                        distanceZLimits, angleLimits);
}
