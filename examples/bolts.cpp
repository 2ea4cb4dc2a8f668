// Six bolts about the axis of a flange: five instances of the first one, each satisfying itself. A listener
// hears which bolts were placed.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <numbers>
#include <vector>

#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/operation/VrexGeometryOperationData.h"
#include "data/operation/VrexOperation.h"
#include "data/operation/VrexOperationListener.h"
#include "data/operation/VrexOperationListenerManager.h"

namespace {

constexpr std::size_t BOLTS = 6;
constexpr double CIRCLE = 40.0; ///< Radius of the circle that the bolts stand on.
constexpr double EXACT = 1e-9;
constexpr VrexOperationType PLACED{1};

/// The application's own view of a bolt: a set, and the members that it asks for.
struct Bolt {
    std::shared_ptr<VrexPoint3D> tip = VrexPoint3D::create(0.0, 0.0, 0.0);
    std::shared_ptr<VrexCylinder3D> shank = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    std::shared_ptr<VrexPlane3D> seat = VrexPlane3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    std::shared_ptr<VrexRigidSet3D> set = VrexRigidSet3D::create({tip, shank, seat});
};

class PrintingListener : public VrexOperationListener {
public:
    void onOperation(const std::shared_ptr<VrexOperation>& operation) override {
        const auto data = std::dynamic_pointer_cast<VrexGeometryOperationData>(operation->operationData());
        if (operation->operatoinType() == PLACED && data != nullptr) {
            std::printf("  placed bolt %llu\n",
                        static_cast<unsigned long long>(data->getGeometry()->getID()));
        }
    }
};

/// Bolt 0 leans outwards by `lean`, an angle in radians, and has a shank of `radius`.
void setFirst(const Bolt& bolt, double lean, double radius) {
    const VrexVector3DT<double> foot(CIRCLE, 0.0, 0.0);
    const VrexVector3DT<double> direction(std::sin(lean), 0.0, std::cos(lean));
    bolt.tip->setPosition(foot + direction * 30.0);
    bolt.shank->setOrigin(foot);
    bolt.shank->setDirection(direction);
    bolt.shank->setRadius(radius);
    bolt.seat->setOrigin(foot);
    bolt.seat->setNormal(direction);
}

/// Each shank stands a side of the hexagon away from the one before, and is of the same radius.
bool isCircleOf(const std::vector<Bolt>& bolts) {
    bool isCircle = true;
    for (std::size_t i = 0; i < BOLTS; ++i) {
        const Bolt& bolt = bolts[i];
        const Bolt& before = bolts[(i + BOLTS - 1) % BOLTS];
        const auto foot = bolt.shank->getOrigin();
        const auto tip = bolt.tip->getPosition();
        std::printf("  bolt %zu: foot (%8.3f, %8.3f, %6.3f), tip (%8.3f, %8.3f, %6.3f)\n", i, foot.x(),
                    foot.y(), foot.z(), tip.x(), tip.y(), tip.z());
        isCircle = isCircle && std::fabs(foot.distanceTo(before.shank->getOrigin()) - CIRCLE) < EXACT &&
                   std::fabs(foot.distanceTo(tip) - 30.0) < EXACT &&
                   bolt.shank->getRadius() == before.shank->getRadius();
    }
    return isCircle;
}

} // namespace

int main() {
    const auto axis = VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0});
    const auto pattern = VrexArrayPattern3D::create(
        {VrexPattern3D::create(VrexPattern3DType::Circular3D, axis, 2.0 * std::numbers::pi / BOLTS)});

    std::vector<Bolt> bolts(BOLTS);
    std::vector<std::shared_ptr<VrexInstance3D>> instances;
    for (std::size_t i = 1; i < BOLTS; ++i) {
        bolts[i].set->setID(i);
        instances.push_back(VrexInstance3D::create(bolts[0].set, bolts[i].set, pattern,
                                                   {static_cast<std::int32_t>(i)})); // i steps of the pattern
        if (instances.back() == nullptr) {
            std::printf("bolt %zu is no copy of the first\n", i);
            return 1;
        }
    }

    VrexOperationListenerManager listeners;
    listeners.addListener(std::make_shared<PrintingListener>());
    bool isCircle = true;
    for (const double lean :
         {0.0, 0.25}) { // upright first; then the first bolt changes, and the others follow
        std::printf("leaning by %g\n", lean);
        setFirst(bolts[0], lean, 2.5 + lean);
        for (const auto& instance : instances) {
            instance->satisfy();
            listeners.onOperation(std::make_shared<VrexOperation>(
                PLACED, std::make_shared<VrexGeometryOperationData>(instance->geometry(2))));
        }
        isCircle = isCircleOf(bolts) && isCircle;
    }
    return isCircle ? 0 : 1;
}
