#include "data/geometry/3d/VrexSpline3D.h"

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "support/ProbeObject.h"
#include "support/SplineSamples.h"

namespace {

using nsSplineSamples::Maker;
using Interval = std::pair<std::optional<double>, std::optional<double>>;

std::shared_ptr<VrexSpline3D> makeLine() {
    return VrexSpline3D::create({1,
                                 false,
                                 {0.0, 0.0, 2.0, 5.0, 5.0},
                                 {{VrexPoint3D::create(0.0, 0.0, 0.0), 1.0},
                                  {VrexPoint3D::create(1.0, 0.0, 0.0), 2.0},
                                  {VrexPoint3D::create(1.0, 1.0, 0.0), 1.0}}});
}

TEST(VrexSpline3D, HasThreeFreedomsAndTwoUnreadParametersAControlPoint) {
    const auto spline = makeLine();
    EXPECT_EQ(spline->type(), VrexGeometry3DType::SPLINE);
    EXPECT_TRUE(spline->isParametricCurve());
    EXPECT_EQ(spline->dof(), 9);
    EXPECT_TRUE(spline->isEqualParameters(*ProbeObject::create(6)));
}

TEST(VrexSpline3D, CreatedSplineHoldsItsOptionsAndNoInterpolation) {
    const auto spline = makeLine();
    EXPECT_EQ(spline->degree(), 1);
    EXPECT_FALSE(spline->periodic());
    EXPECT_EQ(spline->knots(), (std::vector<double>{0.0, 0.0, 2.0, 5.0, 5.0}));
    EXPECT_EQ(spline->controlPoints().size(), 3U);
    EXPECT_EQ(spline->controlPoints()[1].weight, 2.0);
    EXPECT_TRUE(spline->getInterpolatedPoints().empty());
    EXPECT_TRUE(spline->getInterpolatedParameters().empty());
}

TEST(VrexSpline3D, GeometriesAreTheControlPointsThenTheInterpolatedPoints) {
    const auto spline = makeLine();
    const auto first = VrexPoint3D::create(7.0, 0.0, 0.0);
    const auto second = VrexPoint3D::create(8.0, 0.0, 0.0);
    spline->setInterpolatedPoints({first, second});
    const std::vector<std::shared_ptr<VrexBaseGeometry>> expected{
        spline->controlPoints()[0].point, spline->controlPoints()[1].point, spline->controlPoints()[2].point,
        first, second};
    EXPECT_EQ(spline->getGeometries(), expected);
    EXPECT_TRUE(spline->getVariables().empty());
}

TEST(VrexSpline3D, GeometriesLeaveOutNullPoints) {
    const auto spline = makeLine();
    spline->controlPoints()[1].point = nullptr;
    spline->setInterpolatedPoints({nullptr});
    EXPECT_EQ(spline->getGeometries().size(), 2U);
    EXPECT_EQ(spline->dof(), 9);
}

TEST(VrexSpline3D, IntervalWithoutKnotsIsZeroWhateverTheTrim) {
    const auto spline = makeLine();
    spline->knots().clear();
    EXPECT_EQ(spline->interval(), Interval(0.0, 0.0));
    spline->start() = 1.0;
    spline->end() = 2.0;
    EXPECT_EQ(spline->interval(), Interval(0.0, 0.0));
}

TEST(VrexSpline3D, IntervalIsBetweenTheKnotsAtTheDegreeUnlessTrimmed) {
    const auto spline = makeLine();
    spline->knots() = {0.0, 1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ(spline->interval(), Interval(1.0, 3.0));
    spline->start() = 1.5;
    EXPECT_EQ(spline->interval(), Interval(1.5, 3.0));
    spline->end() = 1.25;
    EXPECT_EQ(spline->interval(), Interval(1.5, 1.25));
    spline->start().reset();
    EXPECT_EQ(spline->interval(), Interval(1.0, 1.25));
}

TEST(VrexSpline3D, IntervalTakesZeroForAnEndWhoseKnotDoesNotExist) {
    const auto spline = makeLine();
    spline->knots() = {7.0, 8.0};
    for (const int degree : {2, 1000, std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()}) {
        spline->degree() = degree;
        EXPECT_EQ(spline->interval().first, 0.0) << degree;
    }
    spline->degree() = 1;
    EXPECT_EQ(spline->interval(), Interval(8.0, 7.0));
    spline->degree() = 2;
    spline->start() = 3.0;
    EXPECT_EQ(spline->interval(), Interval(3.0, 0.0));
}

TEST(VrexSpline3D, WithoutBackupItIsNeverChanged) { EXPECT_FALSE(makeLine()->checkChanged(0.0, 0.0)); }

TEST(VrexSpline3D, UntouchedItIsUnchanged) {
    const auto spline = makeLine();
    spline->backup();
    EXPECT_FALSE(spline->checkChanged(0.0, 0.0));
}

TEST(VrexSpline3D, AnotherDegreePeriodicityOrCountIsAChange) {
    const auto expectChange = [](void (*change)(VrexSpline3D&)) {
        const auto spline = makeLine();
        spline->backup();
        change(*spline);
        EXPECT_TRUE(spline->checkChanged(1e10, 0.0));
        spline->restore();
        EXPECT_FALSE(spline->checkChanged(0.0, 0.0));
    };
    expectChange([](VrexSpline3D& spline) { spline.degree() = 2; });
    expectChange([](VrexSpline3D& spline) { spline.periodic() = true; });
    expectChange([](VrexSpline3D& spline) { spline.knots().push_back(5.0); });
    expectChange([](VrexSpline3D& spline) { spline.knots().pop_back(); });
    expectChange([](VrexSpline3D& spline) { spline.controlPoints().pop_back(); });
    expectChange([](VrexSpline3D& spline) { spline.controlPoints().push_back(spline.controlPoints()[0]); });
}

TEST(VrexSpline3D, AKnotIsChangedBeyondTheTolerance) {
    const auto spline = makeLine();
    spline->backup();
    spline->knots()[2] += 0.25;
    EXPECT_FALSE(spline->checkChanged(0.25, 0.0));
    EXPECT_TRUE(spline->checkChanged(0.125, 0.0));
    spline->knots()[2] -= 0.5;
    EXPECT_TRUE(spline->checkChanged(0.125, 0.0)) << "either way";
}

TEST(VrexSpline3D, AWeightChangeOf1em13IsNoneAndOf1em12IsOne) {
    const auto spline = makeLine();
    spline->backup();
    spline->controlPoints()[0].weight = 1.0 + 1e-13;
    EXPECT_FALSE(spline->checkChanged(0.0, 0.0));
    spline->controlPoints()[0].weight = 1.0 - 1e-12;
    EXPECT_TRUE(spline->checkChanged(1.0, 0.0)) << "whatever the tolerance";
}

TEST(VrexSpline3D, AnotherPointObjectWithTheSameCoordinatesIsAChange) {
    const auto spline = makeLine();
    spline->backup();
    spline->controlPoints()[0].point = VrexPoint3D::create(0.0, 0.0, 0.0);
    EXPECT_TRUE(spline->checkChanged(1.0, 0.0));
    spline->controlPoints()[0].point = nullptr;
    EXPECT_TRUE(spline->checkChanged(1.0, 0.0));
}

TEST(VrexSpline3D, AMovedPointIsAChangeByItsChangeStatusAlone) {
    const auto spline = makeLine();
    spline->backup();
    auto& point = *spline->controlPoints()[2].point;
    point.assign(9.0, 9.0, 9.0);
    EXPECT_FALSE(spline->checkChanged(0.0, 0.0));
    point.setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_TRUE(spline->checkChanged(1.0, 0.0));
    for (const auto status : {VrexGeometryChangeStatus::Unknown, VrexGeometryChangeStatus::Fixed,
                              VrexGeometryChangeStatus::NotChanged}) {
        point.setChangeStatus(status);
        EXPECT_FALSE(spline->checkChanged(0.0, 0.0));
    }
}

TEST(VrexSpline3D, UpdateKeepsTheOwnPointsAndWeightsAndTakesTheRest) {
    const auto spline = makeLine();
    const auto points = spline->controlPoints();
    const auto fitted = VrexPoint3D::create(7.0, 0.0, 0.0);
    spline->setInterpolatedPoints({fitted});
    spline->setInterpolatedParameters({0.5});
    const auto other = Maker(1).spline(3, 7, true);
    other->setInterpolatedPoints({VrexPoint3D::create(1.0, 1.0, 1.0), VrexPoint3D::create(2.0, 2.0, 2.0)});
    other->setInterpolatedParameters({1.0, 2.0});
    other->start() = 4.0;

    spline->updateFrom(other);

    EXPECT_EQ(spline->degree(), 3);
    EXPECT_TRUE(spline->periodic());
    EXPECT_EQ(spline->knots(), other->knots());
    EXPECT_EQ(spline->start(), 4.0);
    EXPECT_EQ(spline->getInterpolatedParameters(), (std::vector<double>{1.0, 2.0}));
    ASSERT_EQ(spline->controlPoints().size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(spline->controlPoints()[i].point, points[i].point);
        EXPECT_EQ(spline->controlPoints()[i].weight, points[i].weight);
    }
    EXPECT_EQ(spline->getInterpolatedPoints(), std::vector{fitted});
    EXPECT_EQ(other->controlPoints().size(), 7U);
}

TEST(VrexSpline3D, RestoreBringsBackThePointObjectsButNotTheirPlaces) {
    const auto spline = makeLine();
    const auto point = spline->controlPoints()[0].point;
    spline->backup();
    point->assign(3.0, 4.0, 5.0);
    spline->controlPoints()[0] = {VrexPoint3D::create(9.0, 9.0, 9.0), 5.0};
    spline->restore();
    EXPECT_EQ(spline->controlPoints()[0].point, point);
    EXPECT_EQ(spline->controlPoints()[0].weight, 1.0);
    EXPECT_EQ(point->getPosition().x(), 3.0) << "a point has snapshots of its own";
}

} // namespace
