#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "support/DeBoor.h"
#include "support/ExpectDerivativesMatch.h"
#include "support/LogCapture.h"
#include "support/SplineSamples.h"
#include "support/VectorSamples.h"

namespace {

using nsSplineSamples::Maker;
using nsVectorSamples::valuesOf;
using Sample = VrexSurfaceSample<VrexVector3DT<double>>;
using Vector = VrexVector3DT<double>;

constexpr double ROUNDING = 1e-12;
const nsVectorSamples::Values3 NOTHING{0.0, 0.0, 0.0};

void expectNear(const Vector& actual, const Vector& expected, double tolerance) {
    nsVectorSamples::expectNear(valuesOf(actual), valuesOf(expected), tolerance);
}

std::shared_ptr<VrexNURBSSurface3D> makeBilinear(const Vector& a, const Vector& b, const Vector& c,
                                                 const Vector& d) {
    const auto controlPoint = [](const Vector& v) {
        return VrexSpline3D::ControlPoint{VrexPoint3D::create(v.x(), v.y(), v.z()), 1.0};
    };
    return VrexNURBSSurface3D::create(
        {1,
         1,
         {0.0, 0.0, 1.0, 1.0},
         {0.0, 0.0, 1.0, 1.0},
         {{controlPoint(a), controlPoint(b)}, {controlPoint(c), controlPoint(d)}}});
}

void setWeights(VrexNURBSSurface3D& surface, double weight) {
    for (auto& row : surface.controlPoints()) {
        for (auto& controlPoint : row) {
            controlPoint.weight = weight;
        }
    }
}

TEST(VrexNURBSSurfaceCalculator3D, IsTheCalculatorOfANurbsSurface) {
    const auto surface = Maker(1).surface(1, 1, 2, 2);
    const auto calculator = VrexParametricSurfaceCalculator3D::create(*surface);
    EXPECT_NE(dynamic_cast<const VrexNURBSSurfaceCalculator3D*>(calculator.get()), nullptr);
}

TEST(VrexNURBSSurfaceCalculator3D, PointsAgreeWithDeBoorsAlgorithm) {
    Maker maker(2);
    for (int uDegree = 0; uDegree <= 5; ++uDegree) {
        for (int vDegree = 0; vDegree <= 5; ++vDegree) {
            const auto surface = maker.surface(uDegree, vDegree, 7, 8);
            VrexNURBSSurfaceCalculator3D calculator(*surface);
            for (int i = 0; i < 10; ++i) {
                const double u = maker.inside(surface->intervalU());
                const double v = maker.inside(surface->intervalV());
                expectNear(calculator.calculate(u, v, 2)[0], nsDeBoor::evaluate(*surface, u, v), ROUNDING);
            }
        }
    }
}

/// An element of the grid, as a function of u and v.
Vector elementAt(const VrexNURBSSurface3D& surface, std::size_t element, double u, double v) {
    return VrexNURBSSurfaceCalculator3D(surface).calculate(u, v, 2)[element];
}

TEST(VrexNURBSSurfaceCalculator3D, PartialsAgreeWithCentralDifferences) {
    Maker maker(3);
    const double step = 1e-4;
    for (int degree = 1; degree <= 4; ++degree) {
        const auto surface = maker.surface(degree, 5 - degree, 6, 7);
        // In the middle of spans, since derivatives may jump at knots.
        const auto p = static_cast<std::size_t>(surface->uDegree());
        const auto q = static_cast<std::size_t>(surface->vDegree());
        const double u = 0.5 * (surface->uKnots()[p + 1] + surface->uKnots()[p + 2]);
        const double v = 0.5 * (surface->vKnots()[q + 1] + surface->vKnots()[q + 2]);
        const Sample sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(u, v, 2);
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                if (i > 0) {
                    const auto slope = (elementAt(*surface, 3 * (i - 1) + j, u + step, v) -
                                        elementAt(*surface, 3 * (i - 1) + j, u - step, v)) /
                                       (2.0 * step);
                    expectNear(sample[3 * i + j], slope, 1e-4 * (1.0 + slope.magnitude()));
                }
                if (j > 0) {
                    const auto slope = (elementAt(*surface, 3 * i + j - 1, u, v + step) -
                                        elementAt(*surface, 3 * i + j - 1, u, v - step)) /
                                       (2.0 * step);
                    expectNear(sample[3 * i + j], slope, 1e-4 * (1.0 + slope.magnitude()));
                }
            }
        }
    }
}

TEST(VrexNURBSSurfaceCalculator3D, QuarterOfACylinderLiesOnIt) {
    const double half = std::sqrt(0.5);
    const auto row = [half](double z) {
        return std::vector<VrexSpline3D::ControlPoint>{{VrexPoint3D::create(1.0, 0.0, z), 1.0},
                                                       {VrexPoint3D::create(1.0, 1.0, z), half},
                                                       {VrexPoint3D::create(0.0, 1.0, z), 1.0}};
    };
    const auto surface = VrexNURBSSurface3D::create(
        {1, 2, {0.0, 0.0, 1.0, 1.0}, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0}, {row(0.0), row(4.0)}});
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    for (int i = 0; i <= 10; ++i) {
        for (int j = 0; j <= 10; ++j) {
            const Sample sample = calculator.calculate(0.1 * i, 0.1 * j, 2);
            EXPECT_NEAR(std::hypot(sample[0].x(), sample[0].y()), 1.0, 1e-15 * 8);
            EXPECT_NEAR(sample[0].z(), 0.4 * i, ROUNDING);
            expectNear(sample[3], {0.0, 0.0, 4.0}, ROUNDING);
            expectNear(sample[4], {0.0, 0.0, 0.0}, ROUNDING);
            EXPECT_NEAR(sample[1].x() * sample[0].x() + sample[1].y() * sample[0].y(), 0.0, ROUNDING);
            const Vector normal = calculator.calculateNormal(0.1 * i, 0.1 * j);
            EXPECT_NEAR(normal.x() * sample[0].y() - normal.y() * sample[0].x(), 0.0, ROUNDING);
        }
    }
}

TEST(VrexNURBSSurfaceCalculator3D, EndOfTheURangeIsTheEdge) {
    const auto surface = Maker(4).surface(3, 2, 6, 5);
    surface->uKnots() = {0.0, 0.0, 0.0, 0.0, 0.5, 0.75, 1.0, 1.0, 1.0, 1.0};
    for (auto& controlPoint : surface->controlPoints().back()) {
        controlPoint.point->setZ(8.0);
    }
    const double v = Maker(5).inside(surface->intervalV());
    const Sample sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(1.0, v, 1);
    EXPECT_NEAR(sample[0].z(), 8.0, ROUNDING);
    const auto edge =
        VrexSpline3D::create({surface->vDegree(), false, surface->vKnots(), surface->controlPoints().back()});
    expectNear(sample[0], nsDeBoor::evaluate(*edge, v), ROUNDING);
    expectNear(sample[1], edge->evaluate(v, 1)[1], ROUNDING * 10);
}

TEST(VrexNURBSSurfaceCalculator3D, SecondDerivativeInADirectionOfDegreeOneIsZeroAndTheMixedOneIsNot) {
    const auto surface = Maker(6).surface(1, 2, 3, 4);
    setWeights(*surface, 1.0);
    const Sample sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(-0.9, -0.9, 2);
    EXPECT_EQ(valuesOf(sample[6]), NOTHING);
    EXPECT_GT(sample[4].magnitude(), 0.0);
    EXPECT_GT(sample[2].magnitude(), 0.0);
}

TEST(VrexNURBSSurfaceCalculator3D, EqualWeightsOfAnySizeGiveThePlainSurface) {
    const auto surface = Maker(7).surface(3, 2, 5, 6);
    setWeights(*surface, 1.0);
    const double u = Maker(8).inside(surface->intervalU());
    const double v = Maker(9).inside(surface->intervalV());
    const Sample plain = VrexNURBSSurfaceCalculator3D(*surface).calculate(u, v, 2);
    // Of degree 2 in v, whose knots are apart: one span is a parabola, derived by its three values.
    const double h = 1e-3;
    const auto middle = nsDeBoor::evaluate(*surface, u, v);
    const auto second =
        (nsDeBoor::evaluate(*surface, u, v + h) + nsDeBoor::evaluate(*surface, u, v - h) - middle * 2.0) /
        (h * h);
    expectNear(plain[2], second, 1e-6 * (1.0 + second.magnitude()));
    setWeights(*surface, 4.0);
    const Sample scaled = VrexNURBSSurfaceCalculator3D(*surface).calculate(u, v, 2);
    for (std::size_t i = 0; i < Sample::SIZE; ++i) {
        expectNear(scaled[i], plain[i], 1e-11 * (1.0 + plain[i].magnitude()));
    }
}

TEST(VrexNURBSSurfaceCalculator3D, MixedDerivativeOfABilinearPatchIsTheTwistOfItsCorners) {
    const Vector a(0.0, 0.0, 0.0);
    const Vector b(0.0, 1.0, 2.0);
    const Vector c(1.0, 0.0, 3.0);
    const Vector d(1.5, 1.0, -4.0);
    const auto surface = makeBilinear(a, b, c, d);
    for (const double u : {0.0, 0.25, 1.0}) {
        const Sample sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(u, 0.75, 1);
        expectNear(sample[4], d - c - b + a, ROUNDING);
    }
}

TEST(VrexNURBSSurfaceCalculator3D, OrderDecidesWhatIsFilled) {
    const auto surface = Maker(10).surface(3, 3, 5, 5);
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    const Sample full = calculator.calculate(-0.8, -0.8, 2);
    const Sample first = calculator.calculate(-0.8, -0.8, 1);
    const Sample point = calculator.calculate(-0.8, -0.8, 0);
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            EXPECT_GT(full[3 * i + j].magnitude(), 0.0);
            EXPECT_EQ(valuesOf(first[3 * i + j]), i < 2 && j < 2 ? valuesOf(full[3 * i + j]) : NOTHING);
            EXPECT_EQ(valuesOf(point[3 * i + j]), i + j == 0 ? valuesOf(full[0]) : NOTHING);
        }
    }
}

TEST(VrexNURBSSurfaceCalculator3D, NegativeOrderFillsNothingAndAHigherOneIsTheSecond) {
    const auto surface = Maker(11).surface(2, 2, 3, 3);
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    const auto parameters = nsSplineSamples::variablesOf(nsSplineSamples::coordinatesOf(*surface));
    for (const int order : {-1, std::numeric_limits<int>::min()}) {
        for (const auto& element : calculator.calculate(-0.8, -0.8, order)) {
            EXPECT_EQ(valuesOf(element), NOTHING);
        }
        EXPECT_TRUE(calculator.calculate(parameters, -0.8, -0.8, order)[0].x().derivatives().empty());
    }
    const Sample second = calculator.calculate(-0.8, -0.8, 2);
    for (const int order : {3, std::numeric_limits<int>::max()}) {
        const Sample higher = calculator.calculate(-0.8, -0.8, order);
        const auto differentiable = calculator.calculate(parameters, -0.8, -0.8, order);
        for (std::size_t i = 0; i < Sample::SIZE; ++i) {
            EXPECT_EQ(valuesOf(higher[i]), valuesOf(second[i]));
            EXPECT_EQ(valuesOf(differentiable[i]), valuesOf(second[i]));
        }
    }
}

/// Evaluates in both scalars.
void expectBroken(const VrexNURBSSurface3D& surface, double u, double v) {
    const LogCapture log(1);
    VrexNURBSSurfaceCalculator3D calculator(surface);
    EXPECT_THROW(calculator.calculate(u, v, 1), std::invalid_argument);
    const std::vector<VrexVariable> parameters(300, VrexVariable(1.0));
    EXPECT_THROW(calculator.calculate(parameters, u, v, 1), std::invalid_argument);
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST(VrexNURBSSurfaceCalculator3D, DegreesThatTheKnotsDoNotFitThrow) {
    const auto surface = Maker(12).surface(2, 2, 3, 3);
    for (const int degree : {3, 40, std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()}) {
        surface->uDegree() = degree;
        expectBroken(*surface, -0.5, -0.5);
        surface->uDegree() = 2;
        surface->vDegree() = degree;
        expectBroken(*surface, -0.5, -0.5);
        surface->vDegree() = 2;
    }
    surface->vKnots().clear();
    expectBroken(*surface, -0.5, -0.5);
}

TEST(VrexNURBSSurfaceCalculator3D, MissingOrNullControlPointThrowsWhereItIsNeeded) {
    const auto surface = Maker(13).surface(1, 1, 4, 4);
    const double uEnd = *surface->intervalU().second;
    const double vEnd = *surface->intervalV().second;
    surface->controlPoints()[3].pop_back();
    expectBroken(*surface, uEnd, vEnd);
    EXPECT_NO_THROW(VrexNURBSSurfaceCalculator3D(*surface).calculate(-1.0, -1.0, 2));
    surface->controlPoints()[3].push_back({nullptr, 1.0});
    expectBroken(*surface, uEnd, vEnd);
    surface->controlPoints().pop_back();
    expectBroken(*surface, uEnd, -1.0);
    surface->controlPoints().clear();
    expectBroken(*surface, -1.0, -1.0);
}

TEST(VrexNURBSSurfaceCalculator3D, WhatStandsBehindTheFirstRowsLengthIsMissing) {
    Maker maker(13);
    const auto surface = maker.surface(1, 1, 3, 3);
    const double uEnd = *surface->intervalU().second;
    const double vEnd = *surface->intervalV().second;
    surface->controlPoints()[0].pop_back();
    // The last row and column are there, but no parameters are theirs.
    const LogCapture log(1);
    VrexNURBSSurfaceCalculator3D calculator(*surface);
    EXPECT_THROW(calculator.calculate(uEnd, vEnd, 1), std::invalid_argument);
    const std::vector<VrexVariable> parameters(3 * 3 * 2, VrexVariable(1.0));
    EXPECT_THROW(calculator.calculate(parameters, uEnd, vEnd, 1), std::invalid_argument);
    EXPECT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(calculator.calculate(parameters, uEnd, -1.0, 0)[0].x().value(), 1.0);
}

TEST(VrexNURBSSurfaceCalculator3D, ZeroWeightsGiveNoNumbers) {
    const auto surface = Maker(14).surface(1, 1, 2, 2);
    setWeights(*surface, 0.0);
    EXPECT_TRUE(std::isnan(VrexNURBSSurfaceCalculator3D(*surface).calculate(-0.9, -0.9, 0)[0].x()));
}

TEST(VrexNURBSSurfaceCalculator3D, NotANumberGivesNoNumbers) {
    const auto surface = Maker(15).surface(2, 2, 4, 4);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Sample sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(nan, -0.9, 2);
    EXPECT_TRUE(std::isnan(sample[0].x()));
    EXPECT_TRUE(std::isnan(sample[8].z()));
}

TEST(VrexNURBSSurfaceCalculator3D, DegreeFortyEnds) {
    Maker maker(16);
    const auto surface = maker.surface(40, 2, 45, 4);
    const double u = maker.inside(surface->intervalU());
    const double v = maker.inside(surface->intervalV());
    expectNear(VrexNURBSSurfaceCalculator3D(*surface).calculate(u, v, 2)[0],
               nsDeBoor::evaluate(*surface, u, v), 1e-9);
}

/// A component of an element of the grid, as a function of all coordinates, then u and v.
struct Component {
    VrexNURBSSurface3D& surface;
    std::size_t element;
    int component;

    double operator()(const std::vector<double>& inputs) const {
        auto input = inputs.begin();
        for (const auto& row : surface.controlPoints()) {
            for (const auto& controlPoint : row) {
                controlPoint.point->assign(input[0], input[1], input[2]);
                input += 3;
            }
        }
        return surface.evaluate(input[0], input[1], 2)[element][component];
    }
    VrexVariable operator()(const std::vector<VrexVariable>& inputs) const {
        const std::vector<VrexVariable> parameters(inputs.begin(), inputs.end() - 2);
        return surface.evaluate(parameters, inputs.end()[-2], inputs.end()[-1], 2)[element][component];
    }
};

TEST(VrexNURBSSurfaceCalculator3D, DifferentiableResultsAgreeWithFiniteDifferencesInAllInputs) {
    const auto surface = Maker(17).surface(2, 3, 4, 5);
    auto inputs = nsSplineSamples::coordinatesOf(*surface);
    inputs.push_back(0.5 * (surface->uKnots()[3] + surface->uKnots()[4]));
    inputs.push_back(0.5 * (surface->vKnots()[3] + surface->vKnots()[4]));
    for (const std::size_t element : {0U, 1U, 3U, 4U, 2U, 6U}) {
        for (int component = 0; component < 3; ++component) {
            expectDerivativesMatch(Component{*surface, element, component}, inputs, 1e-5);
        }
    }
}

TEST(VrexNURBSSurfaceCalculator3D, ParametersMayDependOnManyVariablesWithAnyDerivative) {
    const auto surface = makeBilinear({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 1.0});
    const auto parameters = nsSplineSamples::variablesOf(nsSplineSamples::coordinatesOf(*surface));
    VrexVariable u(0.5);
    u.derivatives().set(100, 2.0);
    u.derivatives().set(101, -3.0);
    // z = u v, so dz/du = v.
    const auto sample =
        VrexNURBSSurfaceCalculator3D(*surface).calculate(parameters, u, VrexVariable(0.25), 1);
    EXPECT_DOUBLE_EQ(sample[0].z().derivatives()[100], 2.0 * 0.25);
    EXPECT_DOUBLE_EQ(sample[0].z().derivatives()[101], -3.0 * 0.25);
    EXPECT_DOUBLE_EQ(sample[1].z().derivatives()[100], 2.0);
}

TEST(VrexNURBSSurfaceCalculator3D, ParametersThatAreNotTouchedAreNotListed) {
    const auto surface = Maker(18).surface(1, 1, 4, 4);
    const auto parameters = nsSplineSamples::variablesOf(nsSplineSamples::coordinatesOf(*surface));
    const auto sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(parameters, -0.9, -0.9, 1);
    EXPECT_EQ(sample[0].x().derivatives().size(), 4U);
}

TEST(VrexNURBSSurfaceCalculator3D, ReadsTheParametersRowByRowAndNotThePoints) {
    const auto surface = makeBilinear({9.0, 9.0, 9.0}, {9.0, 9.0, 9.0}, {9.0, 9.0, 9.0}, {9.0, 9.0, 9.0});
    const std::vector<double> coordinates{0, 0, 0, 0, 1, 0, 1, 0, 0, 1, 1, 1};
    const std::vector<VrexVariable> parameters(coordinates.begin(), coordinates.end());
    const auto sample = VrexNURBSSurfaceCalculator3D(*surface).calculate(parameters, 0.25, 0.75, 0);
    expectNear({sample[0].x().value(), sample[0].y().value(), sample[0].z().value()}, {0.25, 0.75, 0.1875},
               ROUNDING);
}

TEST(VrexNURBSSurfaceCalculator3D, TooFewParametersThrow) {
    const auto surface = Maker(19).surface(1, 1, 2, 2);
    const std::vector<VrexVariable> parameters(11, VrexVariable(1.0));
    EXPECT_THROW(VrexNURBSSurfaceCalculator3D(*surface).calculate(parameters, 0.0, 0.0, 0),
                 std::invalid_argument);
}

} // namespace
