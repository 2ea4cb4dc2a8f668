#include "data/geometry/3d/VrexInterpolatedSplineCalculator3D.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "support/LogCapture.h"
#include "support/SplineSamples.h"
#include "support/VectorSamples.h"

namespace {

using nsSplineSamples::Maker;
using nsVectorSamples::valuesOf;
using Calculator = VrexInterpolatedSplineCalculator3D;
using Numbers = std::vector<double>;
using Points = std::vector<VrexVector3DT<double>>;

constexpr double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();

struct Interpolation {
    Interpolation(const Points& points, std::size_t degree, bool periodic, bool useChordLength) {
        EXPECT_TRUE(Calculator::calculate(points, knots, controlPoints, parameters, degree, periodic,
                                          useChordLength));
    }

    Numbers knots;
    Points controlPoints;
    Numbers parameters;
};

Points makePoints(unsigned seed, std::size_t count) {
    Maker maker(seed);
    Points points;
    for (std::size_t i = 0; i < count; ++i) {
        const auto position = maker.controlPoint().point->getPosition();
        points.push_back(position);
    }
    return points;
}

std::shared_ptr<VrexSpline3D> makeSpline(const Interpolation& fit, std::size_t degree, bool periodic) {
    std::vector<VrexSpline3D::ControlPoint> controlPoints;
    for (const auto& point : fit.controlPoints) {
        controlPoints.push_back({VrexPoint3D::create(point.x(), point.y(), point.z()), 1.0});
    }
    return VrexSpline3D::create({static_cast<int>(degree), periodic, fit.knots, controlPoints});
}

void expectNear(const Numbers& actual, const Numbers& expected, double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
    }
}

void expectPassesThrough(const VrexSpline3D& spline, const Numbers& parameters, const Points& points,
                         double tolerance) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        nsVectorSamples::expectNear(valuesOf(spline.evaluate(parameters[i], 0)[0]), valuesOf(points[i]),
                                    tolerance);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, PassesThroughItsPoints) {
    for (const bool periodic : {false, true}) {
        for (const bool useChordLength : {false, true}) {
            for (std::size_t degree = 1; degree <= 5; ++degree) {
                for (const std::size_t count : {degree + 1, degree + 2, std::size_t{20}}) {
                    SCOPED_TRACE(testing::Message() << "periodic " << periodic << ", chord " << useChordLength
                                                    << ", degree " << degree << ", points " << count);
                    const Points points = makePoints(static_cast<unsigned>(count), count);
                    const Interpolation fit(points, degree, periodic, useChordLength);
                    ASSERT_EQ(fit.controlPoints.size(), count);
                    // The systems of these points lose up to four digits.
                    expectPassesThrough(*makeSpline(fit, degree, periodic), fit.parameters, points, 1e-10);
                }
            }
        }
    }
}

TEST(VrexInterpolatedSplineCalculator3D, ClosedCurveEndsWhereItBeganWithTheSameTangent) {
    const Points points = makePoints(3, 9);
    const Interpolation fit(points, 3, true, true);
    const auto spline = makeSpline(fit, 3, true);
    const auto [start, end] = spline->interval();
    EXPECT_EQ(*start, 3.0);
    EXPECT_EQ(*end, 12.0);
    const auto first = spline->evaluate(*start, 1);
    const auto last = spline->evaluate(*end - 1e-9, 1);
    nsVectorSamples::expectNear(valuesOf(last[0]), valuesOf(first[0]), 1e-7);
    nsVectorSamples::expectNear(valuesOf(last[1]), valuesOf(first[1]), 1e-6);
}

TEST(VrexInterpolatedSplineCalculator3D, ThreeCollinearPointsOfDegreeTwoAreTheirOwnControlPoints) {
    const Points points{{0.0, 0.0, 1.0}, {1.0, 2.0, 1.0}, {2.0, 4.0, 1.0}};
    const Interpolation fit(points, 2, false, true);
    EXPECT_EQ(fit.knots, (Numbers{0.0, 0.0, 0.0, 5.0, 5.0, 5.0}));
    expectNear(fit.parameters, {0.0, 2.5, 5.0}, 1e-15 * 8);
    ASSERT_EQ(fit.controlPoints.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        nsVectorSamples::expectNear(valuesOf(fit.controlPoints[i]), valuesOf(points[i]), 1e-14);
    }
}

/// Distances 3, 4, 12 and, back to the first point, 13.
const Points BOX{{0.0, 0.0, 0.0}, {3.0, 0.0, 0.0}, {3.0, 4.0, 0.0}, {3.0, 4.0, 12.0}};

TEST(VrexInterpolatedSplineCalculator3D, ParametersRunFromZeroToPointsPlusDegree) {
    expectNear(Interpolation(BOX, 2, false, true).parameters, {0.0, 3.0 / 19.0 * 6.0, 7.0 / 19.0 * 6.0, 6.0},
               1e-14);
    const double total = std::sqrt(3.0) + 2.0 + std::sqrt(12.0);
    expectNear(Interpolation(BOX, 2, false, false).parameters,
               {0.0, std::sqrt(3.0) / total * 6.0, (std::sqrt(3.0) + 2.0) / total * 6.0, 6.0}, 1e-14);
}

TEST(VrexInterpolatedSplineCalculator3D, ParametersOfAClosedCurveRunOnceRoundFromTheDegree) {
    expectNear(Interpolation(BOX, 2, true, true).parameters,
               {2.0, 2.0 + 3.0 / 32.0 * 4.0, 2.0 + 7.0 / 32.0 * 4.0, 2.0 + 19.0 / 32.0 * 4.0, 6.0}, 1e-14);
    const double total = std::sqrt(3.0) + 2.0 + std::sqrt(12.0) + std::sqrt(13.0);
    EXPECT_NEAR(Interpolation(BOX, 3, true, false).parameters[1], 3.0 + std::sqrt(3.0) / total * 4.0, 1e-14);
}

Points makeRectangle(double width, double height) {
    return {{0.0, 0.0, 0.0}, {width, 0.0, 0.0}, {width, height, 0.0}, {0.0, height, 0.0}};
}

TEST(VrexInterpolatedSplineCalculator3D, CentripetalRunDiffersFromTheChordLengthRunInTheLengthsOnly) {
    for (const bool periodic : {false, true}) {
        for (std::size_t degree = 1; degree <= 3; ++degree) {
            const Interpolation centripetal(makeRectangle(4.0, 25.0), degree, periodic, false);
            const Interpolation chord(makeRectangle(2.0, 5.0), degree, periodic, true);
            EXPECT_EQ(centripetal.parameters, chord.parameters);
            EXPECT_EQ(centripetal.knots, chord.knots);
        }
    }
}

TEST(VrexInterpolatedSplineCalculator3D, InnerKnotsOfAnOpenCurveAreMeansOfParameters) {
    for (std::size_t degree = 1; degree <= 5; ++degree) {
        const Interpolation fit(makePoints(4, 11), degree, false, false);
        Numbers expected(degree + 1, 0.0);
        for (std::size_t k = 0; k + degree + 1 < 11; ++k) {
            const auto first = fit.parameters.begin() + static_cast<std::ptrdiff_t>(k) + 1;
            expected.push_back(std::accumulate(first, first + static_cast<std::ptrdiff_t>(degree), 0.0) /
                               static_cast<double>(degree));
        }
        expected.insert(expected.end(), degree + 1, 11.0 + static_cast<double>(degree));
        expectNear(fit.knots, expected, 1e-12);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, KnotsOfAClosedCurveAreAtItsParametersOrInTheirMiddles) {
    for (std::size_t degree = 1; degree <= 5; ++degree) {
        const std::size_t n = 8;
        const Interpolation fit(makePoints(5, n), degree, true, true);
        const auto& u = fit.parameters;
        ASSERT_EQ(fit.knots.size(), n + 2 * degree + 1);
        EXPECT_EQ(fit.knots[degree], static_cast<double>(degree));
        EXPECT_EQ(fit.knots[n + degree], static_cast<double>(n + degree));
        for (std::size_t i = 1; i < n; ++i) {
            const double expected = degree % 2 != 0 ? u[i] : 0.5 * (u[i] + u[i + 1]);
            EXPECT_NEAR(fit.knots[degree + i], expected, 1e-12);
        }
        for (std::size_t i = 0; i + n < fit.knots.size(); ++i) {
            EXPECT_NEAR(fit.knots[i + n] - fit.knots[i], static_cast<double>(n), 1e-12);
        }
    }
}

TEST(VrexInterpolatedSplineCalculator3D, OldInnerKnotsAreScaledInsteadOfMade) {
    const Points points = makePoints(6, 6);
    const Interpolation fresh(points, 2, false, true);
    Numbers knots{16.0, 80.0};
    Points controlPoints;
    Numbers parameters;
    EXPECT_TRUE(Calculator::calculate(points, knots, controlPoints, parameters, 2, false, true));
    ASSERT_EQ(knots.size(), fresh.knots.size());
    // A new one is 8, the range, before it is scaled.
    EXPECT_NEAR(knots[3], 2.0 * fresh.knots[3], 1e-13);
    EXPECT_NEAR(knots[4], 10.0 * fresh.knots[4], 1e-13);
    EXPECT_EQ(knots[5], fresh.knots[5]);
}

TEST(VrexInterpolatedSplineCalculator3D, OldParametersAreOverwrittenAndControlPointsAppendedTo) {
    const Points points = makePoints(7, 5);
    const Interpolation fresh(points, 3, false, true);
    Numbers knots;
    Points controlPoints{{1.0, 2.0, 3.0}};
    Numbers parameters(20, 7.0);
    EXPECT_TRUE(Calculator::calculate(points, knots, controlPoints, parameters, 3, false, true));
    EXPECT_EQ(parameters, fresh.parameters);
    ASSERT_EQ(controlPoints.size(), 6U);
    EXPECT_EQ(valuesOf(controlPoints[0]), (nsVectorSamples::Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(controlPoints[5]), valuesOf(fresh.controlPoints[4]));
}

TEST(VrexInterpolatedSplineCalculator3D, EqualNeighboursHaveEqualParametersAndASolution) {
    Points points = makePoints(8, 7);
    points[3] = points[2];
    for (const bool useChordLength : {false, true}) {
        const Interpolation fit(points, 3, false, useChordLength);
        EXPECT_EQ(fit.parameters[2], fit.parameters[3]);
        ASSERT_EQ(fit.controlPoints.size(), 7U);
        expectPassesThrough(*makeSpline(fit, 3, false), fit.parameters, points, 1e-10);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, PointsThatAreAllEqualGiveKnotsThatAreNoNumbers) {
    for (const bool periodic : {false, true}) {
        const Interpolation fit(Points(6, {1.0, 2.0, 3.0}), 3, periodic, true);
        EXPECT_EQ(fit.parameters, Numbers(periodic ? 7 : 6, 0.0));
        EXPECT_FALSE(std::isfinite(fit.knots[4]));
        EXPECT_EQ(fit.controlPoints.size(), 6U);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, PointsThatAreNoNumbersEnd) {
    Points points = makePoints(9, 8);
    points[4] = {NAN_VALUE, 0.0, 0.0};
    for (const bool periodic : {false, true}) {
        EXPECT_EQ(Interpolation(points, 3, periodic, false).controlPoints.size(), 8U);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, NoMorePointsThanTheDegreeAreRefusedWithNothingChanged) {
    for (const bool periodic : {false, true}) {
        for (const std::size_t degree :
             {std::size_t{4}, std::size_t{5}, std::numeric_limits<std::size_t>::max()}) {
            for (const std::size_t count : {0U, 1U, 4U}) {
                Numbers knots{1.0};
                Points controlPoints{{1.0, 2.0, 3.0}};
                Numbers parameters{2.0};
                const LogCapture log(1);
                EXPECT_THROW(Calculator::calculate(makePoints(1, count), knots, controlPoints, parameters,
                                                   degree, periodic, true),
                             std::length_error);
                EXPECT_EQ(log.lines().size(), 1U);
                EXPECT_EQ(knots, Numbers{1.0});
                EXPECT_EQ(controlPoints.size(), 1U);
                EXPECT_EQ(parameters, Numbers{2.0});
            }
        }
    }
    Numbers knots;
    Points controlPoints;
    Numbers parameters;
    EXPECT_THROW(Calculator::calculate({}, knots, controlPoints, parameters, 0, false, true),
                 std::length_error);
}

TEST(VrexInterpolatedSplineCalculator3D, OnePointOfDegreeZeroIsItself) {
    for (const bool periodic : {false, true}) {
        const Interpolation fit({{1.0, 2.0, 3.0}}, 0, periodic, true);
        EXPECT_EQ(fit.knots, (Numbers{0.0, 1.0}));
        ASSERT_EQ(fit.controlPoints.size(), 1U);
        nsVectorSamples::expectNear(valuesOf(fit.controlPoints[0]), {1.0, 2.0, 3.0}, 1e-15);
    }
}

TEST(VrexInterpolatedSplineCalculator3D, DegreeFortyEnds) {
    Points points;
    for (int i = 0; i < 44; ++i) {
        points.emplace_back(std::cos(0.1 * i), std::sin(0.1 * i), 0.05 * i);
    }
    for (const bool periodic : {false, true}) {
        EXPECT_EQ(Interpolation(points, 40, periodic, true).controlPoints.size(), 44U);
    }
}

struct ParameterRow {
    const char* what;
    Numbers parameters;
    std::size_t degree;
    bool periodic;
    bool isValid;
};

TEST(VrexInterpolatedSplineCalculator3D, GivenParametersAreCheckedAgainstTheKnots) {
    const Numbers knots{0.0, 0.0, 0.0, 1.0, 2.0, 2.0, 2.0};
    const std::vector<ParameterRow> rows{
        {"exact", {0.0, 0.5, 1.5, 2.0}, 2, false, true},
        {"equal neighbours", {0.0, 1.0, 1.0, 2.0}, 2, false, true},
        {"no more than the degree", {0.0, 2.0}, 2, false, false},
        {"falling", {0.0, 1.5, 0.5, 2.0}, 2, false, false},
        {"not a number inside", {0.0, NAN_VALUE, 2.0}, 2, false, false},
        {"not a number first", {NAN_VALUE, 1.0, 2.0}, 2, false, false},
        {"not a number last", {0.0, 1.0, NAN_VALUE}, 2, false, false},
        {"late start", {0.1, 1.0, 2.0}, 2, false, false},
        {"early end", {0.0, 1.0, 1.9}, 2, false, false},
        {"too few knots when periodic", {0.0, 1.0, 2.0}, 2, true, false},
        {"degree one, periodic", {0.0, 1.0, 2.0}, 1, true, true},
        {"too few knots", {0.0, 0.5, 1.0, 2.0}, 3, false, false},
        {"none", {}, 0, false, false},
        {"huge degree", {0.0, 2.0}, std::numeric_limits<std::size_t>::max(), true, false},
    };
    for (const ParameterRow& row : rows) {
        const Numbers untouched{7.0};
        Numbers result = untouched;
        EXPECT_EQ(Calculator::calculateParameters(row.parameters, knots, row.degree, row.periodic, result),
                  row.isValid)
            << row.what;
        EXPECT_EQ(result, row.isValid ? row.parameters : untouched) << row.what;
    }
}

TEST(VrexInterpolatedSplineCalculator3D, GivenParametersMayBeTheResult) {
    Numbers parameters{0.0, 0.5, 1.0};
    EXPECT_TRUE(Calculator::calculateParameters(parameters, {0.0, 0.0, 1.0, 1.0}, 1, false, parameters));
    EXPECT_EQ(parameters, (Numbers{0.0, 0.5, 1.0}));
}

TEST(VrexInterpolatedSplineCalculator3D, ParametersOfAnInterpolationAreValid) {
    for (const bool periodic : {false, true}) {
        const Interpolation fit(makePoints(10, 12), 3, periodic, false);
        Numbers result;
        EXPECT_TRUE(Calculator::calculateParameters(fit.parameters, fit.knots, 3, periodic, result));
        EXPECT_EQ(result, fit.parameters);
    }
}

} // namespace
