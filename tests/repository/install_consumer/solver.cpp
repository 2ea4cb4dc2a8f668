#include <cmath>
#include <memory>
#include <vector>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/VrexSolver3D.h"

int main() {
    const auto whole = VrexGeometryComponentType::UNKNOWN;
    const auto first = VrexPoint3D::create(0.0, 0.0, 0.0);
    const auto second = VrexPoint3D::create(1.0, 2.0, 2.0);
    const auto distance = VrexDistance3D::create(first, second, 6.0, whole, whole);
    const std::vector<std::shared_ptr<VrexBaseGeometry>> points{first, second};
    const bool isSolved = VrexSolver3D().solve(points, {distance}).isConverged();
    const double length = (second->getPosition() - first->getPosition()).magnitude();
    return isSolved && std::abs(length - 6.0) < 1e-9 ? 0 : 1;
}
