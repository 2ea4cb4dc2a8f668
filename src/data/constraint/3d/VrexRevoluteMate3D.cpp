#include "data/constraint/3d/VrexRevoluteMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexRevoluteMate3D, VrexConstraint3DType::RevoluteMate3D, 5)

std::shared_ptr<VrexRevoluteMate3D>
VrexRevoluteMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                           const std::shared_ptr<VrexConnector3D>& connector2,
                           const VrexDimensionLimits& angleLimits) {
    return makeMate<VrexRevoluteMate3D>(connector1, connector2, angleLimits);
}
