// First steps: build entities, have bad input refused, differentiate a distance, back up and restore.

#include <cstdio>
#include <initializer_list>
#include <memory>
#include <vector>

#include "data/VrexBaseGeometry.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/base/VrexBaseDataManager.h"
#include "data/base/VrexIDGenerator.h"
#include "data/base/VrexLogRecorder.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "tolvbase/TolvLog.h"

namespace {

using Manager = VrexBaseDataManager<VrexBaseGeometry>;

/// Stores an entity, or records why not.
bool store(Manager& manager, const std::shared_ptr<VrexBaseGeometry>& geometry, VrexLogRecorder& recorder) {
    if (manager.addData(geometry)) {
        return true;
    }
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "The id %llu is taken.",
                           static_cast<unsigned long long>(geometry->getID()));
    return false;
}

void printPosition(const char* what, const VrexPoint3D& point) {
    const auto position = point.getPosition();
    std::printf("%-28s (%g, %g, %g)\n", what, position.x(), position.y(), position.z());
}

/// The distance of two points as a function of the six coordinates, with its gradient.
void differentiateDistance(const VrexPoint3D& from, const VrexPoint3D& to) {
    const auto a = from.getPosition();
    const auto b = to.getPosition();
    std::vector<VrexVariable> x{a.x(), a.y(), a.z(), b.x(), b.y(), b.z()};
    VrexVariable::initializeDerivatives(x);
    const VrexVector3DT<VrexVariable> p(x[0], x[1], x[2]);
    const VrexVector3DT<VrexVariable> q(x[3], x[4], x[5]);
    const VrexVariable distance = p.distanceTo(q);
    std::printf("%-28s %g\n%-28s", "distance", distance.value(), "its gradient");
    for (const auto& [index, derivative] : distance.derivatives()) {
        std::printf(" d/dx%llu = %g", static_cast<unsigned long long>(index), derivative);
    }
    std::printf("\n");
}

} // namespace

int main() {
    VrexLogRecorder recorder(1);
    VrexIDGenerator ids;
    Manager manager;

    const auto corner = VrexPoint3D::create(0.0, 0.0, 0.0);
    const auto tip = VrexPoint3D::create(3.0, 4.0, 12.0);
    const auto edge = VrexLine3D::create(corner->getPosition(), tip->getPosition());
    for (const std::shared_ptr<VrexBaseGeometry>& geometry :
         std::initializer_list<std::shared_ptr<VrexBaseGeometry>>{corner, tip, edge}) {
        geometry->setID(ids.next());
        store(manager, geometry, recorder);
    }
    manager.setLabel(tip->getID(), "tip");
    std::printf("%-28s %zu, the second is labelled \"%s\"\n", "stored geometries",
                manager.getDataMap().size(), manager.getLabel(tip->getID()).c_str());

    const auto intruder = VrexPoint3D::create(9.0, 9.0, 9.0);
    intruder->setID(tip->getID());
    if (!store(manager, intruder, recorder)) {
        std::printf("%-28s 0x%08X\n%-28s %s\n", "refused, code",
                    static_cast<unsigned>(recorder.getErrorCode()), "refused, message",
                    recorder.getErrorMessage());
    }

    differentiateDistance(*corner, *tip);

    tip->backup();
    tip->assign(3.0, 4.0, 12.5);
    printPosition("moved", *tip);
    std::printf("%-28s %s\n", "changed by more than 1e-8", tip->checkChanged(1e-8, 1e-11) ? "yes" : "no");
    tip->restore();
    printPosition("restored", *tip);
    return 0;
}
