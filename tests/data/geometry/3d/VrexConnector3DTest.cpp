#include "data/geometry/3d/VrexConnector3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::Values3;
using nsVectorSamples::Values4;
using nsVectorSamples::valuesOf;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(VrexConnector3D, NewConnectorIsTheIdentityOnItsSet) {
    const auto set = makeSample<VrexRigidSet3D>();
    const auto connector = VrexConnector3D::create(set);
    EXPECT_EQ(connector->type(), VrexGeometry3DType::CONNECTOR);
    EXPECT_EQ(connector->dof(), 6);
    EXPECT_EQ(connector->getRigidSet(), set);
    EXPECT_THAT(connector->getGeometries(), ElementsAre(set));
    EXPECT_EQ(valuesOf(connector->getOrigin()), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(connector->getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TEST(VrexConnector3D, HasSevenSlotsByNameAndNoParameter) {
    EXPECT_EQ(VrexConnector3D::PARAMETERS_AMOUNT, 7);
    EXPECT_EQ(VrexConnector3D::X, 0);
    EXPECT_EQ(VrexConnector3D::Y, 1);
    EXPECT_EQ(VrexConnector3D::Z, 2);
    EXPECT_EQ(VrexConnector3D::SCALAR, 3);
    EXPECT_EQ(VrexConnector3D::I, 4);
    EXPECT_EQ(VrexConnector3D::J, 5);
    EXPECT_EQ(VrexConnector3D::K, 6);
    VrexVariableDescriptor first(makeSample<VrexConnector3D>(), 0, nullptr);
    first.setValue(8.0);
    EXPECT_EQ(first.getValue(), 0.0);
    EXPECT_EQ(first.variableName(), "mt0") << "as of an object of at most one parameter";
}

TEST(VrexConnector3D, WithoutASetItIsBuiltOnNothing) {
    const auto connector = VrexConnector3D::create(nullptr);
    EXPECT_THAT(connector->getGeometries(), IsEmpty());
    connector->backup();
    EXPECT_FALSE(connector->checkChanged(1.0, 1.0));
}

TEST(VrexConnector3D, OriginAndRotationAreThoseOfTheTransformation) {
    const auto connector = VrexConnector3D::create(nullptr);
    connector->setTransformation({{1.0, 2.0, 3.0}, 0.5, 0.1, 0.2, 0.3});
    EXPECT_EQ(valuesOf(connector->getOrigin()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(connector->getRotation()), (Values4{0.5, 0.1, 0.2, 0.3})) << "taken as it is";
    connector->getTransformation().setTranslation({4.0, 5.0, 6.0});
    EXPECT_EQ(valuesOf(connector->getOrigin()), (Values3{4.0, 5.0, 6.0}));
}

TEST(VrexConnector3D, WithoutBackupItIsNeverChanged) {
    const auto connector = makeSample<VrexConnector3D>();
    connector->getRigidSet()->backup();
    connector->getRigidSet()->setOrigin({1e6, 0.0, 0.0});
    EXPECT_FALSE(connector->checkChanged(0.0, 0.0));
}

TEST(VrexConnector3D, FrameComparesTranslationAndVectorByTheFirstAndScalarByTheSecondTolerance) {
    struct Case {
        VrexTransformation3DT<double> transformation;
        double linear, second;
        bool changed;
    };
    const Case cases[] = {
        {{{0.0, 0.0, 0.5}, 1.0, 0.0, 0.0, 0.0}, 0.5, 1e-9, true},
        {{{0.0, 0.0, 0.5}, 1.0, 0.0, 0.0, 0.0}, 0.50001, 1e-9, false},
        {{{0.0, 0.0, 0.0}, 1.0, 0.0, 0.25, 0.0}, 0.25, 1e-9, true},
        {{{0.0, 0.0, 0.0}, 1.0, 0.0, 0.25, 0.0}, 0.25001, 1e-9, false},
        {{{0.0, 0.0, 0.0}, 0.75, 0.0, 0.0, 0.0}, 1e-9, 0.25, true},
        {{{0.0, 0.0, 0.0}, 0.75, 0.0, 0.0, 0.0}, 1e-9, 0.25001, false},
        {{{0.0, 0.0, 0.0}, -1.0, 0.0, 0.0, 0.0}, 1e-9, 1.0, true}, // the same rotation by other numbers
    };
    for (const Case& test : cases) {
        const auto connector = VrexConnector3D::create(nullptr);
        connector->backup();
        connector->setTransformation(test.transformation);
        EXPECT_EQ(connector->checkChanged(test.linear, test.second), test.changed) << &test - cases;
    }
}

TEST(VrexConnector3D, ChangesWithItsSet) {
    const auto connector = makeSample<VrexConnector3D>();
    connector->backup();
    EXPECT_FALSE(connector->checkChanged(0.5, 0.5));
    connector->getRigidSet()->backup();
    EXPECT_FALSE(connector->checkChanged(0.5, 0.5));
    connector->getRigidSet()->setOrigin({1e6, 0.0, 0.0});
    EXPECT_TRUE(connector->checkChanged(0.5, 0.5));
}

TEST(VrexConnector3D, UpdateKeepsTheSetAndTakesTheFrame) {
    const auto set = VrexRigidSet3D::create({});
    const auto connector = VrexConnector3D::create(set);
    const auto other = makeSample<VrexConnector3D>();
    connector->updateFrom(other);
    EXPECT_EQ(connector->getRigidSet(), set);
    EXPECT_EQ(valuesOf(connector->getOrigin()), valuesOf(other->getOrigin()));
    EXPECT_EQ(valuesOf(connector->getRotation()), valuesOf(other->getRotation()));
}

TEST(VrexConnector3D, RestoreBringsSetAndFrameBack) {
    const auto connector = makeSample<VrexConnector3D>();
    const auto set = connector->getRigidSet();
    const auto origin = valuesOf(connector->getOrigin());
    connector->backup();
    connector->setRigidSet(nullptr);
    connector->getTransformation() = {};
    connector->restore();
    EXPECT_EQ(connector->getRigidSet(), set);
    EXPECT_EQ(valuesOf(connector->getOrigin()), origin);
}

TEST(VrexConnector3D, MayBeAMemberOfItsOwnSet) {
    const auto set = VrexRigidSet3D::create({});
    const auto connector = VrexConnector3D::create(set);
    set->geometries().push_back(connector);
    connector->backup();
    set->backup();
    EXPECT_FALSE(connector->checkChanged(1.0, 1.0));
    set->clearBackup();
    connector->clearBackup();
    connector->setRigidSet(nullptr);
    EXPECT_EQ(set.use_count(), 1);
}

} // namespace
