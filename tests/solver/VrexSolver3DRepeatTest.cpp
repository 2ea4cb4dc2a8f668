#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "solver/ComponentBytes.h"
#include "solver/FourBar.h"
#include "solver/JacobianChecks.h"
#include "solver/PlantedFreedoms.h"
#include "solver/PlantedTheorems.h"
#include "solver/VrexSolver3D.h"

namespace {

/// Systems that can be solved, away from where they are.
std::vector<Mechanism> makeSystems() {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    std::vector<Mechanism> result{linkage, FourBar(0.7)};
    for (const auto* const cases : {&nsPlantedTheorems::CASES[2], &nsPlantedTheorems::CASES[5],
                                    &nsPlantedFreedoms::CASES[0], &nsPlantedFreedoms::CASES[6]}) {
        PlantedSystem system;
        cases->plant(system);
        result.push_back(system);
    }
    for (const Mechanism& system : result) {
        disturb(system.geometries, system.constraints, 0.01, 7);
    }
    return result;
}

TEST(VrexSolver3DRepeat, SameSystemGivesTheSameBits) {
    const std::vector<Mechanism> first = makeSystems();
    const std::vector<Mechanism> second = makeSystems();
    for (std::size_t i = 0; i < first.size(); ++i) {
        SCOPED_TRACE(i);
        const auto component = first[i].component();
        const auto twin = second[i].component();
        const std::string start = bytesOf(component);
        ASSERT_TRUE(start == bytesOf(twin));
        ASSERT_TRUE(VrexSolver3D().solve({component}).isConverged());
        ASSERT_TRUE(VrexSolver3D().solve({twin}).isConverged());
        EXPECT_FALSE(bytesOf(component) == start);
        EXPECT_TRUE(bytesOf(component) == bytesOf(twin));
    }
}

TEST(VrexSolver3DRepeat, SolvingASolvedSystemChangesNothing) {
    const std::vector<Mechanism> systems = makeSystems();
    for (std::size_t i = 0; i < systems.size(); ++i) {
        SCOPED_TRACE(i);
        const auto component = systems[i].component();
        ASSERT_TRUE(VrexSolver3D().solve({component}).isConverged());
        const std::string solved = bytesOf(component);
        const VrexSolverReport again = VrexSolver3D().solve({component});
        EXPECT_TRUE(again.isConverged());
        EXPECT_EQ(again.components.at(0).iterations, 0);
        EXPECT_TRUE(bytesOf(component) == solved);
    }
}

TEST(VrexSolver3DRepeat, SolvingSolvedLiveObjectsChangesNothing) {
    const std::vector<Mechanism> systems = makeSystems();
    for (std::size_t i = 0; i < systems.size(); ++i) {
        SCOPED_TRACE(i);
        const Mechanism& system = systems[i];
        ASSERT_TRUE(VrexSolver3D().solve(system.geometries, system.constraints).isConverged());
        const std::string solved = bytesOf(system.component());
        ASSERT_TRUE(VrexSolver3D().solve(system.geometries, system.constraints).isConverged());
        EXPECT_TRUE(bytesOf(system.component()) == solved);
    }
}

/// A point on a sphere about the origin that an equation pulls further than it gets.
struct Leash : PlantedSystem {
    Leash() : p(point(0.1, 0.6, -0.7)) {
        distance(fixed(point(0, 0, 0)), p, 1.0);
        bind(VrexExpressionEquation::create({{p, VrexPoint3D::X, "x"}, {p, VrexPoint3D::Y, "y"}},
                                            VrexEquationConditionType::dragTowardsZero, "x + 2 * y - 7"));
    }
    Point p;
};

TEST(VrexSolver3DRepeat, WishThatCannotBeMetMovesNothingTheSecondTime) {
    const Leash leash;
    const auto component = leash.component();
    ASSERT_TRUE(VrexSolver3D().solve({component}).isConverged());
    // Where x + 2 y is largest, but for what the pull against the distance costs.
    EXPECT_NEAR(leash.p->getPosition().x(), 1.0 / std::sqrt(5.0), 1e-3);
    EXPECT_NEAR(leash.p->getPosition().y(), 2.0 / std::sqrt(5.0), 1e-3);
    const std::string solved = bytesOf(component);
    for (int again = 0; again < 3; ++again) {
        ASSERT_TRUE(VrexSolver3D().solve({component}).isConverged());
        EXPECT_TRUE(bytesOf(component) == solved) << again;
    }
}

TEST(VrexSolver3DRepeat, DragAgainstALimitMovesNothingTheSecondTime) {
    FourBar linkage(0.8);
    linkage.input->getAngle().limits = {-0.25, 0.4};
    VrexTransform3D drag;
    const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(1.0, {0.0, 0.0, 1.0}, 1e-12);
    ASSERT_TRUE(drag.applyTransformation(linkage.crank, VrexTransformMatrix3D::makeFromQuaternion(turn)));
    const auto component = linkage.component();
    ASSERT_TRUE(VrexSolver3D().solve({component}, &drag).isConverged());
    const std::string solved = bytesOf(component);
    for (int again = 0; again < 3; ++again) {
        ASSERT_TRUE(VrexSolver3D().solve({component}, &drag).isConverged());
        EXPECT_TRUE(bytesOf(component) == solved) << again;
    }
}

TEST(VrexSolver3DRepeat, WishDoesNotCostASolution) {
    FourBar linkage(0.8);
    const auto component = linkage.component();
    ASSERT_TRUE(VrexSolver3D().solve({component}).isConverged());
    const std::string solved = bytesOf(component);
    VrexTransform3D drag;
    ASSERT_TRUE(drag.applyTranslation(linkage.coupler, {1.5, -2.5, 0.0}));
    VrexSolverOptions options;
    options.maxIterations = 1; // too few to come back to the constraints
    options.retries = 0;
    const auto report = VrexSolver3D(options).solve({component}, &drag).components.at(0);
    EXPECT_TRUE(report.isConverged);
    EXPECT_LE(report.largestResidual, options.tolerance);
    EXPECT_TRUE(bytesOf(component) == solved);
}

TEST(VrexSolver3DRepeat, PoseIsKeptWhereThereIsNoSolution) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    linkage.output->getAngle().value = 3.0; // no four-bar of these lengths gets there
    linkage.output->getAngle().setFixed(true);
    const auto component = linkage.component();
    ASSERT_FALSE(VrexSolver3D().solve({component}).isConverged());
    const std::string failed = bytesOf(component); // with statuses
    for (const auto& geometry : linkage.geometries) {
        const auto body = std::dynamic_pointer_cast<VrexRigidSet3D>(geometry);
        if (body != nullptr) {
            EXPECT_EQ(body->getOrigin().magnitude(), 0.0);
            EXPECT_EQ(body->getRotation().scalar(), 1.0);
        }
    }
    EXPECT_EQ(linkage.output->getAngle().value, 3.0);
    ASSERT_FALSE(VrexSolver3D().solve({component}).isConverged());
    EXPECT_TRUE(bytesOf(component) == failed);
}

TEST(VrexSolver3DRepeat, ProgressIsToldBeforeEachIteration) {
    FourBar first(0.3);
    first.input->getAngle().value = 0.9;
    first.input->getAngle().setFixed(true);
    const FourBar second(0.5); // solved as it is
    std::vector<VrexSolverProgress> told;
    VrexSolverOptions options;
    options.progress = [&told](const VrexSolverProgress& progress) {
        told.push_back(progress);
        return true;
    };
    const auto report = VrexSolver3D(options).solve({second.component(), first.component()});
    EXPECT_TRUE(report.isConverged());
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.size(), static_cast<std::size_t>(report.components[1].iterations));
    for (std::size_t i = 0; i < told.size(); ++i) {
        EXPECT_EQ(told[i].component, 1U);
        EXPECT_EQ(told[i].componentCount, 2U);
        EXPECT_EQ(told[i].iteration, static_cast<int>(i));
        EXPECT_GT(told[i].largestResidual, 0.0);
    }
}

TEST(VrexSolver3DRepeat, CancellingKeepsThePoseOfWhatIsNotSolved) {
    std::vector<FourBar> linkages{FourBar(0.3), FourBar(0.3)};
    for (FourBar& linkage : linkages) {
        linkage.input->getAngle().value = 0.9;
        linkage.input->getAngle().setFixed(true);
    }
    VrexSolverOptions options;
    options.progress = [](const VrexSolverProgress& progress) {
        return progress.component == 0 || progress.iteration < 2;
    };
    const auto report = VrexSolver3D(options).solve({linkages[0].component(), linkages[1].component()});
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_FALSE(report.components[1].isConverged);
    EXPECT_TRUE(report.components[1].isCancelled);
    EXPECT_EQ(report.components[1].iterations, 2);
    EXPECT_NE(linkages[0].coupler->getRotation().scalar(), 1.0);
    EXPECT_EQ(linkages[1].coupler->getRotation().scalar(), 1.0);
    EXPECT_EQ(linkages[1].coupler->status(), VrexGeometryStatus::NotSolved);
    EXPECT_EQ(linkages[1].input->status(), VrexConstraintStatus::NotSolved);
}

TEST(VrexSolver3DRepeat, CancellingEndsAllComponentsAndDoesNotAskAgain) {
    std::vector<FourBar> linkages{FourBar(0.3), FourBar(0.3)};
    for (FourBar& linkage : linkages) {
        linkage.input->getAngle().value = 0.9;
        linkage.input->getAngle().setFixed(true);
    }
    int calls = 0;
    VrexSolverOptions options;
    options.progress = [&calls](const VrexSolverProgress&) { return ++calls > 1; }; // false but once
    const auto report = VrexSolver3D(options).solve({linkages[0].component(), linkages[1].component()});
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(report.components[0].isCancelled);
    EXPECT_TRUE(report.components[1].isCancelled);
    EXPECT_EQ(linkages[1].coupler->getRotation().scalar(), 1.0);
}

TEST(VrexSolver3DRepeat, FewerThanNoRetriesAreNone) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    VrexSolverOptions options;
    options.retries = -1;
    EXPECT_TRUE(VrexSolver3D(options).solve({linkage.component()}).isConverged());
}

TEST(VrexSolver3DRepeat, SearchForConflictsCanBeCancelled) {
    PlantedSystem system;
    const auto a = system.point(0, 0, 0);
    const auto b = system.point(1, 0.1, 0);
    system.distance(a, b, 1.0);
    system.distance(a, b, 2.0);
    int calls = 0;
    VrexSolverOptions options;
    options.progress = [&calls](const VrexSolverProgress&) {
        ++calls;
        return true;
    };
    VrexSolver3D(options).solve({system.component()});
    for (int most = 0; most < calls; ++most) {
        int left = most;
        options.progress = [&left](const VrexSolverProgress&) { return left-- > 0; };
        const auto report = VrexSolver3D(options).solve({system.component()}).components.at(0);
        EXPECT_TRUE(report.isCancelled) << most;
        EXPECT_FALSE(report.isConverged) << most;
    }
}

} // namespace
