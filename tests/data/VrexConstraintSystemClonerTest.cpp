// What a cloner offers to the classes that derive from it.

#include "data/VrexConstraintSystemCloner.h"

#include <functional>
#include <memory>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/3d/VrexConstraintSystemCloner3D.h"
#include "support/AnyGeometry.h"
#include "support/SamplesRelations.h"

namespace {

using testing::ElementsAre;

constexpr const char* NOT_FOUND = "VrexConstraintSystemCloner::getNewObjects: clone object not found";

/// A cloner that visits points in its own way.
class OwnCloner : public VrexConstraintSystemCloner3D {
public:
    std::function<void(VrexPoint3D&)> visit = [](VrexPoint3D&) {};

    OwnCloner() : VrexConstraintSystemCloner3D({}, {}) {}

    void visitPoint3D(VrexPoint3D& point) override { visit(point); }

    using VrexConstraintSystemCloner3D::cloneDescriptors;
    using VrexConstraintSystemCloner3D::cloneLeaf;
    using VrexConstraintSystemCloner3D::getClonedObject;
    using VrexConstraintSystemCloner3D::isDue;
    using VrexConstraintSystemCloner3D::linkParents;
    using VrexConstraintSystemCloner3D::setClone;
    using VrexConstraintSystemCloner3D::takeClones;
};

void expectNotFound(OwnCloner& cloner) {
    try {
        cloner.getClonedObject(makeSample<VrexPoint3D>());
        FAIL() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), NOT_FOUND);
    }
}

TEST(VrexConstraintSystemCloner, VisitThatMakesNoCloneIsRefused) {
    OwnCloner cloner;
    expectNotFound(cloner);
}

TEST(VrexConstraintSystemCloner, CloneOfAnotherClassIsRefused) {
    OwnCloner cloner;
    cloner.visit = [&cloner](VrexPoint3D& point) {
        if (cloner.isDue(point)) {
            cloner.setClone(makeSample<VrexLine3D>());
        }
    };
    expectNotFound(cloner);
}

TEST(VrexConstraintSystemCloner, NullIsNoClone) {
    OwnCloner cloner;
    cloner.visit = [&cloner](VrexPoint3D& point) {
        if (cloner.isDue(point)) {
            cloner.setClone(nullptr);
        }
    };
    expectNotFound(cloner);
}

TEST(VrexConstraintSystemCloner, VisitMayCloneFurtherObjects) {
    const auto point = makeSample<VrexPoint3D>();
    const auto set = VrexRigidSet3D::create({makeSample<VrexLine3D>()});
    const auto outer = VrexRigidSet3D::create({point});
    OwnCloner cloner;
    std::shared_ptr<VrexBaseObject> further;
    cloner.visit = [&](VrexPoint3D& visited) {
        further = cloner.getClonedObject(set);
        cloner.cloneLeaf(visited);
    };
    const auto clone = cloner.getClonedObject(outer);
    EXPECT_EQ(further, cloner.findClone(set));
    EXPECT_THAT(cloner.getGeometries(), ElementsAre(cloner.findClone(set->geometries().front()), further,
                                                    cloner.findClone(point), clone));
}

TEST(VrexConstraintSystemCloner, ClonesThatAreTakenAreNotListedButTheirPartsAre) {
    const auto line = makeSample<VrexLine3D>();
    const auto first = VrexRigidSet3D::create({line});
    const auto second = VrexRigidSet3D::create({first});
    OwnCloner cloner;
    using Sets = std::vector<std::shared_ptr<VrexRigidSet3D>>;
    const Sets clones = cloner.takeClones(Sets{first, nullptr, second, first});
    ASSERT_EQ(clones.size(), 4U);
    EXPECT_EQ(clones[0], cloner.findClone(first));
    EXPECT_EQ(clones[1], nullptr);
    EXPECT_THAT(clones[2]->geometries(), ElementsAre(clones[0]));
    EXPECT_EQ(clones[3], clones[0]);
    EXPECT_THAT(cloner.getGeometries(), ElementsAre(cloner.findClone(line)));
}

TEST(VrexConstraintSystemCloner, DescriptorsAreClonedInOrderWithIndexAndName) {
    const auto variable = VrexGeometryVariable::create(2.0);
    const auto line = makeSample<VrexLine3D>();
    OwnCloner cloner;
    const auto clones = cloner.cloneDescriptors(
        {{line, 4, "slope"}, {nullptr, 1, "none"}, {variable, 0, "a"}, {line, 0, "x"}});
    ASSERT_EQ(clones.size(), 4U);
    EXPECT_EQ(clones[0].object(), cloner.findClone(line));
    EXPECT_EQ(clones[0].index(), 4U);
    EXPECT_EQ(clones[0].variableName(), "slope");
    EXPECT_EQ(clones[1].object(), nullptr);
    EXPECT_EQ(clones[1].index(), 1U);
    EXPECT_EQ(clones[2].object(), cloner.findClone(variable));
    EXPECT_EQ(clones[3].object(), clones[0].object());
    EXPECT_THAT(cloner.getGeometries(), ElementsAre(clones[0].object(), clones[2].object()));
    EXPECT_TRUE(cloner.cloneDescriptors({}).empty());
}

TEST(VrexConstraintSystemCloner, GeneratedNamesStayAsTheyAre) {
    const auto variable = VrexGeometryVariable::create(2.0);
    variable->setID(4);
    OwnCloner cloner;
    const auto clones = cloner.cloneDescriptors({{variable, 0, nullptr}});
    EXPECT_EQ(clones.front().variableName(), "v4");
    EXPECT_EQ(clones.front().object()->getID(), 4U);
}

TEST(VrexConstraintSystemCloner, VisitedObjectHasToBeHeldByASharedPointer) {
    class GeometryCloner : public OwnCloner {
    public:
        void visitGeometry3D(VrexGeometry3D& geometry) override { cloneLeaf(geometry); }
    } cloner;
    AnyGeometry loose(VrexGeometry3DType::POINT);
    EXPECT_THROW(loose.accept(cloner), std::bad_weak_ptr);
    const auto held = AnyGeometry::create(VrexGeometry3DType::POINT, 7);
    held->accept(cloner);
    ASSERT_NE(cloner.findClone(held), nullptr);
    EXPECT_EQ(cloner.findClone(held)->getID(), 7U);
}

TEST(VrexConstraintSystemCloner, ParentsOfWhatIsClonedLaterWaitForTheirLink) {
    const auto variable = VrexGeometryVariable::create(2.0);
    const auto child = VrexVariableFixation3D::create(variable);
    const auto parent = VrexVariableFixation3D::create(variable);
    child->setParent(parent);
    OwnCloner cloner;
    const auto clone = std::dynamic_pointer_cast<VrexConstraint>(cloner.getClonedObject(child));
    EXPECT_EQ(clone->getParent(), nullptr);
    const auto parentClone = cloner.getClonedObject(parent);
    cloner.linkParents();
    EXPECT_EQ(clone->getParent(), parentClone);
}

TEST(VrexConstraintSystemCloner, AddressOfASourceThatWasGivenUpIsNotTakenForIt) {
    OwnCloner cloner;
    cloner.visit = [&cloner](VrexPoint3D& point) { cloner.cloneLeaf(point); };
    for (int i = 0; i < 100; ++i) { // The allocator likes to give out what it just got back.
        const auto point = VrexPoint3D::create(i, 0.0, 0.0);
        EXPECT_EQ(cloner.findClone(point), nullptr);
        const auto clone = std::dynamic_pointer_cast<VrexPoint3D>(cloner.getClonedObject(point));
        EXPECT_EQ(clone->getPosition().x(), i);
    }
    EXPECT_EQ(cloner.getGeometries().size(), 100U);
}

} // namespace
