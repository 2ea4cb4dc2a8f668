#include "data/graph/VrexConnectedComponent.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "support/GraphSystems.h"
#include "support/LogCapture.h"

namespace {

using Geometry = std::shared_ptr<VrexBaseGeometry>;
using Constraint = std::shared_ptr<VrexBaseConstraint>;
using Geometries = std::vector<Geometry>;
using Constraints = std::vector<Constraint>;

TEST(VrexConnectedComponent, StartsEmptyAndUnsolved) {
    VrexConnectedComponent component;
    EXPECT_EQ(component.getScale(), 0U);
    EXPECT_EQ(component.getID(), 0U);
    EXPECT_TRUE(component.needAnalysisStatus());
    EXPECT_EQ(static_cast<int>(component.getResultStatus()), -1);
    EXPECT_TRUE(component.getOverConstrainedSubsets().empty());
    EXPECT_TRUE(component.getGeomUnderdefinedDof().empty());
}

TEST(VrexConnectedComponent, KeepsWhatTheSolverSays) {
    VrexConnectedComponent component;
    component.assignID(12);
    component.setNeedAnalysisStatus(false);
    component.setResultStatus(VrexResultStatus{3});
    component.getOverConstrainedSubsets().push_back({1, 2});
    component.getGeomUnderdefinedDof()[5].rotations = 1;
    const VrexConnectedComponent copy(component);
    EXPECT_EQ(VrexConnectedComponent(copy).getID(), 12U);
    EXPECT_FALSE(copy.needAnalysisStatus());
    EXPECT_EQ(static_cast<int>(copy.getResultStatus()), 3);
    EXPECT_EQ(VrexConnectedComponent(copy).getOverConstrainedSubsets(),
              (std::vector<std::vector<std::uint64_t>>{{1, 2}}));
}

TEST(VrexConnectedComponent, ScaleOfTwoGeometriesAndThreeConstraintsIsFive) {
    const Geometry first = PartedGeometry::create(1);
    const Geometry second = PartedGeometry::create(2);
    Constraints constraints;
    for (std::uint64_t id = 3; id <= 5; ++id) {
        constraints.push_back(LooseConstraint::create(id, {first, second}));
    }
    VrexConnectedComponent component({first, second}, constraints);
    EXPECT_EQ(component.getScale(), 5U);
    EXPECT_EQ(component.getGeometries(), (Geometries{first, second}));
    EXPECT_EQ(component.getConstraints(), constraints);
}

TEST(VrexConnectedComponent, HoldsEachObjectOnceByAddress) {
    const Geometry geometry = PartedGeometry::create(1);
    const Geometry namesake = PartedGeometry::create(1);
    const Constraint constraint = LooseConstraint::create(2, {});
    VrexConnectedComponent component({geometry, nullptr, geometry}, {constraint, nullptr, constraint});
    EXPECT_EQ(component.getScale(), 2U);
    EXPECT_TRUE(component.hasGeometry(geometry));
    EXPECT_FALSE(component.hasGeometry(namesake));
    EXPECT_FALSE(component.hasGeometry(nullptr));
    EXPECT_TRUE(component.hasConstraint(constraint));
    EXPECT_FALSE(component.hasConstraint(nullptr));
}

TEST(VrexConnectedComponent, FixationBringsItsGeometry) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint fixation = LooseConstraint::fix(2, geometry);
    VrexConnectedComponent component;
    component.addConstraint(fixation);
    EXPECT_TRUE(component.hasGeometry(geometry));
    EXPECT_EQ(component.getCompleteFixation(geometry), fixation);
    EXPECT_EQ(component.getCompleteFixation(PartedGeometry::create(9)), nullptr);
    EXPECT_EQ(component.getCompleteFixation(nullptr), nullptr);
}

TEST(VrexConnectedComponent, FixationWithoutGeometryIsTold) {
    const LogCapture log;
    VrexConnectedComponent component({}, {LooseConstraint::fix(2, nullptr)});
    EXPECT_EQ(component.getScale(), 1U);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
}

TEST(VrexConnectedComponent, RemovedGeometryLeavesItsFixation) {
    const Geometry geometry = PartedGeometry::create(1);
    const Constraint fixation = LooseConstraint::fix(2, geometry);
    VrexConnectedComponent component({}, {fixation});
    component.removeGeometry(geometry);
    EXPECT_FALSE(component.hasGeometry(geometry));
    EXPECT_TRUE(component.hasConstraint(fixation));
    EXPECT_EQ(component.getCompleteFixation(geometry), fixation);
    component.removeConstraint(fixation);
    EXPECT_EQ(component.getCompleteFixation(geometry), nullptr);
    EXPECT_EQ(component.getScale(), 0U);
    component.removeConstraint(nullptr);
    component.removeGeometry(nullptr);
}

TEST(VrexConnectedComponent, OrderOfInsertionOutlivesRemovals) {
    Geometries all;
    VrexConnectedComponent component;
    for (std::uint64_t id = 1; id <= 100; ++id) {
        all.push_back(PartedGeometry::create(id));
        component.addGeometry(all.back());
    }
    Geometries expected;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i % 10 == 0) {
            expected.push_back(all[i]);
        } else {
            component.removeGeometry(all[i]);
            EXPECT_FALSE(component.hasGeometry(all[i]));
        }
    }
    component.addGeometry(all[1]);
    component.addGeometry(all[0]);
    expected.push_back(all[1]);
    EXPECT_EQ(component.getGeometries(), expected);
    EXPECT_TRUE(component.hasGeometry(all[1]));
    EXPECT_EQ(component.getScale(), 11U);
}

} // namespace
