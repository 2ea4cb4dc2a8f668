// What holds of instances of every geometry.

#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexInstance3D.h"
#include "support/MovedParts.h"
#include "support/ObjectGraph.h"
#include "support/Poses.h"
#include "support/RandomSystems.h"

namespace {

using nsPoses::Motion;
using nsPoses::Vector;
using Geometry = std::shared_ptr<VrexGeometry3D>;
using Geometries = std::vector<Geometry>;

/// Two steps of 1.5 along X, then a third of a turn about the Z axis.
std::shared_ptr<VrexInstance3D> instanceOf(const Geometry& first, const Geometry& second) {
    const auto along = VrexLine3D::create({9.0, 9.0, 9.0}, {1.0, 0.0, 0.0});
    const auto about = VrexLine3D::create({0.0, 0.0, 5.0}, {0.0, 0.0, 1.0});
    return VrexInstance3D::create(
        first, second,
        VrexArrayPattern3D::create(
            {VrexPattern3D::create(VrexPattern3DType::Linear3D, along, 1.5),
             VrexPattern3D::create(VrexPattern3DType::Circular3D, about, 2.0 * std::numbers::pi / 3.0)}),
        {2, 1});
}

Motion placing() {
    const Motion turn{Vector::ZERO(), 2.0 * std::numbers::pi / 3.0, Vector::OZ()};
    return {turn.turn({3.0, 0.0, 0.0}), turn.angle, turn.axis};
}

Geometries wholeOf(const Geometry& geometry) {
    return keepOnly<VrexGeometry3D>(ObjectGraph(Geometries{geometry}).objects());
}

std::string textOf(const Geometry& geometry) { return ObjectGraph(Geometries{geometry}).text(); }

/// The second is a copy of the first: part for part it is the first one, moved.
void expectPlaced(const Geometry& first, const Geometry& second) {
    const Geometries from = wholeOf(first);
    const Geometries to = wholeOf(second);
    const MovedParts parts(*second);
    ASSERT_EQ(from.size(), to.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (parts.contains(to[i])) {
            nsPoses::expectPose(*to[i], placing()(nsPoses::poseOf(*from[i])));
        }
    }
}

TEST(VrexInstance3DRandom, CopyIsPlacedTwiceAsOnceAndTheFirstStays) {
    RandomSystems systems;
    int satisfied = 0;
    for (int i = 0; i < 1'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto copy = system.deepCopy();
        for (std::size_t k = 0; k < system.geometries().size(); ++k) {
            const Geometry& first = system.geometries()[k];
            const Geometry& second = copy.geometries()[k];
            SCOPED_TRACE(getEnumeratorText(first->type()));
            const auto instance = instanceOf(first, second);
            if (instance == nullptr) { // evaluated, over the objects of two systems
                continue;
            }
            const std::string before = textOf(first);
            instance->satisfy();
            EXPECT_EQ(textOf(first), before);
            expectPlaced(first, second);
            const std::string once = textOf(second);
            instance->satisfy();
            EXPECT_EQ(textOf(second), once);
            ++satisfied;
        }
    }
    EXPECT_GT(satisfied, 1'000);
}

} // namespace
