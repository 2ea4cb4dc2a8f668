#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "solver/Mechanism.h"
#include "solver/VrexSolver3D.h"

namespace {

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

/// What the solver leaves of a length of 2, which is far less than what a value that stays behind is off.
constexpr double NEAR = 1e-8;

std::shared_ptr<VrexPoint3D> addFixed(Mechanism& system, double x) {
    auto point = system.add(VrexPoint3D::create(x, 0.0, 0.0));
    system.bind(VrexFixation3D::create(point, VrexFixation3DType::Complete3D));
    return point;
}

void solveLive(const Mechanism& system) {
    EXPECT_TRUE(VrexSolver3D().solve(system.geometries, system.constraints).isConverged());
}

TEST(VrexSolverCopy, WhatDimensionsShareComesBackToLiveObjects) {
    Mechanism system;
    const auto first = addFixed(system, 0.0);
    const auto second = addFixed(system, 2.0);
    const auto third = system.add(VrexPoint3D::create(3.0, 0.0, 0.0));
    const auto element = system.add(VrexEqualDimensionElement3D::create(1.0));
    const auto held = system.bind(VrexDistance3D::create(first, second, 1.0, WHOLE, WHOLE));
    const auto free = system.bind(VrexDistance3D::create(second, third, 1.0, WHOLE, WHOLE));
    system.bind(VrexEqualDimension3D::create({held, free}, element));
    solveLive(system);
    EXPECT_NEAR(element->getValue(), 2.0, NEAR);
    EXPECT_NEAR(held->value(), 2.0, NEAR);
    EXPECT_NEAR(free->value(), 2.0, NEAR);
    EXPECT_NEAR(third->getPosition().x(), 4.0, NEAR);
}

TEST(VrexSolverCopy, LiveShapesKeepNamingWhatTheyDependOn) {
    Mechanism system;
    const auto fixed = addFixed(system, 0.0);
    const auto point = system.add(VrexPoint3D::create(1.0, 0.0, 0.0));
    system.bind(VrexDistance3D::create(fixed, point, 3.0, WHOLE, WHOLE));
    const std::vector<VrexVariableDescriptor> descriptors{{point, VrexPoint3D::X, "q"}};
    const auto one = VrexQuaternionT<double>::ONE();
    const auto curve =
        system.add(VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, one, descriptors, "t * q", "0", "0"));
    const auto surface =
        system.add(VrexEvaluatedSurface3D::create({0.0, 0.0, 0.0}, one, descriptors, "u * q", "v", "0"));
    solveLive(system);
    EXPECT_EQ(curve->descriptors().at(0).object(), point);
    EXPECT_EQ(surface->descriptors().at(0).object(), point);
    EXPECT_NEAR(point->getPosition().x(), 3.0, NEAR);
    EXPECT_NEAR(curve->evaluate(1.0, 0).at(0).x(), 3.0, NEAR);
}

} // namespace
