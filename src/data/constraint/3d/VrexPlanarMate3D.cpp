#include "data/constraint/3d/VrexPlanarMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexPlanarMate3D, VrexConstraint3DType::PlanarMate3D, 3)

std::shared_ptr<VrexPlanarMate3D> VrexPlanarMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                                                           const std::shared_ptr<VrexConnector3D>& connector2,
                                                           const VrexDimensionLimits& distanceXLimits,
                                                           const VrexDimensionLimits& distanceYLimits,
                                                           const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexPlanarMate3D>(connector1, connector2, distanceXLimits, distanceYLimits, angleLimits);
}
