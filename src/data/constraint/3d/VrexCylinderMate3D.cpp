#include "data/constraint/3d/VrexCylinderMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexCylinderMate3D, VrexConstraint3DType::CylinderMate3D, 4)

std::shared_ptr<VrexCylinderMate3D> VrexCylinderMate3D::create(
    const std::shared_ptr<VrexConnector3D>& connector1, const std::shared_ptr<VrexConnector3D>& connector2,
    const VrexDimensionLimits& distanceLimits, const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexCylinderMate3D>(connector1, connector2, distanceLimits, angleLimits);
}
