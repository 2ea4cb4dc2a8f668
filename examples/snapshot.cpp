// Two holes in a plate, so far apart as a free scalar says. Changes are tried on deep copies of a snapshot:
// one is dropped, which leaves no trace, the other is assigned back onto the application's own objects.

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <vector>

#include "data/3d/VrexAssigner3D.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexImmutableSystem3D.h"

namespace {

constexpr auto CENTER = VrexGeometryComponentType::CENTER;
constexpr double ROOM = 70.0; ///< The widest gap that the plate has room for.
constexpr double EXACT = 1e-12;

using Hole = std::shared_ptr<VrexCircle3D>;

Hole holeOf(const VrexImmutableSystem3D& system, std::size_t index) {
    return std::dynamic_pointer_cast<VrexCircle3D>(system.geometries()[index]);
}

double gapOf(const VrexImmutableSystem3D& system) {
    return holeOf(system, 0)->getCenter().distanceTo(holeOf(system, 1)->getCenter());
}

/// Stands for a solver: sets the scalar, and moves the second hole along the line of the centers.
void solve(const VrexImmutableSystem3D& system, double width) {
    system.variables().front()->setValue(width);
    const auto from = holeOf(system, 0)->getCenter();
    const auto to = holeOf(system, 1)->getCenter();
    holeOf(system, 1)->setCenter(from + (to - from) * (width / from.distanceTo(to)));
    system.constraints().front()->satisfiedStatus() = VrexConstraintSatisfiedStatus::Satisfied;
}

/// A copy lists its objects as its source does, so that they go by pairs.
template <class Object>
void assignAll(const std::vector<std::shared_ptr<Object>>& sources,
               const std::vector<std::shared_ptr<Object>>& targets) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
        VrexAssigner3D()(*sources[i], *targets[i]);
    }
}

void takeBack(const VrexImmutableSystem3D& copy, const VrexImmutableSystem3D& system) {
    assignAll(copy.geometries(), system.geometries());
    assignAll(copy.variables(), system.variables());
    assignAll(copy.constraints(), system.constraints());
}

/// The gap after a try of `width`; the system takes it over where there is room.
double tryWidth(const VrexImmutableSystem3D& system, double width) {
    const VrexImmutableSystem3D copy = system.deepCopy();
    solve(copy, width);
    const bool fits = gapOf(copy) <= ROOM;
    std::printf("  %g: the copy has a gap of %g, which %s\n", width, gapOf(copy),
                fits ? "fits" : "does not fit");
    if (fits) {
        takeBack(copy, system);
    }
    return gapOf(system);
}

} // namespace

int main() {
    const Hole left = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 5.0);
    const Hole right = VrexCircle3D::create({30.0, 40.0, 0.0}, {0.0, 0.0, 1.0}, 5.0);
    const auto plate = VrexRigidSet3D::create({left, right});
    const auto width = VrexGeometryVariable::create(50.0);
    const auto distance = VrexDistance3D::create(left, right, 50.0, CENTER, CENTER);
    distance->bindVariable(width);

    // The holes come before the plate that is made of them, whatever the order in which they are given.
    const VrexImmutableSystem3D system(VrexImmutableSystem3D::OrderGeometriesAndConstraints(), {plate},
                                       {width}, {distance}, {}, 1e-6, 1e-8, {}, {});
    std::printf("a gap of %g\n", gapOf(system));
    const bool isUntouched = tryWidth(system, 80.0) == 50.0 && width->getValue() == 50.0 &&
                             distance->satisfiedStatus() == VrexConstraintSatisfiedStatus::Unknown;
    const bool isTaken = std::fabs(tryWidth(system, 60.0) - 60.0) < EXACT && distance->value() == 60.0 &&
                         distance->satisfiedStatus() == VrexConstraintSatisfiedStatus::Satisfied;
    const auto center = right->getCenter();
    std::printf("the right hole stands at (%g, %g, %g)\n", center.x(), center.y(), center.z());
    return isUntouched && isTaken ? 0 : 1;
}
