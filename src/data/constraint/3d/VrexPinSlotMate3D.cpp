#include "data/constraint/3d/VrexPinSlotMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexPinSlotMate3D, VrexConstraint3DType::PinSlotMate3D, 4)

std::shared_ptr<VrexPinSlotMate3D>
VrexPinSlotMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                          const std::shared_ptr<VrexConnector3D>& connector2,
                          const VrexDimensionLimits& distanceLimits, const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexPinSlotMate3D>(connector1, connector2, distanceLimits, angleLimits);
}
