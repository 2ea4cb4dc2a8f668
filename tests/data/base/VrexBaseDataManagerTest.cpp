#include "data/base/VrexBaseDataManager.h"

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/LogCapture.h"
#include "support/ProbeConstraint.h"

namespace {

using testing::ElementsAre;
using GeometryManager = VrexBaseDataManager<VrexBaseGeometry>;

std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id, double value) {
    auto object = VrexGeometryVariable::create(value);
    object->setID(id);
    return object;
}

TEST(VrexBaseDataManager, FindsWhatWasAdded) {
    GeometryManager manager;
    const auto object = variable(3, 1.0);
    EXPECT_TRUE(manager.addData(object));
    EXPECT_EQ(manager.findData(3), object);
    EXPECT_EQ(manager.findData(4), nullptr);
    EXPECT_EQ(manager.getDataMap().size(), 1U);
}

TEST(VrexBaseDataManager, TakenIdIsRefusedAndKeepsTheFirstObject) {
    GeometryManager manager;
    const auto first = variable(3, 1.0);
    EXPECT_TRUE(manager.addData(first));
    EXPECT_FALSE(manager.addData(variable(3, 2.0)));
    EXPECT_EQ(manager.findData(3), first);
    EXPECT_EQ(manager.getDataMap().size(), 1U);
}

TEST(VrexBaseDataManager, NullIsRefused) {
    GeometryManager manager;
    EXPECT_FALSE(manager.addData(nullptr));
    EXPECT_TRUE(manager.getDataMap().empty());
}

TEST(VrexBaseDataManager, IdZeroIsAcceptedOnce) {
    GeometryManager manager;
    EXPECT_TRUE(manager.addData(variable(0, 1.0)));
    EXPECT_FALSE(manager.addData(variable(0, 2.0)));
}

TEST(VrexBaseDataManager, RemovesOnlyWhatIsThere) {
    GeometryManager manager;
    const auto object = variable(3, 1.0);
    manager.addData(object);
    EXPECT_FALSE(manager.removeData(4));
    EXPECT_TRUE(manager.removeData(3));
    EXPECT_FALSE(manager.removeData(3));
    EXPECT_EQ(object->getValue(), 1.0);
}

TEST(VrexBaseDataManager, IdsRise) {
    GeometryManager manager;
    for (const std::uint64_t id : {70000ULL, 2ULL, 18446744073709551615ULL, 1ULL, 65536ULL}) {
        manager.addData(variable(id, 0.0));
    }
    EXPECT_THAT(manager.getDataIdsByOrder(), ElementsAre(1, 2, 65536, 70000, 18446744073709551615ULL));
}

TEST(VrexBaseDataManager, LabelOfAnUnknownIdIsEmptyAndStaysValid) {
    GeometryManager manager;
    const std::string& label = manager.getLabel(5);
    EXPECT_EQ(label, "");
    manager.addData(variable(5, 0.0));
    manager.clear();
    EXPECT_EQ(label, "");
}

TEST(VrexBaseDataManager, SetLabelMakesACleanObjectDirty) {
    GeometryManager manager;
    const auto object = variable(3, 1.0);
    object->setDirty(false);
    manager.addData(object);
    EXPECT_TRUE(manager.setLabel(3, "width"));
    EXPECT_TRUE(object->isDirty());
    EXPECT_EQ(manager.getLabel(3), "width");
    EXPECT_FALSE(manager.setLabel(4, "height"));
}

TEST(VrexBaseDataManager, UpdateGoesIntoTheStoredObject) {
    GeometryManager manager;
    const auto stored = variable(3, 1.0);
    stored->label() = "kept";
    manager.addData(stored);
    manager.updateData({variable(3, 2.0)});
    EXPECT_EQ(stored->getValue(), 2.0);
    EXPECT_EQ(stored->label(), "kept");
    EXPECT_EQ(manager.findData(3), stored);
}

TEST(VrexBaseDataManager, UpdateGoesThroughTheListInOrder) {
    GeometryManager manager;
    const auto stored = variable(3, 1.0);
    manager.addData(stored);
    manager.updateData({variable(3, 2.0), variable(3, 4.0)});
    EXPECT_EQ(stored->getValue(), 4.0);
}

TEST(VrexBaseDataManager, UpdateOfAnUnknownIdAddsNothing) {
    GeometryManager manager;
    manager.updateData({variable(3, 2.0), nullptr});
    EXPECT_TRUE(manager.getDataMap().empty());
}

TEST(VrexBaseDataManager, UpdateFromTheStoredObjectItselfChangesNothing) {
    GeometryManager manager;
    const auto stored = variable(3, 1.0);
    stored->label() = "kept";
    manager.addData(stored);
    manager.updateData({stored});
    EXPECT_EQ(stored->getValue(), 1.0);
    EXPECT_EQ(stored->label(), "kept");
}

TEST(VrexBaseDataManager, UpdatePassesOverAnotherClassWithALineInTheLog) {
    GeometryManager manager;
    const auto stored = variable(3, 1.0);
    const auto next = variable(4, 1.0);
    manager.addData(stored);
    manager.addData(next);
    const auto point = VrexPoint3D::create(7.0, 8.0, 9.0);
    point->setID(3);
    const LogCapture log;
    EXPECT_NO_THROW(manager.updateData({point, variable(4, 5.0)}));
    EXPECT_EQ(stored->getValue(), 1.0);
    EXPECT_EQ(next->getValue(), 5.0);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Object 3 is not updated from an object of another class.");
}

TEST(VrexBaseDataManager, ClearDirtyFlagCleansEveryObject) {
    GeometryManager manager;
    const auto first = variable(1, 1.0);
    const auto second = variable(2, 1.0);
    manager.addData(first);
    manager.addData(second);
    manager.clearDirtyFlag();
    EXPECT_FALSE(first->isDirty());
    EXPECT_FALSE(second->isDirty());
}

TEST(VrexBaseDataManager, CopySharesTheObjects) {
    GeometryManager manager;
    const auto object = variable(3, 1.0);
    manager.addData(object);
    const GeometryManager copy(manager);
    manager.clear();
    EXPECT_EQ(manager.findData(3), nullptr);
    EXPECT_EQ(copy.findData(3), object);
}

TEST(VrexBaseDataManager, AssignedCopyOutlivesItsSource) {
    GeometryManager copy;
    copy.addData(variable(1, 1.0));
    const auto object = variable(2, 1.0);
    {
        GeometryManager manager;
        manager.addData(object);
        copy = manager;
        manager.removeData(2);
    }
    EXPECT_EQ(copy.findData(1), nullptr);
    EXPECT_EQ(copy.findData(2), object);
    EXPECT_EQ(&copy, &(copy = std::as_const(copy)));
    EXPECT_EQ(copy.findData(2), object);
}

/// Ids small and large beside the number of objects, rising and falling, which are found in different ways.
std::uint64_t scatteredId(std::mt19937_64& random) {
    const std::uint64_t id = random() % 300;
    return id < 200 ? id : id < 290 ? id * 1000 : std::numeric_limits<std::uint64_t>::max() - id;
}

TEST(VrexBaseDataManager, FindsTheSameAsAPlainMapAfterRandomChanges) {
    std::mt19937_64 random(20261121);
    GeometryManager manager;
    std::map<std::uint64_t, std::shared_ptr<VrexBaseGeometry>> model;
    for (int step = 0; step < 20'000; ++step) {
        const std::uint64_t id = scatteredId(random);
        if (random() % 5 < 3) {
            const auto object = variable(id, 0.0);
            ASSERT_EQ(manager.addData(object), model.try_emplace(id, object).second);
        } else {
            ASSERT_EQ(manager.removeData(id), model.erase(id) == 1);
        }
        const std::uint64_t asked = scatteredId(random);
        const auto expected = model.find(asked);
        ASSERT_EQ(manager.findData(asked), expected != model.end() ? expected->second : nullptr);
        if (step % 4'000 == 3'999) {
            manager = GeometryManager(manager);
        }
    }
}

TEST(VrexBaseDataManager, LargeIdsTakeNoMoreMemoryThanSmallOnes) {
    GeometryManager manager;
    const auto object = variable(1ULL << 40U, 1.0);
    manager.addData(object);
    EXPECT_EQ(manager.findData(1ULL << 40U), object);
}

TEST(VrexBaseDataManager, StoresConstraintsToo) {
    VrexBaseDataManager<VrexBaseConstraint> manager;
    const auto constraint = std::make_shared<ProbeConstraint>();
    constraint->setID(9);
    EXPECT_TRUE(manager.addData(constraint));
    EXPECT_EQ(manager.findData(9), constraint);
}

TEST(VrexIDHash, NeighboursStayNeighbours) {
    const VrexIDHash hash;
    for (const std::uint64_t id : {0ULL, 1ULL, 65535ULL, 70000ULL, 1ULL << 40U}) {
        EXPECT_EQ(hash(id + 1), hash(id) + 1);
    }
}

TEST(VrexIDHash, IdsAtTheStrideOfABucketCountSpreadOut) {
    // A prime that the standard library uses as a bucket count; with the identity all would meet in one
    // bucket.
    constexpr std::uint64_t buckets = 1447153;
    const VrexIDHash hash;
    std::unordered_map<std::size_t, int> load;
    int heaviest = 0;
    for (std::uint64_t i = 1; i <= 100'000; ++i) {
        heaviest = std::max(heaviest, ++load[hash(i * buckets) % buckets]);
    }
    // Twelve multiples share 24 bits and so a bucket; the groups of twelve fall at random.
    EXPECT_LT(heaviest, 50);
}

} // namespace
