// The code that the README shows, line by line.

#include <cstdio>
#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/base/VrexLogRecorder.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"

int main() {
    auto tip = VrexPoint3D::create(3.0, 4.0, 12.0); // always held by shared pointers
    auto edge = VrexLine3D::create({0.0, 0.0, 0.0}, tip->getPosition());
    tip->backup(); // a stack of snapshots
    tip->setZ(12.5);
    const bool moved = tip->checkChanged(1e-8, 1e-11); // true
    tip->restore();

    std::vector<VrexVariable> x{0.0, 0.0, 0.0, 3.0, 4.0, 12.0};
    VrexVariable::initializeDerivatives(x); // variable i is x[i]
    const VrexVector3DT<VrexVariable> a(x[0], x[1], x[2]), b(x[3], x[4], x[5]);
    const VrexVariable distance = a.distanceTo(b); // 13, with its gradient in distance.derivatives()

    VrexLogRecorder recorder(1);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "The id %d is taken.", 2);
    std::puts(recorder.getErrorMessage()); // sid:: 1, tid: , [0x30000002]: The id 2 is taken., ErrorCode: ...

    return moved && distance.value() == 13.0 && edge->dof() == 4 ? 0 : 1;
}
