#include "data/3d/VrexTransform3D.h"

#include <functional>
#include <random>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "support/LogCapture.h"
#include "support/MemoryChecks.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<VrexPoint3D> point() { return VrexPoint3D::create(1.0, 2.0, 3.0); }

/// A quarter turn about the Z axis.
VrexTransformMatrix3D turn() {
    return VrexTransformMatrix3D({{{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}});
}

VrexTransformMatrix3D move(double x, double y, double z) {
    return VrexTransformMatrix3D::translate({x, y, z});
}

VrexTransformMatrix3D withLastRow(double last) {
    VrexTransformMatrix3D matrix;
    matrix[3][3] = last;
    return matrix;
}

class VrexTransform3DTest : public testing::Test {
protected:
    void fill() {
        transform.applyTransformation(a, turn());
        transform.applyTransformParameters(b, VrexDragParameter3DType::Radius3D, 2.5);
        transform.applyVariableTransform(v, 7.0);
    }
    void expectFilled() const {
        ASSERT_EQ(transform.transformations().size(), 1U);
        EXPECT_EQ(transform.transformations()[0].geometry, a);
        EXPECT_TRUE(transform.transformations()[0].matrix == turn());
        EXPECT_EQ(transform.transformParameters().size(), 1U);
        EXPECT_EQ(transform.variableTransformations().size(), 1U);
        EXPECT_THAT(transform.getTransformedGeoms(), ElementsAre(a));
    }

    VrexTransform3D transform;
    std::shared_ptr<VrexPoint3D> a = point();
    std::shared_ptr<VrexPoint3D> b = point();
    std::shared_ptr<VrexGeometryVariable> v = VrexGeometryVariable::create(1.0);
    std::shared_ptr<VrexGeometryVariable> w = VrexGeometryVariable::create(2.0);
};

TEST(VrexDragTransform3D, IsNoEntityAndTheIdentityByDefault) {
    const VrexDragTransform3D record;
    EXPECT_EQ(record.geometry, nullptr);
    EXPECT_TRUE(record.matrix == VrexTransformMatrix3D());
}

TEST(VrexDragParameter3D, IsMadeOfEntityTypeAndValue) {
    const auto geometry = point();
    const VrexDragParameter3D record(geometry, static_cast<VrexDragParameter3DType>(77), 2.5);
    EXPECT_EQ(record.geometry, geometry);
    EXPECT_EQ(record.type, static_cast<VrexDragParameter3DType>(77));
    EXPECT_EQ(record.value, 2.5);
}

TEST_F(VrexTransform3DTest, ASecondMotionOfAnEntityAppliesAfterTheFirst) {
    EXPECT_TRUE(transform.applyTransformation(a, turn()));
    EXPECT_TRUE(transform.applyTranslation(a, {1.0, 0.0, 0.0}));
    ASSERT_EQ(transform.transformations().size(), 1U);
    // The turn first: the translation is not turned.
    const VrexTransformMatrix3D expected({{{0, -1, 0, 1}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}});
    EXPECT_TRUE(transform.getTransformForGeometry(a).matrix == expected);
}

TEST_F(VrexTransform3DTest, ALastRowThatIsNoRigidMotionsIsRefused) {
    EXPECT_FALSE(transform.applyTransformation(a, withLastRow(2.0)));
    EXPECT_TRUE(transform.isEmpty());
    EXPECT_FALSE(transform.isTransformed(a));
    fill();
    EXPECT_FALSE(transform.applyTransformation(a, withLastRow(2.0)));
    expectFilled();
}

TEST_F(VrexTransform3DTest, AScaleIsTaken) {
    VrexTransformMatrix3D scale;
    scale[0][0] = scale[1][1] = scale[2][2] = 3.0;
    EXPECT_TRUE(transform.applyTransformation(a, scale));
    EXPECT_TRUE(transform.getTransformForGeometry(a).matrix == scale);
}

TEST_F(VrexTransform3DTest, NullIsRefused) {
    fill();
    EXPECT_FALSE(transform.applyTransformation(nullptr, turn()));
    EXPECT_FALSE(transform.applyTranslation(nullptr, {1.0, 0.0, 0.0}));
    EXPECT_FALSE(transform.setTransformation(nullptr, turn()));
    EXPECT_FALSE(transform.setTransforms({{b, turn()}, {nullptr, turn()}}));
    EXPECT_FALSE(transform.applyTransformParameters(nullptr, VrexDragParameter3DType::Radius3D, 1.0));
    EXPECT_FALSE(transform.applyVariableTransform(nullptr, 1.0));
    transform.setDragParameters({{nullptr, VrexDragParameter3DType::Radius3D, 1.0}});
    EXPECT_FALSE(transform.isTransformed(std::shared_ptr<VrexGeometry>()));
    EXPECT_FALSE(transform.isTransformed(std::shared_ptr<VrexGeometryVariable>()));
    expectFilled();
}

TEST_F(VrexTransform3DTest, OneBadMatrixKeepsTheWholeOldState) {
    fill();
    EXPECT_FALSE(transform.setTransforms({{b, turn()}, {a, withLastRow(0.0)}}));
    expectFilled();
    EXPECT_TRUE(transform.setTransforms({{b, turn()}}));
    EXPECT_FALSE(transform.isTransformed(a));
    EXPECT_TRUE(transform.isTransformed(b));
    EXPECT_EQ(transform.transformParameters().size(), 1U);
}

TEST_F(VrexTransform3DTest, OfTwoRecordsOfOneEntityTheLaterIsFound) {
    EXPECT_TRUE(transform.setTransforms({{a, turn()}, {b, turn()}, {a, move(1.0, 2.0, 3.0)}}));
    EXPECT_EQ(transform.transformations().size(), 3U);
    EXPECT_TRUE(transform.getTransformForGeometry(a).matrix == move(1.0, 2.0, 3.0));
    EXPECT_THAT(transform.getTransformedGeoms(), ElementsAre(b, a));
}

TEST_F(VrexTransform3DTest, ReplacingAMatrixNeedsAnEntryAndExaminesNothing) {
    EXPECT_FALSE(transform.setTransformation(a, turn()));
    EXPECT_TRUE(transform.isEmpty());
    transform.applyTransformation(a, turn());
    EXPECT_TRUE(transform.setTransformation(a, withLastRow(2.0)));
    EXPECT_TRUE(transform.getTransformForGeometry(a).matrix == withLastRow(2.0));
}

TEST_F(VrexTransform3DTest, AnEntityWithADrivenParameterIsTransformed) {
    transform.applyTransformParameters(a, VrexDragParameter3DType::Radius3D, 2.5);
    EXPECT_TRUE(transform.isTransformed(a));
    EXPECT_FALSE(transform.isTransformed(b));
    EXPECT_THAT(transform.getTransformedGeoms(), IsEmpty());
    EXPECT_THAT(transform.getDragParamGeoms(), ElementsAre(a));
}

TEST_F(VrexTransform3DTest, DragParametersAreAppendedAndFoundInOrder) {
    transform.applyTransformParameters(a, VrexDragParameter3DType::MajorRadius3D, 1.0);
    transform.setDragParameters(
        {{b, VrexDragParameter3DType::Radius3D, 2.0}, {a, VrexDragParameter3DType::MinorRadius3D, 3.0}});
    EXPECT_EQ(transform.transformParameters().size(), 3U);
    const auto records = transform.getDragParametersForGeometry(a);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].value, 1.0);
    EXPECT_EQ(records[1].value, 3.0);
    EXPECT_EQ(records[1].type, VrexDragParameter3DType::MinorRadius3D);
    EXPECT_THAT(transform.getDragParametersForGeometry(point()), IsEmpty());
    EXPECT_THAT(transform.getDragParamGeoms(), ElementsAre(a, b));
    transform.setDragParameters(transform.transformParameters());
    EXPECT_EQ(transform.transformParameters().size(), 6U);
    EXPECT_EQ(transform.getDragParametersForGeometry(a).size(), 4U);
}

TEST_F(VrexTransform3DTest, ARepeatedVariableHasTwoRecords) {
    EXPECT_TRUE(transform.applyVariableTransform(v, 1.0));
    EXPECT_TRUE(transform.applyVariableTransform(w, 2.0));
    EXPECT_TRUE(transform.applyVariableTransform(v, 3.0));
    EXPECT_THAT(transform.getTransformedVariables(), ElementsAre(v, w, v));
    EXPECT_EQ(transform.variableTransformations()[0].value, 1.0);
    EXPECT_EQ(transform.variableTransformations()[2].value, 3.0);
    EXPECT_TRUE(transform.isTransformed(v));
    EXPECT_FALSE(transform.isTransformed(VrexGeometryVariable::create(1.0)));
    EXPECT_FALSE(transform.isEmpty());
}

TEST_F(VrexTransform3DTest, IsEmptyAfterClear) {
    fill();
    EXPECT_FALSE(transform.isEmpty());
    transform.clear();
    EXPECT_TRUE(transform.isEmpty());
    EXPECT_FALSE(transform.isTransformed(a));
    EXPECT_FALSE(transform.isTransformed(b));
    EXPECT_FALSE(transform.isTransformed(v));
    EXPECT_EQ(a.use_count(), 1);
}

TEST_F(VrexTransform3DTest, AnUnknownEntityHasNoMatrix) {
    fill();
    VrexTransformMatrix3D matrix = move(9.0, 9.0, 9.0);
    EXPECT_FALSE(transform.getTransformMatrixForGeometry(b, matrix));
    EXPECT_TRUE(matrix == move(9.0, 9.0, 9.0));
    EXPECT_TRUE(transform.getTransformMatrixForGeometry(a, matrix));
    EXPECT_TRUE(matrix == turn());
    const LogCapture log;
    try {
        transform.getTransformForGeometry(b);
        FAIL();
    } catch (const std::out_of_range& failure) {
        EXPECT_STREQ(failure.what(), "invalid unordered_map<K, T> key");
    }
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text,
              "VrexTransform3D::getTransformForGeometry(): invalid unordered_map<K, T> key");
}

TEST_F(VrexTransform3DTest, ManyMotionsOfOneEntityAreOneProductTheNewestOnTheLeft) {
    std::mt19937 engine(1);
    VrexTransformMatrix3D product;
    for (int i = 0; i < 20; ++i) {
        // Whole numbers and quarter turns, so that every product is exact.
        const VrexTransformMatrix3D next = engine() % 2 == 0 ? turn() : move(engine() % 9, engine() % 9, 1.0);
        EXPECT_TRUE(transform.applyTransformation(a, next));
        product = next * product;
    }
    ASSERT_EQ(transform.transformations().size(), 1U);
    EXPECT_TRUE(transform.transformations()[0].matrix == product);
}

TEST_F(VrexTransform3DTest, ACloneWithoutMapsEqualsItsSource) {
    fill();
    const auto copy = transform.clone({}, {});
    ASSERT_EQ(copy->transformations().size(), 1U);
    EXPECT_EQ(copy->transformations()[0].geometry, a);
    EXPECT_TRUE(copy->transformations()[0].matrix == turn());
    EXPECT_EQ(copy->getDragParametersForGeometry(b).size(), 1U);
    EXPECT_THAT(copy->getTransformedVariables(), ElementsAre(v));
    EXPECT_TRUE(copy->isTransformed(v));
    copy->clear();
    expectFilled();
}

TEST_F(VrexTransform3DTest, ACloneNamesTheNewObjectsEverywhereAndKeepsPlacesAndRepeats) {
    const auto newA = point();
    const auto newB = point();
    const auto newV = VrexGeometryVariable::create(1.0);
    transform.setTransforms({{a, turn()}, {b, turn()}, {a, move(1.0, 2.0, 3.0)}});
    transform.setDragParameters({{b, VrexDragParameter3DType::Radius3D, 2.0},
                                 {a, VrexDragParameter3DType::Radius3D, 3.0},
                                 {b, VrexDragParameter3DType::Aperture3D, 4.0}});
    transform.applyVariableTransform(v, 1.0);
    transform.applyVariableTransform(w, 2.0);
    transform.applyVariableTransform(v, 3.0);
    // The two entities change places with others, one of them with an old one.
    const auto copy = transform.clone({{a, b}, {b, newB}}, {{v, newV}});
    EXPECT_THAT(copy->getTransformedVariables(), ElementsAre(newV, w, newV));
    EXPECT_TRUE(copy->isTransformed(newV));
    EXPECT_FALSE(copy->isTransformed(v));
    EXPECT_FALSE(copy->isTransformed(a));
    EXPECT_EQ(copy->transformations()[0].geometry, b);
    EXPECT_EQ(copy->transformations()[1].geometry, newB);
    EXPECT_EQ(copy->transformations()[2].geometry, b);
    EXPECT_TRUE(copy->getTransformForGeometry(b).matrix == move(1.0, 2.0, 3.0));
    ASSERT_EQ(copy->getDragParametersForGeometry(newB).size(), 2U);
    EXPECT_EQ(copy->getDragParametersForGeometry(newB)[1].value, 4.0);
    EXPECT_EQ(copy->getDragParametersForGeometry(b)[0].value, 3.0);
    const auto partly = transform.clone({{a, newA}, {b, nullptr}}, {});
    EXPECT_THAT(partly->getTransformedGeoms(), ElementsAre(b, newA));
}

TEST_F(VrexTransform3DTest, WhatFindsNoMemoryLeavesAllAsItWas) {
    const auto c = point();
    fill();
    const auto expectKept = [&] {
        expectFilled();
        EXPECT_FALSE(transform.isTransformed(c));
        EXPECT_FALSE(transform.isTransformed(w));
        EXPECT_THAT(transform.getDragParamGeoms(), ElementsAre(b));
        EXPECT_EQ(transform.getDragParametersForGeometry(b).size(), 1U);
    };
    const auto expectKeptBy = [&](const std::function<void()>& change) {
        const VrexTransform3D before = transform;
        nsMemoryChecks::expectKeptWithoutMemory(change, expectKept);
        transform = before;
    };
    expectKeptBy([&] { transform.applyTransformation(c, turn()); });
    expectKeptBy([&] { transform.setTransforms({{c, turn()}, {b, turn()}}); });
    expectKeptBy([&] { transform.applyTransformParameters(c, VrexDragParameter3DType::Radius3D, 1.0); });
    expectKeptBy([&] { transform.applyTransformParameters(b, VrexDragParameter3DType::Radius3D, 1.0); });
    expectKeptBy([&] { transform.applyVariableTransform(w, 1.0); });
}

TEST_F(VrexTransform3DTest, CopiesShareObjectsAndNothingElse) {
    fill();
    VrexTransform3D copy(transform);
    copy.applyTransformation(a, turn());
    expectFilled();
    VrexTransform3D moved(std::move(copy));
    EXPECT_TRUE(moved.getTransformForGeometry(a).matrix == turn() * turn());
    moved = transform;
    EXPECT_TRUE(moved.getTransformForGeometry(a).matrix == turn());
}

} // namespace
