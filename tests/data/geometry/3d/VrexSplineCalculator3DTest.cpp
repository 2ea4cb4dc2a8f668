#include "data/geometry/3d/VrexSplineCalculator3D.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <stdexcept>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "support/DeBoor.h"
#include "support/LogCapture.h"
#include "support/SplineSamples.h"
#include "support/VectorSamples.h"

namespace {

using nsSplineSamples::Maker;
using nsVectorSamples::valuesOf;
using Vector = VrexVector3DT<double>;

/// Some hundred roundings at coordinates of the size of one.
constexpr double ROUNDING = 1e-12;

void expectNear(const Vector& actual, const Vector& expected, double tolerance) {
    nsVectorSamples::expectNear(valuesOf(actual), valuesOf(expected), tolerance);
}

std::shared_ptr<VrexSpline3D> makePolyline() {
    return VrexSpline3D::create({1,
                                 false,
                                 {0.0, 0.0, 1.0, 3.0, 3.0},
                                 {{VrexPoint3D::create(0.0, 0.0, 0.0), 1.0},
                                  {VrexPoint3D::create(1.0, 0.0, 0.0), 1.0},
                                  {VrexPoint3D::create(1.0, 4.0, 0.0), 1.0}}});
}

TEST(VrexSplineCalculator3D, IsTheCalculatorOfASpline) {
    const auto spline = makePolyline();
    const auto calculator = VrexParametricCurveCalculator3D::create(*spline);
    const auto* concrete = dynamic_cast<const VrexSplineCalculator3D*>(calculator.get());
    ASSERT_NE(concrete, nullptr);
    EXPECT_EQ(&concrete->getSpline(), spline.get());
    EXPECT_EQ(spline->evaluate(2.0, 0).front().y(), 2.0);
}

TEST(VrexSplineCalculator3D, PointsAgreeWithDeBoorsAlgorithm) {
    Maker maker(3);
    for (int degree = 0; degree <= 7; ++degree) {
        for (const bool periodic : {false, true}) {
            const auto spline = maker.spline(degree, 9, periodic);
            VrexSplineCalculator3D calculator(*spline);
            for (int i = 0; i < 40; ++i) {
                const double t = maker.inside(spline->interval());
                const auto result = calculator.calculate(t, 2);
                ASSERT_EQ(result.size(), 3U);
                expectNear(result[0], nsDeBoor::evaluate(*spline, t), ROUNDING);
            }
        }
    }
}

TEST(VrexSplineCalculator3D, DerivativesAgreeWithCentralDifferencesOfTheOrderBelow) {
    Maker maker(4);
    const double step = 1e-4;
    for (const bool periodic : {false, true}) {
        for (int degree = 1; degree <= 5; ++degree) {
            const auto spline = maker.spline(degree, 8, periodic);
            VrexSplineCalculator3D calculator(*spline);
            for (int i = 0; i < 20; ++i) {
                const double t = maker.inside(spline->interval());
                const auto at = calculator.calculate(t, degree);
                const auto before = calculator.calculate(t - step, degree);
                const auto behind = calculator.calculate(t + step, degree);
                for (std::size_t k = 1; k < at.size(); ++k) {
                    const auto slope = (behind[k - 1] - before[k - 1]) / (2.0 * step);
                    // A knot between the two places may part them, which shows in the highest derivatives.
                    const bool isAcrossAKnot =
                        std::any_of(spline->knots().begin(), spline->knots().end(),
                                    [&](double knot) { return std::fabs(knot - t) <= step; });
                    if (!isAcrossAKnot) {
                        expectNear(at[k], slope, 1e-4 * (1.0 + slope.magnitude()));
                    }
                }
            }
        }
    }
}

TEST(VrexSplineCalculator3D, RationalCircleLiesOnItsCircle) {
    const double half = std::numbers::sqrt2 / 2.0;
    const std::vector<std::pair<double, double>> corners{{1, 0},   {1, 1},  {0, 1},  {-1, 1}, {-1, 0},
                                                         {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
    std::vector<VrexSpline3D::ControlPoint> controlPoints;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        controlPoints.push_back(
            {VrexPoint3D::create(corners[i].first, corners[i].second, 2.0), i % 2 == 0 ? 1.0 : half});
    }
    const auto spline = VrexSpline3D::create({2, false, {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, controlPoints});
    VrexSplineCalculator3D calculator(*spline);
    for (int i = 0; i <= 400; ++i) {
        const auto result = calculator.calculate(0.01 * i, 2);
        const Vector radius(result[0].x(), result[0].y(), 0.0);
        EXPECT_NEAR(radius.magnitude(), 1.0, 1e-15 * 8);
        EXPECT_NEAR(result[0].z(), 2.0, 1e-15 * 8);
        EXPECT_NEAR(radius.dotProduct(result[1]), 0.0, ROUNDING);
        // |C|^2 = 1 derived twice.
        EXPECT_NEAR(result[1].dotProduct(result[1]) + radius.dotProduct(result[2]), 0.0, ROUNDING * 10);
    }
}

TEST(VrexSplineCalculator3D, DerivativesAboveTheDegreeAreZero) {
    const auto spline = Maker(5).spline(2, 5);
    const auto result = VrexSplineCalculator3D(*spline).calculate(0.0, 6);
    ASSERT_EQ(result.size(), 7U);
    EXPECT_GT(result[2].magnitude(), 0.0);
    for (std::size_t k = 3; k < result.size(); ++k) {
        EXPECT_EQ(valuesOf(result[k]), (nsVectorSamples::Values3{0.0, 0.0, 0.0}));
    }
}

TEST(VrexSplineCalculator3D, LowerOrderIsTheBeginningOfAHigherOneBitByBit) {
    Maker maker(5);
    for (int degree = 0; degree <= 6; ++degree) {
        const auto spline = maker.spline(degree, 8);
        VrexSplineCalculator3D calculator(*spline);
        const double t = maker.inside(spline->interval());
        const auto full = calculator.calculate(t, degree + 1);
        for (int order = 0; order <= degree; ++order) {
            const auto result = calculator.calculate(t, order);
            ASSERT_EQ(std::ssize(result), order + 1);
            for (std::size_t k = 0; k < result.size(); ++k) {
                EXPECT_EQ(valuesOf(result[k]), valuesOf(full[k]));
            }
        }
    }
}

TEST(VrexSplineCalculator3D, EndOfAnOpenCurveIsItsLastControlPoint) {
    Maker maker(6);
    for (int degree = 0; degree <= 5; ++degree) {
        const auto spline = maker.spline(degree, 7);
        VrexSplineCalculator3D calculator(*spline);
        const auto last = spline->controlPoints().back().point->getPosition();
        expectNear(calculator.calculate(spline->knots().back(), 0)[0], last, ROUNDING);
        const auto first = spline->controlPoints().front().point->getPosition();
        expectNear(calculator.calculate(spline->knots().front(), 0)[0], first, ROUNDING);
    }
}

TEST(VrexSplineCalculator3D, ParameterBeyondAnEndContinuesTheLastSpan) {
    const auto spline = makePolyline();
    VrexSplineCalculator3D calculator(*spline);
    expectNear(calculator.calculate(4.0, 0)[0], {1.0, 6.0, 0.0}, ROUNDING);
    expectNear(calculator.calculate(-2.0, 0)[0], {-2.0, 0.0, 0.0}, ROUNDING);
}

TEST(VrexSplineCalculator3D, OfAPeriodicSplineTAndTPlusThePeriodAreOnePoint) {
    Maker maker(7);
    for (int degree = 0; degree <= 4; ++degree) {
        const auto spline = maker.spline(degree, 6, true);
        VrexSplineCalculator3D calculator(*spline);
        const auto [start, end] = spline->interval();
        for (const int turns : {-3, -1, 1, 2}) {
            const double t = maker.inside(spline->interval());
            const auto here = calculator.calculate(t, 2);
            const auto there = calculator.calculate(t + turns * (*end - *start), 2);
            for (std::size_t k = 0; k < 3; ++k) {
                expectNear(there[k], here[k], 1e-9 * (1.0 + here[k].magnitude()));
            }
        }
    }
}

TEST(VrexSplineCalculator3D, ThePeriodIsThatOfTheTrimmedRangeInEitherOrder) {
    const auto spline = Maker(8).spline(2, 6, true);
    const double first = *spline->interval().first;
    spline->start() = first + 1.0;
    spline->end() = first + 0.5;
    VrexSplineCalculator3D calculator(*spline);
    const auto inside = calculator.calculate(first + 0.625, 1);
    const auto outside = calculator.calculate(first + 0.625 + 1.5, 1);
    expectNear(outside[0], inside[0], ROUNDING);
    expectNear(outside[1], inside[1], ROUNDING);
}

TEST(VrexSplineCalculator3D, NotANumberGivesNoNumbers) {
    for (const bool periodic : {false, true}) {
        const auto spline = Maker(9).spline(3, 6, periodic);
        const auto result =
            VrexSplineCalculator3D(*spline).calculate(std::numeric_limits<double>::quiet_NaN(), 2);
        ASSERT_EQ(result.size(), 3U);
        EXPECT_TRUE(std::isnan(result[0].x()));
    }
}

TEST(VrexSplineCalculator3D, KnotsThatAreNoNumbersEndTheSearch) {
    const auto spline = Maker(9).spline(3, 9);
    for (std::size_t i = 4; i < 9; ++i) {
        spline->knots()[i] = std::numeric_limits<double>::quiet_NaN();
        EXPECT_EQ(VrexSplineCalculator3D(*spline).calculate(0.5, 2).size(), 3U);
    }
}

TEST(VrexSplineCalculator3D, NegativeOrderGivesNothingAndAHugeOneThrows) {
    const auto spline = makePolyline();
    VrexSplineCalculator3D calculator(*spline);
    const auto parameters = nsSplineSamples::variablesOf(std::vector<double>(9, 1.0));
    for (const int order : {-1, std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(calculator.calculate(0.5, order).empty());
        EXPECT_TRUE(calculator.calculate(parameters, VrexVariable(0.5), order).empty());
    }
    EXPECT_EQ(calculator.calculate(0.5, 100'000).size(), 100'001U);
    for (const int order : {100'001, std::numeric_limits<int>::max()}) {
        EXPECT_THROW(calculator.calculate(0.5, order), std::invalid_argument);
        EXPECT_THROW(calculator.calculate(parameters, VrexVariable(0.5), order), std::invalid_argument);
    }
}

/// Evaluates in both scalars.
void expectBroken(const VrexSpline3D& spline, double t) {
    const LogCapture log(1);
    EXPECT_THROW(VrexSplineCalculator3D(spline).calculate(t, 1), std::invalid_argument);
    const auto parameters =
        nsSplineSamples::variablesOf(std::vector<double>(3 * spline.controlPoints().size(), 1.0));
    EXPECT_THROW(VrexSplineCalculator3D(spline).calculate(parameters, VrexVariable(t), 1),
                 std::invalid_argument);
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST(VrexSplineCalculator3D, DegreeThatTheKnotsDoNotFitThrows) {
    const auto spline = makePolyline();
    for (const int degree : {2, 40, std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()}) {
        spline->degree() = degree;
        expectBroken(*spline, 0.5);
    }
    spline->degree() = 0;
    spline->knots().resize(1);
    expectBroken(*spline, 0.5);
    spline->knots().clear();
    expectBroken(*spline, 0.5);
}

TEST(VrexSplineCalculator3D, MissingControlPointThrowsOnlyWhereItIsNeeded) {
    const auto spline = makePolyline();
    spline->controlPoints().pop_back();
    expectBroken(*spline, 2.0);
    expectNear(VrexSplineCalculator3D(*spline).calculate(0.5, 0)[0], {0.5, 0.0, 0.0}, ROUNDING);
    spline->controlPoints().clear();
    expectBroken(*spline, 0.5);
    spline->periodic() = true;
    expectBroken(*spline, 0.5);
}

TEST(VrexSplineCalculator3D, PeriodicSplineWithFewerPointsThanItsDegreeThrows) {
    const auto spline = Maker(10).spline(4, 6, true);
    spline->controlPoints().resize(3);
    expectBroken(*spline, *spline->interval().second - 0.01);
}

TEST(VrexSplineCalculator3D, NullPointThrows) {
    const auto spline = makePolyline();
    spline->controlPoints()[2].point = nullptr;
    expectBroken(*spline, 0.5);
    expectBroken(*spline, 2.5);
}

TEST(VrexSplineCalculator3D, UpdateThatLeavesTooFewPointsThrowsInTheHeldCalculator) {
    const auto spline = makePolyline();
    VrexSplineCalculator3D calculator(*spline);
    EXPECT_EQ(calculator.calculate(0.5, 0).size(), 1U);
    spline->updateFrom(Maker(11).spline(1, 8));
    EXPECT_THROW(calculator.calculate(*spline->interval().second, 0), std::invalid_argument);
    spline->knots().resize(3);
    EXPECT_THROW(calculator.calculate(0.0, 0), std::invalid_argument);
}

TEST(VrexSplineCalculator3D, HeldCalculatorSeesPointsWeightsAndKnotsButNotTheDegree) {
    const auto spline = makePolyline();
    VrexSplineCalculator3D calculator(*spline);
    expectNear(calculator.calculate(0.5, 0)[0], {0.5, 0.0, 0.0}, ROUNDING);
    spline->controlPoints()[0].point->assign(0.0, 0.0, 8.0);
    expectNear(calculator.calculate(0.5, 0)[0], {0.5, 0.0, 4.0}, ROUNDING);
    spline->controlPoints()[0].weight = 3.0;
    expectNear(calculator.calculate(0.5, 0)[0], {0.25, 0.0, 6.0}, ROUNDING);
    spline->knots()[2] = 2.0;
    expectNear(calculator.calculate(1.0, 0)[0], {0.25, 0.0, 6.0}, ROUNDING);
    spline->degree() = 0;
    expectNear(calculator.calculate(1.0, 0)[0], {0.25, 0.0, 6.0}, ROUNDING);
    expectNear(VrexSplineCalculator3D(*spline).calculate(1.0, 0)[0], {1.0, 0.0, 0.0}, ROUNDING);
}

TEST(VrexSplineCalculator3D, CopyGoesOnByItself) {
    const auto spline = makePolyline();
    VrexSplineCalculator3D calculator(*spline);
    const VrexSplineCalculator3D fresh(calculator);
    calculator.calculate(0.5, 1);
    VrexSplineCalculator3D copy(calculator);
    expectNear(copy.calculate(2.0, 0)[0], {1.0, 2.0, 0.0}, ROUNDING);
    expectNear(VrexSplineCalculator3D(fresh).calculate(2.0, 0)[0], {1.0, 2.0, 0.0}, ROUNDING);
}

TEST(VrexSplineCalculator3D, DegreeFortyEnds) {
    Maker maker(12);
    const auto spline = maker.spline(40, 50);
    VrexSplineCalculator3D calculator(*spline);
    for (int i = 0; i < 10; ++i) {
        const double t = maker.inside(spline->interval());
        const auto result = calculator.calculate(t, 40);
        ASSERT_EQ(result.size(), 41U);
        expectNear(result[0], nsDeBoor::evaluate(*spline, t), 1e-9);
    }
}

TEST(VrexSplineCalculator3D, DegreeOfManyThousandsNeedsRoomForItsOrderOnly) {
    const int degree = 4000;
    const auto count = static_cast<std::size_t>(degree) + 1;
    std::vector<VrexSpline3D::ControlPoint> controlPoints(count, {VrexPoint3D::create(1.0, 2.0, 3.0), 1.0});
    std::vector<double> knots(count, 0.0);
    knots.resize(2 * count, 1.0);
    const auto spline = VrexSpline3D::create({degree, false, knots, controlPoints});
    const auto result = VrexSplineCalculator3D(*spline).calculate(0.5, 1);
    expectNear(result[0], {1.0, 2.0, 3.0}, 1e-9);
    expectNear(result[1], {0.0, 0.0, 0.0}, 1e-6);
}

} // namespace
