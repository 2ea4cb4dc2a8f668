#include "data/geometry/VrexGeometryManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/Numbered.h"
#include "support/RefusalChecks.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<VrexPoint3D> point(std::uint64_t id) {
    return numbered(VrexPoint3D::create(1.0, 2.0, 3.0), id);
}

std::shared_ptr<VrexRigidSet3D> rigidSet(std::uint64_t id,
                                         std::vector<std::shared_ptr<VrexGeometry3D>> members) {
    return numbered(VrexRigidSet3D::create(std::move(members)), id);
}

std::shared_ptr<VrexConnector3D> connector(std::uint64_t id, std::shared_ptr<VrexRigidSet3D> set) {
    return numbered(VrexConnector3D::create(std::move(set)), id);
}

/// The manager with what its subclasses may do.
class OpenManager : public VrexGeometryManager {
public:
    using VrexGeometryManager::initGeometryRelatedMap;
    using VrexGeometryManager::VrexGeometryManager;
    bool isUsed(std::uint64_t id) const { return m_relatedMap.contains(id); }
};

class VrexGeometryManagerTest : public testing::Test {
protected:
    VrexLogRecorder recorder{3};
    OpenManager manager{recorder};
};

TEST_F(VrexGeometryManagerTest, ATakenIdentifierKeepsTheFirstObjectAndIsRecordedOnce) {
    const auto first = point(7);
    manager.addGeometry(first);
    expectRefusal(recorder, VrexErrorCode::ID_EXISTED,
                  "Failed to add geometry, the geometry id has existed, id : 7.",
                  [&] { manager.addGeometry(point(7)); });
    EXPECT_EQ(manager.findData(7), first);
    EXPECT_EQ(manager.getDataMap().size(), 1U);
}

TEST_F(VrexGeometryManagerTest, GeometriesWithoutIdentifierShareOnePlace) {
    manager.addGeometry(point(0));
    expectRefusal(recorder, VrexErrorCode::ID_EXISTED,
                  "Failed to add geometry, the geometry id has existed, id : 0.",
                  [&] { manager.addGeometry(point(0)); });
}

TEST_F(VrexGeometryManagerTest, NullIsRefusedByEveryOperation) {
    manager.addGeometry(point(7));
    const std::function<void()> calls[] = {
        [&] { manager.addGeometry(nullptr); },
        [&] { EXPECT_FALSE(manager.removeGeometry(nullptr)); },
        [&] { EXPECT_THAT(manager.findRelatedGeometries(nullptr), IsEmpty()); },
        [&] { EXPECT_EQ(manager.findRelatedSet(nullptr), 0U); },
        [&] { manager.addGeometryRelateSet(nullptr, 5); },
        [&] { manager.updateGeometryRelateSet(nullptr); },
        [&] { manager.initGeometryRelatedMap(nullptr); }};
    for (const auto& call : calls) {
        expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!", call);
    }
    EXPECT_EQ(manager.getDataMap().size(), 1U);
}

TEST_F(VrexGeometryManagerTest, GeometriesRiseByIdentifier) {
    const auto a = point(70000);
    const auto b = point(2);
    const auto c = numbered(VrexGeometryVariable::create(1.0), 9);
    for (const std::shared_ptr<VrexBaseGeometry>& geometry :
         std::initializer_list<std::shared_ptr<VrexBaseGeometry>>{a, b, c}) {
        manager.addGeometry(geometry);
    }
    EXPECT_THAT(manager.getGeometries(), ElementsAre(b, c, a));
}

TEST_F(VrexGeometryManagerTest, LooksUpIdentifiersInOrder) {
    const auto a = point(1);
    const auto b = point(2);
    manager.addGeometry(a);
    manager.addGeometry(b);
    std::vector<std::shared_ptr<VrexBaseGeometry>> out;
    EXPECT_TRUE(manager.getGeometries({}, out));
    EXPECT_THAT(out, IsEmpty());
    EXPECT_TRUE(manager.getGeometries({2, 1, 2}, out));
    EXPECT_THAT(out, ElementsAre(b, a, b));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexGeometryManagerTest, AMissingIdentifierEndsTheLookUpAndLeavesWhatWasFound) {
    const auto a = point(1);
    manager.addGeometry(a);
    std::vector<std::shared_ptr<VrexBaseGeometry>> out;
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!", [&] {
        EXPECT_FALSE(manager.getGeometries({1, 5, 1}, out));
    });
    EXPECT_THAT(out, ElementsAre(a));
}

TEST_F(VrexGeometryManagerTest, ResettingTurnsChangedIntoNotChangedAndNothingElse) {
    const auto changed = point(1);
    const auto unknown = point(2);
    changed->setChangeStatus(VrexGeometryChangeStatus::Changed);
    const auto before = static_cast<VrexGeometryChangeStatus>(7);
    unknown->setChangeStatus(before);
    manager.addGeometry(changed);
    manager.addGeometry(unknown);
    manager.resetStatus();
    EXPECT_EQ(changed->getChangeStatus(), VrexGeometryChangeStatus::NotChanged);
    EXPECT_EQ(unknown->getChangeStatus(), before);
}

TEST_F(VrexGeometryManagerTest, UsersAreFoundWhileTheyAreStored) {
    const auto set = rigidSet(5, {});
    const auto late = connector(9, set);
    const auto early = connector(8, set);
    for (const auto& user : {late, early}) {
        manager.addGeometry(user);
        manager.initGeometryRelatedMap(user);
    }
    EXPECT_THAT(manager.findRelatedGeometries(set), ElementsAre(early, late));
    EXPECT_THAT(manager.findRelatedGeometries(late), IsEmpty());
    manager.removeData(8);
    EXPECT_THAT(manager.findRelatedGeometries(set), ElementsAre(late));
}

TEST_F(VrexGeometryManagerTest, TheEntryGoesWithTheLastUser) {
    const auto set = rigidSet(5, {});
    const auto first = connector(8, set);
    const auto second = connector(9, set);
    for (const auto& user : {first, second}) {
        manager.addGeometry(user);
        manager.initGeometryRelatedMap(user);
    }
    EXPECT_TRUE(manager.removeGeometry(first));
    EXPECT_TRUE(manager.isUsed(5));
    EXPECT_TRUE(manager.removeGeometry(second));
    EXPECT_FALSE(manager.isUsed(5));
    EXPECT_FALSE(manager.removeGeometry(second));
}

TEST_F(VrexGeometryManagerTest, ARemovedGeometryKeepsItsUsersUntilItsEntryIsErased) {
    const auto set = rigidSet(5, {});
    const auto user = connector(8, set);
    manager.addGeometry(set);
    manager.addGeometry(user);
    manager.initGeometryRelatedMap(user);
    EXPECT_TRUE(manager.removeGeometry(set));
    EXPECT_TRUE(manager.isUsed(5));
    manager.removeGeometryFromMap(5);
    EXPECT_FALSE(manager.isUsed(5));
}

TEST_F(VrexGeometryManagerTest, RemovingASetFreesItsMembersAndRemovingACurveWhatDerivesFromIt) {
    const auto member = point(1);
    const auto set = rigidSet(5, {member});
    manager.addGeometry(set);
    manager.addGeometryRelateSet(member, 5);
    for (const std::uint64_t id : {11, 12, 13}) {
        manager.addOffsetRelationship(id, id - 1);
        manager.addCopyCurveRelationship(id, id - 1);
    }
    EXPECT_TRUE(manager.removeGeometry(set));
    EXPECT_EQ(manager.findRelatedSet(member), 0U);
    EXPECT_FALSE(manager.removeGeometry(point(12)));
    EXPECT_EQ(manager.findOffsetRootCurve(13), 0U);
    EXPECT_EQ(manager.findCopyCurveRootCurve(13), 0U);
    EXPECT_EQ(manager.findOffsetRootCurve(11), 10U);
}

TEST_F(VrexGeometryManagerTest, EnteringASetReachesWhatItsMembersAreBuiltOn) {
    const auto deep = point(1);
    const auto inner = rigidSet(2, {deep});
    const auto frame = connector(3, inner);
    const auto outer = rigidSet(4, {frame});
    manager.addGeometryRelateSet(outer, 9);
    for (const std::shared_ptr<VrexBaseGeometry>& part :
         std::initializer_list<std::shared_ptr<VrexBaseGeometry>>{deep, inner, frame, outer}) {
        EXPECT_EQ(manager.findRelatedSet(part), 9U);
    }
    manager.updateGeometryRelateSet(outer);
    EXPECT_EQ(manager.findRelatedSet(frame), 4U);
    EXPECT_EQ(manager.findRelatedSet(inner), 9U);
    EXPECT_TRUE(manager.removeGeometryFromSet(2));
    EXPECT_FALSE(manager.removeGeometryFromSet(2));
    EXPECT_EQ(manager.findRelatedSet(inner), 0U);
}

TEST_F(VrexGeometryManagerTest, UpdatingASetForgetsFormerMembers) {
    const auto stays = point(1);
    const auto leaves = point(2);
    const auto set = rigidSet(4, {stays, leaves});
    manager.updateGeometryRelateSet(set);
    set->geometries() = {stays, nullptr};
    manager.updateGeometryRelateSet(set);
    EXPECT_EQ(manager.findRelatedSet(stays), 4U);
    EXPECT_EQ(manager.findRelatedSet(leaves), 0U);
}

TEST_F(VrexGeometryManagerTest, ASetThatHoldsItsOwnConnectorIsEnteredOnce) {
    const auto set = rigidSet(4, {});
    const auto frame = connector(3, set);
    set->geometries().push_back(frame);
    manager.addGeometryRelateSet(set, 9);
    EXPECT_EQ(manager.findRelatedSet(set), 9U);
    EXPECT_EQ(manager.findRelatedSet(frame), 9U);
    set->geometries().clear(); // unties the ring
}

TEST_F(VrexGeometryManagerTest, DeepSetsAreEnteredOnASmallStack) {
    runOnSmallStack([this] {
        constexpr std::uint64_t depth = 100'000;
        std::shared_ptr<VrexRigidSet3D> set = rigidSet(1, {});
        const auto deepest = set;
        for (std::uint64_t id = 2; id <= depth; ++id) {
            set = rigidSet(id, {set});
        }
        manager.addGeometryRelateSet(set, depth + 1);
        EXPECT_EQ(manager.findRelatedSet(deepest), depth + 1);
    });
}

TEST_F(VrexGeometryManagerTest, CurvesHaveRootsAndChildrenByOffsetAndByCopyApart) {
    manager.addOffsetRelationship(3, 1);
    manager.addOffsetRelationship(2, 1);
    manager.addCopyCurveRelationship(4, 3);
    EXPECT_EQ(manager.findOffsetRootCurve(1), 0U);
    EXPECT_EQ(manager.findOffsetRootCurve(2), 1U);
    EXPECT_THAT(manager.findOffsetChildCurve(1), ElementsAre(2, 3));
    EXPECT_EQ(manager.findCopyCurveRootCurve(4), 3U);
    EXPECT_EQ(manager.findOffsetRootCurve(4), 0U);
    EXPECT_THAT(manager.findCopyCurveChildCurve(3), ElementsAre(4));
    EXPECT_THAT(manager.findCopyCurveChildCurve(1), IsEmpty());
}

TEST_F(VrexGeometryManagerTest, OneselfAndASecondParentChangeNothing) {
    manager.addOffsetRelationship(1, 1);
    manager.addOffsetRelationship(2, 1);
    manager.addOffsetRelationship(2, 3);
    EXPECT_EQ(manager.findOffsetRootCurve(1), 0U);
    EXPECT_EQ(manager.findOffsetRootCurve(2), 1U);
    EXPECT_THAT(manager.findOffsetChildCurve(3), IsEmpty());
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexGeometryManagerTest, ClearForgetsObjectsAndEveryRelation) {
    const auto set = rigidSet(5, {});
    const auto user = connector(8, set);
    manager.addGeometry(user);
    manager.initGeometryRelatedMap(user);
    manager.addGeometryRelateSet(user, 5);
    manager.addOffsetRelationship(2, 1);
    manager.addCopyCurveRelationship(2, 1);
    VrexBaseDataManager<VrexBaseGeometry>& base = manager;
    base.clear();
    EXPECT_TRUE(manager.getDataMap().empty());
    EXPECT_FALSE(manager.isUsed(5));
    EXPECT_EQ(manager.findRelatedSet(user), 0U);
    EXPECT_EQ(manager.findOffsetRootCurve(2), 0U);
    EXPECT_EQ(manager.findCopyCurveRootCurve(2), 0U);
}

} // namespace
