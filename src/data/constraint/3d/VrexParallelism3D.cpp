#include "data/constraint/3d/VrexParallelism3D.h"

#include "data/constraint/3d/VrexDirectedKinds.h"
#include "data/constraint/3d/VrexPairBody.h"

VREX_PAIR_BODY(VrexParallelism3D, VrexConstraint3DType::Parallelism3D)

bool VrexParallelism3D::canCreate(VrexGeometry3DType type1, VrexGeometry3DType type2) {
    return DIRECTED_KINDS.contains(type1) && DIRECTED_KINDS.contains(type2);
}

int VrexParallelism3D::doc() const { return 2; }
