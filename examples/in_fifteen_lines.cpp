// The code that the README shows, line by line.

#include <cstdio>
#include <memory>
#include <vector>

#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/VrexSolver3D.h"

int main() {
    auto base = VrexPoint3D::create(0.0, 0.0, 0.0); // always held by shared pointers
    auto tip = VrexPoint3D::create(3.0, 4.0, 11.0);
    auto roof = VrexPlane3D::create({0.0, 0.0, 12.0}, {0.0, 0.0, 1.0});
    const auto held = VrexFixation3DType::Complete3D;
    const auto whole = VrexGeometryComponentType::UNKNOWN; // not its axis or centre
    const VrexSolverReport report = VrexSolver3D().solve(
        {base, tip, roof}, {VrexFixation3D::create(base, held), VrexFixation3D::create(roof, held),
                            VrexDistance3D::create(base, tip, 13.0, whole, whole),
                            VrexDistance3D::create(tip, roof, 0.0, whole, whole)});
    const VrexVector3DT<double> at = tip->getPosition(); // on the roof, and 13 from the base
    std::printf("%zu degree of freedom, at height %.1f\n", report.components[0].freedom, at.z());

    std::vector<VrexVariable> x{0.0, 0.0, 0.0, at.x(), at.y(), at.z()};
    VrexVariable::initializeDerivatives(x); // variable i is x[i]
    const VrexVector3DT<VrexVariable> a(x[0], x[1], x[2]), b(x[3], x[4], x[5]);
    const VrexVariable distance = a.distanceTo(b); // 13, with its gradient in distance.derivatives()
    std::printf("by the height: %.4f\n", distance.derivatives()[5]); // 12 / 13
    return report.isConverged() ? 0 : 1;
}
