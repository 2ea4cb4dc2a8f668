#include "data/constraint/3d/VrexSliderMate3D.h"

#include "data/constraint/3d/VrexMateBody.h"

VREX_MATE_BODY(VrexSliderMate3D, VrexConstraint3DType::SliderMate3D, 5)

std::shared_ptr<VrexSliderMate3D> VrexSliderMate3D::create(const std::shared_ptr<VrexConnector3D>& connector1,
                                                           const std::shared_ptr<VrexConnector3D>& connector2,
                                                           const VrexDimensionLimits& distanceLimits) {
    return makeMate<VrexSliderMate3D>(connector1, connector2, distanceLimits);
}
