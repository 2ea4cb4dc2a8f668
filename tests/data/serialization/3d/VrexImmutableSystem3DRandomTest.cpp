// What holds of every system.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <typeinfo>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "support/CopyChecks.h"
#include "support/RandomSystems.h"
#include "support/RandomTurns.h"

namespace {

using nsCopyChecks::graphOf;

TEST(VrexImmutableSystem3DRandom, DeepCopiesAreEqualAndShareNothing) {
    RandomSystems systems;
    std::set<std::string> classes;
    for (int i = 0; i < randomTurns(10'000) && !testing::Test::HasFailure(); ++i) {
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

TEST(VrexImmutableSystem3DRandom, ChangingTheCopyLeavesTheSource) {
    RandomSystems systems;
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        nsCopyChecks::expectCopyIsWrittenAlike(
            systems.next(), [](const VrexImmutableSystem3D& system) { return graphOf(system).text(); });
    }
}

TEST(VrexImmutableSystem3DRandom, CopiesOfCopiesAreAsGood) {
    RandomSystems systems;
    for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        auto system = systems.next();
        const auto text = graphOf(system).text();
        const auto copy = system.deepCopy();
        system = {}; // What the copy needs of its source would go with it.
        EXPECT_EQ(graphOf(copy.deepCopy()).text(), text);
    }
}

TEST(VrexImmutableSystem3DRandom, SnapshotsOfTheSourceAreNotThoseOfTheCopy) {
    struct Access : VrexBaseObject {
        using VrexBaseObject::getBackup;
    };
    RandomSystems systems;
    std::size_t snapshots = 0;
    for (int i = 0; i < 500; ++i) {
        const auto system = systems.next();
        const auto sources = graphOf(system);
        const auto copies = graphOf(system.deepCopy());
        for (const auto& object : copies.objects()) {
            EXPECT_EQ((object.get()->*(&Access::getBackup))(), nullptr);
        }
        for (const auto& object : sources.objects()) {
            snapshots += (object.get()->*(&Access::getBackup))() != nullptr ? 1 : 0;
        }
    }
    EXPECT_GT(snapshots, 500U);
}

TEST(VrexImmutableSystem3DRandom, ClonerMakesOneCloneForEachObjectWithinReach) {
    RandomSystems systems;
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        std::vector<std::shared_ptr<VrexBaseGeometry>> geometries(system.variables().begin(),
                                                                  system.variables().end());
        geometries.insert(geometries.end(), system.geometries().begin(), system.geometries().end());
        std::vector<std::shared_ptr<VrexBaseConstraint>> constraints(system.equations().begin(),
                                                                     system.equations().end());
        constraints.insert(constraints.end(), system.constraints().begin(), system.constraints().end());
        const VrexConstraintSystemCloner3D cloner(geometries, constraints);
        const ObjectGraph sources(geometries, constraints);
        const auto geometryClones = cloner.getGeometries();
        const auto constraintClones = cloner.getConstraints();
        std::set<std::shared_ptr<VrexBaseObject>> clones(geometryClones.begin(), geometryClones.end());
        clones.insert(constraintClones.begin(), constraintClones.end());
        EXPECT_EQ(clones.size(), geometryClones.size() + constraintClones.size());
        EXPECT_EQ(clones.size(), sources.objects().size());
        for (const auto& object : sources.objects()) {
            EXPECT_TRUE(clones.contains(cloner.findClone(object)));
        }
        const ObjectGraph linked(clones);
        for (const auto& object : linked.objects()) { // Every reference of a clone is a clone.
            EXPECT_TRUE(clones.contains(object));
        }
    }
}

TEST(VrexImmutableSystem3DRandom, WritableSystemsHaveAllInTheirLists) {
    RandomSystems systems(RandomSystems::Style::Writable);
    std::set<std::string> classes;
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        const auto sources = graphOf(system);
        EXPECT_EQ(sources.objects().size(), system.geometries().size() + system.variables().size() +
                                                system.constraints().size() + system.equations().size());
        for (const auto& object : sources.objects()) {
            const VrexBaseObject& known = *object;
            classes.insert(typeid(known).name());
        }
    }
    EXPECT_EQ(classes.size(), 59U);
}

TEST(VrexImmutableSystem3DRandom, DocumentsOfCopiesAreThoseOfTheirSourcesByteForByte) {
    const auto documentOf = [](const VrexImmutableSystem3D& system) {
        VrexSystem3DSerializer serializer({.writeRegularStatus = true});
        serializer.serialize(system);
        return std::string(serializer.jsonStream());
    };
    RandomSystems systems(RandomSystems::Style::Writable);
    for (int i = 0; i < 2'000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const auto system = systems.next();
        std::uint64_t id = 0;
        const ObjectGraph sources = graphOf(system);
        for (const auto& object : sources.objects()) {
            object->setID(++id);
        }
        ASSERT_FALSE(documentOf(system).empty());
        nsCopyChecks::expectCopyIsWrittenAlike(system, documentOf);
    }
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
