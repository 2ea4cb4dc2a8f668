#include "data/constraint/3d/VrexPerpendicularity3D.h"

#include "data/constraint/3d/VrexDirectedKinds.h"
#include "data/constraint/3d/VrexPairBody.h"

VREX_PAIR_BODY(VrexPerpendicularity3D, VrexConstraint3DType::Perpendicularity3D)

bool VrexPerpendicularity3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return DIRECTED_KINDS.contains(type1) && DIRECTED_KINDS.contains(type2);
}

int VrexPerpendicularity3D::doc() const { return 1; }
