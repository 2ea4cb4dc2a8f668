// What holds of every system.

#include <set>
#include <string>
#include <typeinfo>
#include <unordered_set>

#include <gtest/gtest.h>

#include "support/ObjectGraph.h"
#include "support/RandomSystems.h"

namespace {

ObjectGraph graphOf(const VrexImmutableSystem3D& system) {
    return ObjectGraph(system.geometries(), system.variables(), system.constraints(), system.equations(),
                       system.referenceGeometries());
}

TEST(VrexImmutableSystem3DRandom, DeepCopiesAreEqualAndShareNothing) {
    RandomSystems systems;
    std::set<std::string> classes;
    for (int i = 0; i < 10'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto copy = system.deepCopy();
        const auto sources = graphOf(system);
        const auto copies = graphOf(copy);
        ASSERT_EQ(copies.text(), sources.text());
        ASSERT_EQ(copies.countShared(sources), 0U);
        ASSERT_EQ(copies.objects().size(), sources.objects().size());
        for (const auto& object : sources.objects()) {
            const VrexBaseObject& known = *object;
            classes.insert(typeid(known).name());
        }
    }
    EXPECT_EQ(classes.size(), 59U); // 20 of entities, 36 of constraints, 2 of equations, the variable.
}

TEST(VrexImmutableSystem3DRandom, DragsNameTheCopiesOfWhatTheSystemReaches) {
    RandomSystems systems;
    int dragged = 0;
    for (int i = 0; i < 1'000; ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto copy = system.deepCopy();
        const auto sources = graphOf(system);
        const auto copies = graphOf(copy);
        const auto& before = system.transform().transformations();
        const auto& after = copy.transform().transformations();
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t k = 0; k < before.size(); ++k) {
            const bool isInside = sources.addresses().contains(before[k].geometry.get());
            EXPECT_EQ(copies.addresses().contains(after[k].geometry.get()), isInside);
            EXPECT_EQ(after[k].geometry == before[k].geometry, !isInside);
            ++dragged;
        }
    }
    EXPECT_GT(dragged, 100);
}

TEST(VrexImmutableSystem3DRandom, OrderIsTopologicalWithoutRepeatsAndCopiesAlike) {
    constexpr VrexImmutableSystem3D::OrderGeometriesAndConstraints ordered;
    RandomSystems systems;
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const VrexImmutableSystem3D inOrder(ordered, system);
        std::unordered_set<const void*> placed;
        for (const auto& geometry : inOrder.geometries()) {
            for (const auto& part : geometry->geometries()) {
                EXPECT_TRUE(placed.contains(part.get()));
            }
            EXPECT_TRUE(placed.insert(geometry.get()).second);
        }
        for (const auto& geometry : system.geometries()) {
            EXPECT_TRUE(placed.contains(geometry.get()));
        }
        EXPECT_EQ(VrexImmutableSystem3D(ordered, inOrder).geometries(), inOrder.geometries());
        EXPECT_EQ(graphOf(inOrder.deepCopy()).text(), graphOf(inOrder).text());
    }
}

} // namespace
