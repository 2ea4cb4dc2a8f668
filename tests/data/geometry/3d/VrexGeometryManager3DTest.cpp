#include "data/geometry/3d/VrexGeometryManager3D.h"

#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/base/VrexLogRecorder.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"
#include "support/RefusalChecks.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<VrexPoint3D> point(std::uint64_t id) {
    return numbered(VrexPoint3D::create(1.0, 2.0, 3.0), id);
}

std::shared_ptr<VrexSpline3D> spline(std::uint64_t id,
                                     const std::vector<std::shared_ptr<VrexPoint3D>>& points) {
    VrexSpline3D::VrexSplineOptions options{1, false, {}, {}};
    for (const auto& each : points) {
        options.controlPoints.push_back({each, 1.0});
    }
    return numbered(VrexSpline3D::create(options), id);
}

class VrexGeometryManager3DTest : public testing::Test {
protected:
    /// Gives the parts of `user` identifiers from 101 on, adds it as 100, and tells who uses the first part.
    template <class Object>
    std::vector<std::shared_ptr<VrexBaseGeometry>> usersOfFirstPart(const std::shared_ptr<Object>& user) {
        std::uint64_t id = 101;
        const auto parts = user->getGeometries();
        for (const auto& part : parts) {
            part->setID(id++);
        }
        manager.addGeometry(numbered(user, 100));
        return parts.empty() ? parts : manager.findRelatedGeometries(parts[0]);
    }
    /// Whether a user of this kind is known when added, and after all uses were found out anew.
    template <class Object>
    std::pair<bool, bool> isKnownUser() {
        manager.clear();
        const auto user = makeSample<Object>();
        const bool added = !usersOfFirstPart(user).empty();
        manager.updateRelatedGeometries();
        return {added, manager.hasRelatedPattern(101)};
    }

    VrexLogRecorder recorder{3};
    VrexGeometryManager3D manager{recorder};
};

TEST_F(VrexGeometryManager3DTest, KindsThatAreBuiltOnOthersAreKnownAsUsers) {
    const std::pair both(true, true);
    EXPECT_EQ(isKnownUser<VrexNURBSSurface3D>(), both);
    EXPECT_EQ(isKnownUser<VrexSpline3D>(), both);
    EXPECT_EQ(isKnownUser<VrexConnector3D>(), both);
    EXPECT_EQ(isKnownUser<VrexSpinSurface3D>(), both);
    EXPECT_EQ(isKnownUser<VrexSweepSurface3D>(), both);
    EXPECT_EQ(isKnownUser<VrexPattern3D>(), both);
    EXPECT_EQ(isKnownUser<VrexArrayPattern3D>(), both);
}

TEST_F(VrexGeometryManager3DTest, UsesOfAnEvaluatedCurveAreGoneAfterTheyAreFoundOutAnew) {
    EXPECT_EQ(isKnownUser<VrexEvaluatedCurve3D>(), std::pair(true, false));
}

TEST_F(VrexGeometryManager3DTest, MembersOfARigidSetBelongToItAndAreNotUsed) {
    const auto set = makeSample<VrexRigidSet3D>();
    EXPECT_THAT(usersOfFirstPart(set), IsEmpty());
    for (const auto& member : set->getGeometries()) {
        EXPECT_EQ(manager.findRelatedSet(member), 100U);
    }
    EXPECT_EQ(manager.findRelatedSet(set), 0U);
}

TEST_F(VrexGeometryManager3DTest, MembersOfMembersAreNotEntered) {
    const auto deep = point(1);
    const auto inner = numbered(VrexRigidSet3D::create({deep}), 2);
    manager.addGeometry(numbered(VrexRigidSet3D::create({inner}), 3));
    EXPECT_EQ(manager.findRelatedSet(inner), 3U);
    EXPECT_EQ(manager.findRelatedSet(deep), 0U);
}

TEST_F(VrexGeometryManager3DTest, AVariableAndAPlainEntityHaveNoRelations) {
    manager.addGeometry(numbered(VrexGeometryVariable::create(1.0), 1));
    manager.addGeometry(point(2));
    EXPECT_FALSE(manager.hasRelatedPattern(1));
    EXPECT_FALSE(manager.hasRelatedPattern(2));
    EXPECT_EQ(manager.getGeometries().size(), 2U);
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!",
                  [&] { manager.addGeometry(nullptr); });
}

TEST_F(VrexGeometryManager3DTest, ARefusedDuplicateStillEntersItsRelations) {
    const auto used = point(1);
    const auto stored = point(7);
    manager.addGeometry(stored);
    expectRefusal(recorder, VrexErrorCode::ID_EXISTED,
                  "Failed to add geometry, the geometry id has existed, id : 7.",
                  [&] { manager.addGeometry(spline(7, {used})); });
    EXPECT_THAT(manager.findRelatedGeometries(used), ElementsAre(stored));
}

TEST_F(VrexGeometryManager3DTest, ThePointHasNoEntryOnceTheLastSplineIsRemoved) {
    const auto used = point(1);
    const auto first = spline(2, {used, used});
    const auto second = spline(3, {point(4), used});
    manager.addGeometry(first);
    manager.addGeometry(second);
    manager.removeGeometry(first);
    EXPECT_TRUE(manager.hasRelatedPattern(1));
    manager.removeGeometry(second);
    EXPECT_FALSE(manager.hasRelatedPattern(1));
    EXPECT_FALSE(manager.hasRelatedPattern(4));
}

TEST_F(VrexGeometryManager3DTest, ASplineThatGotOtherPointsLeavesStaleUsesUntilTheyAreFoundOutAnew) {
    const auto former = point(1);
    const auto present = point(2);
    const auto user = spline(3, {former});
    manager.addGeometry(user);
    user->controlPoints() = {{present, 1.0}};
    EXPECT_TRUE(manager.hasRelatedPattern(1));
    EXPECT_FALSE(manager.hasRelatedPattern(2));
    manager.updateRelatedGeometries();
    EXPECT_FALSE(manager.hasRelatedPattern(1));
    EXPECT_THAT(manager.findRelatedGeometries(present), ElementsAre(user));
}

TEST_F(VrexGeometryManager3DTest, OnlySplinesFittedThroughThePointAreFound) {
    const auto through = point(1);
    const auto controlled = spline(4, {through});
    const auto late = spline(9, {point(2)});
    const auto early = spline(5, {point(3)});
    for (const auto& fitted : {late, early}) {
        fitted->setInterpolatedPoints({point(6), through});
        manager.addGeometry(fitted);
    }
    manager.addGeometry(controlled);
    EXPECT_THAT(manager.findRelatedInterpolatedSplines(through), ElementsAre(early, late));
    EXPECT_THAT(manager.findRelatedInterpolatedSplines(point(77)), IsEmpty());
    // Another object under the same identifier is not the point that the splines were fitted through.
    EXPECT_THAT(manager.findRelatedInterpolatedSplines(point(1)), IsEmpty());
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!",
                  [&] { manager.findRelatedInterpolatedSplines(nullptr); });
}

TEST_F(VrexGeometryManager3DTest, AGeometryInASetMayGoToNoOther) {
    manager.addGeometryRelateSet(point(1), 10);
    const LogCapture log;
    EXPECT_TRUE(manager.isAllowedGeometryInsertTo(1, 10));
    EXPECT_TRUE(manager.isAllowedGeometryInsertTo(2, 10));
    EXPECT_TRUE(manager.isAllowedGeometryInsertTo(2, 0));
    EXPECT_TRUE(log.lines().empty());
    EXPECT_FALSE(manager.isAllowedGeometryInsertTo(1, 0));
    EXPECT_FALSE(manager.isAllowedGeometryInsertTo(1, 11));
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Geometry(1) already in set(10).");
    EXPECT_EQ(log.lines()[0].file, "VrexGeometryManager3D.cpp");
    EXPECT_TRUE(recorder.isNoError());
}

/// Uses as they are defined, without a thought for speed: pairs of used and user.
struct NaiveUses {
    std::map<std::uint64_t, std::shared_ptr<VrexSpline3D>> stored;
    std::set<std::pair<std::uint64_t, std::uint64_t>> uses;

    void enter(const VrexSpline3D& user) {
        for (const auto& used : user.getGeometries()) {
            uses.emplace(used->getID(), user.getID());
        }
    }
    void add(const std::shared_ptr<VrexSpline3D>& user) {
        stored.try_emplace(user->getID(), user);
        enter(*user);
    }
    void remove(const VrexSpline3D& user) {
        for (const auto& used : user.getGeometries()) {
            uses.erase({used->getID(), user.getID()});
        }
        stored.erase(user.getID());
    }
    void update() {
        uses.clear();
        for (const auto& [id, user] : stored) {
            enter(*user);
        }
    }
    std::vector<std::shared_ptr<VrexBaseGeometry>> users(std::uint64_t id) const {
        std::vector<std::shared_ptr<VrexBaseGeometry>> found;
        for (const auto& [used, user] : uses) {
            if (used == id && stored.contains(user)) {
                found.push_back(stored.at(user));
            }
        }
        return found;
    }
};

TEST_F(VrexGeometryManager3DTest, UsesFollowTheNaiveModelThroughRandomSequences) {
    std::mt19937 engine(3);
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    for (std::uint64_t id = 1; id <= 8; ++id) {
        points.push_back(point(id));
    }
    const auto somePoints = [&] {
        std::vector<std::shared_ptr<VrexPoint3D>> some(engine() % 5);
        for (auto& each : some) {
            each = points[engine() % points.size()];
        }
        return some;
    };
    std::vector<std::shared_ptr<VrexSpline3D>> splines;
    for (std::uint64_t i = 0; i < 20; ++i) {
        splines.push_back(spline(100 + i % 16, somePoints())); // a few share an identifier
    }
    NaiveUses model;
    for (int step = 0; step < 10'000; ++step) {
        const auto& user = splines[engine() % splines.size()];
        switch (engine() % 8) {
        case 0:
            user->setInterpolatedPoints(somePoints());
            break;
        case 1:
            manager.updateRelatedGeometries();
            model.update();
            break;
        case 2:
        case 3:
        case 4:
            manager.removeGeometry(user);
            model.remove(*user);
            break;
        default:
            manager.addGeometry(user);
            model.add(user);
        }
        for (const auto& used : points) {
            ASSERT_EQ(manager.findRelatedGeometries(used), model.users(used->getID()));
            const auto first = model.uses.lower_bound({used->getID(), 0});
            ASSERT_EQ(manager.hasRelatedPattern(used->getID()),
                      first != model.uses.end() && first->first == used->getID());
        }
    }
}

} // namespace
