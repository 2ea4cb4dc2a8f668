#include "data/constraint/3d/VrexFastenedMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexFastenedMate3D, VrexConstraint3DType::FastenedMate3D, 6)

std::shared_ptr<VrexFastenedMate3D>
VrexFastenedMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                           const std::shared_ptr<VrexConnector3D>& connector2) {
    return makeMate<VrexFastenedMate3D>(connector1, connector2);
}
