// What holds of motions of every system.

#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexGeometryTransformation3DVisitor.h"
#include "support/MovedParts.h"
#include "support/ObjectGraph.h"
#include "support/Poses.h"
#include "support/RandomSystems.h"

namespace {

using nsPoses::expectPose;
using nsPoses::findPose;
using nsPoses::parametersOf;
using nsPoses::Pose;
using nsPoses::someMotion;
using testing::DoubleNear;
using testing::Pointwise;
using Geometries = std::vector<std::shared_ptr<VrexGeometry3D>>;

/// An entity, and what it was.
struct Before {
    explicit Before(const std::shared_ptr<VrexGeometry3D>& entity)
        : geometry(entity), pose(findPose(*entity)), parameters(parametersOf(entity)) {}

    std::shared_ptr<VrexGeometry3D> geometry;
    std::optional<Pose> pose;
    std::vector<double> parameters;
};

/// The entities of a system, also those that are not listed.
std::vector<Before> readAll(const VrexImmutableSystem3D& system) {
    const auto entities = keepOnly<VrexGeometry3D>(ObjectGraph(system.geometries()).objects());
    return {entities.begin(), entities.end()};
}

void move(VrexGeometry3D& geometry, const VrexTransformation3DT<double>& motion) {
    VrexGeometryTransformation3DVisitor visitor(motion, false);
    geometry.accept(visitor);
}

TEST(VrexGeometryTransformation3DVisitorRandom, MovesEachPartOnceAndNothingElse) {
    RandomSystems systems;
    int moved = 0;
    for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        for (const auto& root : system.geometries()) {
            SCOPED_TRACE(getEnumeratorText(root->type()));
            const auto all = readAll(system);
            const MovedParts parts(*root);
            move(*root, someMotion().transformation());
            for (const Before& before : all) {
                if (parts.contains(before.geometry)) {
                    expectPose(*before.geometry, someMotion()(before.pose.value()));
                    ++moved;
                } else {
                    EXPECT_EQ(parametersOf(before.geometry), before.parameters);
                }
            }
        }
    }
    EXPECT_GT(moved, 2'000);
}

TEST(VrexGeometryTransformation3DVisitorRandom, MotionAndItsInverseRestoreEveryParameter) {
    RandomSystems systems;
    const auto motion = someMotion().transformation();
    for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        for (const auto& root : system.geometries()) {
            SCOPED_TRACE(getEnumeratorText(root->type()));
            const auto all = readAll(system);
            move(*root, motion);
            move(*root, motion.getInversed());
            for (const Before& before : all) {
                EXPECT_THAT(parametersOf(before.geometry), Pointwise(DoubleNear(1e-9), before.parameters));
            }
        }
    }
}

} // namespace
