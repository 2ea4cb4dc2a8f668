#include "data/constraint/3d/VrexEqualParameter3D.h"

#include <typeinfo>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SamplesRelations.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::Pair;
using Constraint = std::shared_ptr<VrexConstraint3D>;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
constexpr std::pair<int, int> FIRST{6, 7};
constexpr std::pair<int, int> SECOND{8, 9};

/// Two constraints that have a circle in common, in different places, and what else they need.
class VrexEqualParameter3DTest : public testing::Test {
protected:
    std::shared_ptr<VrexPoint3D> m_point = makeSample<VrexPoint3D>();
    std::shared_ptr<VrexCircle3D> m_circle = makeSample<VrexCircle3D>();
    std::shared_ptr<VrexCylinder3D> m_cylinder = makeSample<VrexCylinder3D>();

    static Constraint between(const std::shared_ptr<VrexGeometry3D>& first,
                              const std::shared_ptr<VrexGeometry3D>& second) {
        return VrexDistance3D::create(first, second, 1.0, WHOLE, WHOLE);
    }
    Constraint m_before = between(m_circle, m_point);
    Constraint m_behind = between(m_point, m_circle);
    Constraint m_length = VrexCurveLength3D::create(m_point, makeSample<VrexPoint3D>(), m_circle, 2.0);
};

TEST_F(VrexEqualParameter3DTest, CanCreateWhereBothLeadToOneCurveOrSurface) {
    const auto onCylinder = between(m_cylinder, m_point);
    const auto otherCircle = between(makeSample<VrexCircle3D>(), m_point);
    struct Row {
        Constraint constraint1;
        std::pair<int, int> indices1;
        Constraint constraint2;
        std::pair<int, int> indices2;
        bool expected;
    };
    const Row rows[] = {
        {m_before, FIRST, m_behind, SECOND, true},
        {m_behind, SECOND, m_before, FIRST, true},
        {m_before, FIRST, m_before, FIRST, true},
        {onCylinder, FIRST, onCylinder, FIRST, true},
        {m_length, FIRST, m_before, FIRST, true},
        {m_before, FIRST, m_length, SECOND, true},
        {m_length, FIRST, m_length, SECOND, true},
        {m_before, {0, 0}, m_behind, {5, 0}, true}, // whatever index leads there
        {m_before, SECOND, m_behind, FIRST, false}, // one point
        {m_before, FIRST, m_behind, FIRST, false},
        {m_before, FIRST, otherCircle, FIRST, false},
        {m_before, FIRST, onCylinder, FIRST, false},
        {m_length, {7, 6}, m_length, {7, 6}, false},
        {m_before, {10, 7}, m_before, {10, 7}, false},
        {m_before, {-1, 7}, m_before, {-1, 7}, false},
        {nullptr, FIRST, m_before, FIRST, false},
        {m_before, FIRST, nullptr, FIRST, false},
        {nullptr, FIRST, nullptr, FIRST, false},
        {between(nullptr, m_circle), FIRST, between(nullptr, m_circle), FIRST, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(
            VrexEqualParameter3D::canCreate(row.constraint1, row.indices1, row.constraint2, row.indices2),
            row.expected)
            << "row " << (&row - rows);
    }
}

TEST_F(VrexEqualParameter3DTest, NewConstraintHoldsConstraintsPairsAndTheSharedGeometry) {
    const auto equal = VrexEqualParameter3D::create(m_before, FIRST, m_behind, SECOND);
    EXPECT_THAT(equal->getGeometries(), ElementsAre(m_circle));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_before, m_behind));
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, SECOND));
}

TEST_F(VrexEqualParameter3DTest, GeometryIsTheOneOfTheFirstConstraint) {
    const auto ofCurve = VrexEqualParameter3D::create(m_length, SECOND, m_before, SECOND);
    EXPECT_EQ(ofCurve->geometry(1), m_circle);
    const auto ofPoint = VrexEqualParameter3D::create(m_before, SECOND, m_length, SECOND);
    EXPECT_EQ(ofPoint->geometry(1), m_point);
}

TEST_F(VrexEqualParameter3DTest, CreateStoresWhatCanCreateRefuses) {
    const auto equal = VrexEqualParameter3D::create(nullptr, {3, -4}, m_behind, {99, 0});
    EXPECT_THAT(equal->getGeometries(), ElementsAre(nullptr));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_behind)) << "nulls are left out";
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(Pair(3, -4), Pair(99, 0)));
    const auto nowhere = VrexEqualParameter3D::create(m_before, {10, 0}, nullptr, FIRST);
    EXPECT_THAT(nowhere->getGeometries(), ElementsAre(nullptr));
}

TEST_F(VrexEqualParameter3DTest, PairsAreFoundFromTheGeometry) {
    const auto equal = VrexEqualParameter3D::create(m_circle, m_behind, m_before);
    EXPECT_THAT(equal->getGeometries(), ElementsAre(m_circle));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_behind, m_before));
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(SECOND, FIRST));
}

TEST_F(VrexEqualParameter3DTest, FirstOfTwoPossiblePairsIsTaken) {
    const auto equal = VrexEqualParameter3D::create(m_circle, between(m_circle, m_circle), m_length);
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, FIRST));
}

TEST_F(VrexEqualParameter3DTest, PairIsZeroWhereTheGeometryIsNotFound) {
    const auto equal = VrexEqualParameter3D::create(m_cylinder, m_before, nullptr);
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(Pair(0, 0), Pair(0, 0)));
    EXPECT_THAT(equal->getGeometries(), ElementsAre(m_cylinder));
    EXPECT_THAT(
        VrexEqualParameter3D::create(nullptr, between(nullptr, nullptr), m_before)->getParameterIndices(),
        ElementsAre(Pair(0, 0), Pair(0, 0)));
}

TEST_F(VrexEqualParameter3DTest, PairsCanBeSet) {
    const auto equal = VrexEqualParameter3D::create(m_circle, m_behind, m_before);
    equal->getParameterIndices() = {FIRST, SECOND};
    const auto& constant = *equal;
    EXPECT_THAT(constant.getParameterIndices(), ElementsAre(FIRST, SECOND));
}

TEST_F(VrexEqualParameter3DTest, UpdateKeepsConstraintsPairsAndGeometry) {
    const auto equal = VrexEqualParameter3D::create(m_before, FIRST, m_length, SECOND);
    equal->updateFrom(makeSample<VrexEqualParameter3D>());
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_before, m_length));
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, SECOND));
    EXPECT_EQ(equal->geometry(1), m_circle);
    EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Positive);
    EXPECT_TRUE(equal->areGeometriesChanged());
    equal->updateFrom(equal);
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_before, m_length));
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, SECOND));
}

TEST_F(VrexEqualParameter3DTest, FailedUpdateKeepsConstraintsAndPairs) {
    const auto equal = VrexEqualParameter3D::create(m_before, FIRST, m_length, SECOND);
    EXPECT_THROW(equal->updateFrom(m_before), std::bad_cast);
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_before, m_length));
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, SECOND));
    EXPECT_EQ(equal->geometry(1), m_circle);
}

TEST_F(VrexEqualParameter3DTest, RestoreBringsBackThePairs) {
    const auto equal = VrexEqualParameter3D::create(m_before, FIRST, m_behind, SECOND);
    equal->backup();
    equal->getParameterIndices() = {};
    equal->restore();
    EXPECT_THAT(equal->getParameterIndices(), ElementsAre(FIRST, SECOND));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(m_before, m_behind));
}

TEST_F(VrexEqualParameter3DTest, ConstraintsAreSharedAndReleased) {
    auto equal = VrexEqualParameter3D::create(m_before, FIRST, m_behind, SECOND);
    const std::weak_ptr<VrexConstraint3D> gone = m_before;
    m_before.reset();
    EXPECT_FALSE(gone.expired());
    equal.reset();
    EXPECT_TRUE(gone.expired());
}

TEST_F(VrexEqualParameter3DTest, LongChainIsReleasedOnASmallStack) {
    constexpr int links = 20000;
    std::weak_ptr<VrexConstraint3D> first;
    runOnSmallStack([&] {
        Constraint last = VrexEqualParameter3D::create(m_circle, m_before, m_behind);
        first = last;
        for (int i = 0; i < links; ++i) {
            last = VrexEqualParameter3D::create(m_circle, last, m_behind);
        }
    });
    EXPECT_TRUE(first.expired());
}

} // namespace
