#include "data/VrexCloneTable.h"

#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "data/geometry/VrexGeometryVariable.h"

namespace {

std::vector<std::shared_ptr<VrexGeometryVariable>> makeObjects(std::size_t count) {
    std::vector<std::shared_ptr<VrexGeometryVariable>> objects;
    for (std::size_t i = 0; i < count; ++i) {
        objects.push_back(VrexGeometryVariable::create(static_cast<double>(i)));
    }
    return objects;
}

TEST(VrexCloneTable, PlaceIsEmptyAtFirst) {
    const auto objects = makeObjects(2);
    VrexCloneTable table;
    EXPECT_EQ(table.find(*objects[0]), nullptr);
    EXPECT_EQ(table[*objects[0]], nullptr);
    EXPECT_EQ(table.find(*objects[0]), nullptr);
}

TEST(VrexCloneTable, EachObjectHasAPlaceOfItsOwn) {
    const auto objects = makeObjects(10'000);
    const auto others = makeObjects(10'000);
    VrexCloneTable table;
    table.reserve(1);
    for (std::size_t i = 0; i < objects.size(); ++i) {
        table[*objects[i]] = others[i].get();
    }
    for (std::size_t i = objects.size(); i-- > 0;) {
        EXPECT_EQ(table.find(*objects[i]), others[i].get());
        EXPECT_EQ(table[*objects[i]], others[i].get());
        EXPECT_EQ(table.find(*others[i]), nullptr);
    }
}

TEST(VrexCloneTable, ObjectsThatTouchHaveTwoPlaces) {
    // No objects lie closer than two in one array.
    struct Probe : VrexBaseObject {
        Probe() : VrexBaseObject(VrexObjectType::Variable) {}
        std::shared_ptr<VrexBaseObject> makeCopy() override { return nullptr; }
        const char* getNamePrefix() const override { return "probe"; }

    private:
        void restoreFromCopy(const VrexBaseObject&) override {}
    };
    static_assert(sizeof(Probe) == sizeof(VrexBaseObject));
    std::vector<Probe> probes(1'000);
    VrexCloneTable table;
    for (Probe& probe : probes) {
        EXPECT_EQ(std::exchange(table[probe], &probe), nullptr);
    }
    for (const Probe& probe : probes) {
        EXPECT_EQ(table.find(probe), &probe);
    }
}

TEST(VrexCloneTable, PlacesStayWhereTheyAre) {
    const auto objects = makeObjects(10'000);
    VrexCloneTable table;
    VrexBaseObject*& place = table[*objects.front()];
    for (const auto& object : objects) {
        table[*object] = object.get();
    }
    EXPECT_EQ(&table[*objects.front()], &place);
    place = objects.back().get();
    EXPECT_EQ(table.find(*objects.front()), objects.back().get());
}

} // namespace
