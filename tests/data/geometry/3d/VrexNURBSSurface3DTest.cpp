#include "data/geometry/3d/VrexNURBSSurface3D.h"

#include <limits>

#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "support/ProbeObject.h"
#include "support/SplineSamples.h"

namespace {

using nsSplineSamples::Maker;
using Interval = std::pair<std::optional<double>, std::optional<double>>;

TEST(VrexNURBSSurface3D, HasThreeFreedomsAndThreeUnreadParametersAControlPoint) {
    const auto surface = Maker(1).surface(1, 2, 3, 4);
    EXPECT_EQ(surface->type(), VrexGeometry3DType::NURBS_SURFACE);
    EXPECT_TRUE(surface->isParametricSurface());
    EXPECT_EQ(surface->dof(), 36);
    EXPECT_TRUE(surface->isEqualParameters(*ProbeObject::create(36)));
}

TEST(VrexNURBSSurface3D, CreatedSurfaceHoldsItsOptions) {
    const std::vector<double> uKnots{0.0, 0.0, 1.0, 1.0};
    const std::vector<double> vKnots{0.0, 0.0, 0.0, 1.0, 1.0, 1.0};
    const std::vector<std::vector<VrexSpline3D::ControlPoint>> net{Maker(1).controlPoints(3),
                                                                   Maker(2).controlPoints(3)};
    const auto surface = VrexNURBSSurface3D::create({1, 2, uKnots, vKnots, net});
    EXPECT_EQ(surface->uDegree(), 1);
    EXPECT_EQ(surface->vDegree(), 2);
    EXPECT_EQ(surface->uKnots(), uKnots);
    EXPECT_EQ(surface->vKnots(), vKnots);
    ASSERT_EQ(surface->controlPoints().size(), 2U);
    EXPECT_EQ(surface->controlPoints()[1][2].point, net[1][2].point);
    EXPECT_EQ(surface->controlPoints()[1][2].weight, net[1][2].weight);
}

TEST(VrexNURBSSurface3D, EmptyNetHasNoFreedom) {
    const auto surface = VrexNURBSSurface3D::create({1, 1, {}, {}, {}});
    EXPECT_EQ(surface->dof(), 0);
    EXPECT_TRUE(surface->getGeometries().empty());
    surface->controlPoints().resize(3);
    EXPECT_EQ(surface->dof(), 0);
}

TEST(VrexNURBSSurface3D, GeometriesAreThePointsRowByRowWithoutNulls) {
    const auto surface = Maker(3).surface(1, 1, 2, 3);
    std::vector<std::shared_ptr<VrexBaseGeometry>> expected;
    for (const auto& row : surface->controlPoints()) {
        for (const auto& controlPoint : row) {
            expected.push_back(controlPoint.point);
        }
    }
    EXPECT_EQ(surface->getGeometries(), expected);
    EXPECT_TRUE(surface->getVariables().empty());
    surface->controlPoints()[0][1].point = nullptr;
    expected.erase(expected.begin() + 1);
    EXPECT_EQ(surface->getGeometries(), expected);
}

TEST(VrexNURBSSurface3D, IntervalsAreBetweenTheKnotsAtTheDegreesUnlessTrimmed) {
    const auto surface = Maker(4).surface(1, 2, 3, 4);
    surface->uKnots() = {0.0, 1.0, 2.0, 3.0, 4.0};
    surface->vKnots() = {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    EXPECT_EQ(surface->intervalU(), Interval(1.0, 3.0));
    EXPECT_EQ(surface->intervalV(), Interval(2.0, 4.0));
    surface->startU() = 1.5;
    surface->endV() = 3.5;
    EXPECT_EQ(surface->intervalU(), Interval(1.5, 3.0));
    EXPECT_EQ(surface->intervalV(), Interval(2.0, 3.5));
    surface->endU() = 2.5;
    surface->startV() = 2.25;
    EXPECT_EQ(surface->intervalU(), Interval(1.5, 2.5));
    EXPECT_EQ(surface->intervalV(), Interval(2.25, 3.5));
    surface->uKnots().clear();
    surface->vKnots().clear();
    EXPECT_EQ(surface->intervalU(), Interval(0.0, 0.0));
    EXPECT_EQ(surface->intervalV(), Interval(0.0, 0.0));
}

TEST(VrexNURBSSurface3D, IntervalsTakeZeroForAnEndWhoseKnotDoesNotExist) {
    const auto surface = Maker(4).surface(1, 1, 2, 2);
    surface->uKnots() = {7.0, 8.0};
    for (const int degree : {2, std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::min()}) {
        surface->uDegree() = degree;
        EXPECT_EQ(surface->intervalU().first, 0.0) << degree;
    }
}

TEST(VrexNURBSSurface3D, WithoutBackupOrUntouchedItIsUnchanged) {
    const auto surface = Maker(5).surface(1, 2, 3, 4);
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
    surface->backup();
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
}

TEST(VrexNURBSSurface3D, AnotherDegreeOrCountIsAChange) {
    const auto expectChange = [](void (*change)(VrexNURBSSurface3D&)) {
        const auto surface = Maker(6).surface(1, 2, 3, 4);
        surface->backup();
        change(*surface);
        EXPECT_TRUE(surface->checkChanged(1e10, 0.0));
        surface->restore();
        EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
    };
    expectChange([](VrexNURBSSurface3D& surface) { surface.uDegree() = 2; });
    expectChange([](VrexNURBSSurface3D& surface) { surface.vDegree() = 1; });
    expectChange([](VrexNURBSSurface3D& surface) { surface.uKnots().pop_back(); });
    expectChange([](VrexNURBSSurface3D& surface) { surface.vKnots().push_back(9.0); });
    expectChange([](VrexNURBSSurface3D& surface) { surface.controlPoints().pop_back(); });
    expectChange([](VrexNURBSSurface3D& surface) {
        surface.controlPoints()[0].push_back(surface.controlPoints()[0][0]);
    });
    expectChange([](VrexNURBSSurface3D& surface) { surface.controlPoints().clear(); });
}

TEST(VrexNURBSSurface3D, AKnotIsChangedBeyondTheTolerance) {
    const auto surface = Maker(7).surface(1, 1, 3, 3);
    surface->backup();
    surface->vKnots()[2] += 0.25;
    EXPECT_FALSE(surface->checkChanged(0.5, 0.0));
    EXPECT_TRUE(surface->checkChanged(0.125, 0.0));
    surface->restore();
    surface->backup();
    surface->uKnots()[2] -= 0.25;
    EXPECT_FALSE(surface->checkChanged(0.5, 0.0));
    EXPECT_TRUE(surface->checkChanged(0.125, 0.0));
}

TEST(VrexNURBSSurface3D, AWeightIsChangedByMoreThanTheRoundingOfOne) {
    const auto surface = Maker(8).surface(1, 1, 2, 2);
    double& weight = surface->controlPoints()[1][0].weight;
    weight = 0.5;
    surface->backup();
    weight = 0.5 + 2.220446049250313e-16;
    EXPECT_FALSE(surface->checkChanged(1.0, 0.0));
    weight = 0.5 + 2.0 * 2.220446049250313e-16;
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0));
    weight = 0.5 - 1e-13;
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0)) << "which would be none for a spline";
}

TEST(VrexNURBSSurface3D, AnotherPointObjectOrAChangedPointIsAChange) {
    const auto surface = Maker(9).surface(1, 1, 2, 2);
    surface->backup();
    auto& point = surface->controlPoints()[1][1].point;
    point->assign(9.0, 9.0, 9.0);
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
    point->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0));
    point->setChangeStatus(VrexGeometryChangeStatus::NotChanged);
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
    point = VrexPoint3D::create(9.0, 9.0, 9.0);
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0));
    point = nullptr;
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0));
}

TEST(VrexNURBSSurface3D, ARowShorterThanTheFirstIsAChange) {
    const auto surface = Maker(10).surface(1, 1, 3, 3);
    surface->backup();
    surface->controlPoints()[2].pop_back();
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0));
    surface->backup();
    EXPECT_TRUE(surface->checkChanged(1.0, 0.0)) << "in the snapshot too";
}

TEST(VrexNURBSSurface3D, WhatStandsBehindTheFirstRowsLengthIsNotCompared) {
    const auto surface = Maker(10).surface(1, 1, 3, 3);
    surface->backup();
    surface->controlPoints()[2].push_back(Maker(11).controlPoint());
    EXPECT_FALSE(surface->checkChanged(1.0, 0.0));
}

TEST(VrexNURBSSurface3D, UpdateKeepsTheOwnNetAndTakesTheRest) {
    const auto surface = Maker(12).surface(1, 1, 2, 2);
    const auto net = surface->controlPoints();
    const auto other = Maker(13).surface(2, 3, 5, 6);
    other->endV() = 0.5;
    surface->updateFrom(other);
    EXPECT_EQ(surface->uDegree(), 2);
    EXPECT_EQ(surface->vDegree(), 3);
    EXPECT_EQ(surface->uKnots(), other->uKnots());
    EXPECT_EQ(surface->vKnots(), other->vKnots());
    EXPECT_EQ(surface->endV(), 0.5);
    ASSERT_EQ(surface->controlPoints().size(), 2U);
    EXPECT_EQ(surface->controlPoints()[1][0].point, net[1][0].point);
    EXPECT_EQ(surface->controlPoints()[1][0].weight, net[1][0].weight);
    EXPECT_EQ(other->controlPoints().size(), 5U);
}

} // namespace
