#include <cmath>

#include <gtest/gtest.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexTransformMatrix3D.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "solver/FourBar.h"
#include "solver/VrexSolver3D.h"

namespace {

using Vector = VrexVector3DT<double>;

TEST(VrexSolver3D, FourBarFollowsItsCrank) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    const auto component = linkage.component();
    const VrexSolverReport report = VrexSolver3D().solve({component});
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_EQ(report.components[0].refusal, "");
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_EQ(report.components[0].freedom, 0U);
    EXPECT_NEAR(linkage.output->getAngle().value, FourBar::rockerAngle(1.2) - FourBar::rockerAngle(0.3),
                1e-9);
}

TEST(VrexSolver3D, FourBarHasOneDegreeOfFreedom) {
    FourBar linkage(0.3);
    const auto component = linkage.component();
    const VrexSolverReport report = VrexSolver3D().solve({component});
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_EQ(report.components[0].iterations, 0);
    EXPECT_EQ(report.components[0].freedom, 1U);
}

TEST(VrexSolver3D, LiveObjectsGetPoseDimensionsAndStatuses) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    const VrexSolverReport report = VrexSolver3D().solve(linkage.geometries, linkage.constraints);
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_NEAR(linkage.output->getAngle().value, FourBar::rockerAngle(1.2) - FourBar::rockerAngle(0.3),
                1e-9);
    EXPECT_EQ(linkage.input->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
    for (const auto& geometry : linkage.geometries) {
        EXPECT_NE(geometry->status(), VrexGeometryStatus::Unknown);
        EXPECT_NE(geometry->status(), VrexGeometryStatus::NotSolved);
    }
}

TEST(VrexSolver3D, DragTakesACrankAsFarAsTheJointsAllow) {
    FourBar linkage(0.3);
    const auto crank = std::static_pointer_cast<VrexRigidSet3D>(linkage.geometries[1]);
    // A turn by 0.4 about the pivot, and off the plane, which no joint allows.
    const auto turn = VrexQuaternionT<double>::makeFromAngleAndAxis(0.4, Vector::OZ(), 1e-12);
    VrexTransform3D drag;
    ASSERT_TRUE(drag.applyTransformation(crank, VrexTransformMatrix3D::makeFromQuaternion(turn)));
    ASSERT_TRUE(drag.applyTranslation(crank, {0.0, 0.0, 0.5}));
    const VrexSolverReport report = VrexSolver3D().solve(linkage.geometries, linkage.constraints, &drag);
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_TRUE(report.components[0].isConverged);
    EXPECT_NEAR(linkage.input->getAngle().value, 0.4, 0.02);
    EXPECT_NEAR(linkage.output->getAngle().value,
                FourBar::rockerAngle(0.3 + linkage.input->getAngle().value) - FourBar::rockerAngle(0.3),
                1e-9);
    EXPECT_NEAR(crank->getOrigin().z(), 0.0, 1e-9);
}

TEST(VrexSolver3D, AComponentThatCannotBeSolvedKeepsItsPose) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    linkage.output->getAngle().value = 3.0; // no four-bar of these lengths gets there
    linkage.output->getAngle().setFixed(true);
    const auto before =
        std::static_pointer_cast<VrexRigidSet3D>(linkage.geometries[1])->getRotation().scalar();
    const VrexSolverReport report = VrexSolver3D().solve(linkage.geometries, linkage.constraints);
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_FALSE(report.components[0].isConverged);
    EXPECT_EQ(std::static_pointer_cast<VrexRigidSet3D>(linkage.geometries[1])->getRotation().scalar(),
              before);
    EXPECT_EQ(linkage.output->getAngle().value, 3.0);
    EXPECT_EQ(linkage.geometries[1]->status(), VrexGeometryStatus::NotSolved);
    EXPECT_EQ(linkage.output->satisfiedStatus(), VrexConstraintSatisfiedStatus::NotSatisfied);
}

TEST(VrexSolver3D, ANumberThatIsNotFiniteIsRefusedByName) {
    FourBar linkage(0.3);
    const auto crank = std::static_pointer_cast<VrexRigidSet3D>(linkage.geometries[1]);
    crank->label() = "crank";
    crank->setOrigin({std::nan(""), 0.0, 0.0});
    const VrexSolverReport report = VrexSolver3D().solve(linkage.geometries, linkage.constraints);
    ASSERT_EQ(report.components.size(), 1U);
    EXPECT_FALSE(report.components[0].isConverged);
    EXPECT_EQ(report.components[0].refusal, "rs3 (crank) holds a number that is not finite.");
}

TEST(VrexSolver3D, AStreamComesBackSolved) {
    FourBar linkage(0.3);
    linkage.input->getAngle().value = 0.9;
    linkage.input->getAngle().setFixed(true);
    VrexStreamGraphEncoder3D problem;
    ASSERT_TRUE(problem.encodeConstraintGraphs({linkage.component()}));
    unsigned int size = 0;
    unsigned char* const buffer = problem.dumpBuffer(size);
    VrexStreamGraphEncoder3D answer;
    VrexSolverReport report;
    EXPECT_TRUE(VrexSolver3D().solve(buffer, size, answer, report));
    EXPECT_FALSE(VrexSolver3D().solve(buffer, size - 1, problem, report));
    VrexStreamGraphEncoder::freeBuffer(buffer);

    unsigned char* const solved = answer.dumpBuffer(size);
    std::vector<std::shared_ptr<VrexConnectedComponent>> components;
    EXPECT_TRUE(VrexStreamGraphDecoder3D().decodeConstraintGraphs(solved, size, components));
    VrexStreamGraphEncoder::freeBuffer(solved);
    ASSERT_EQ(components.size(), 1U);
    for (const auto& constraint : components[0]->getConstraints()) {
        if (constraint->getID() == linkage.output->getID()) {
            EXPECT_NEAR(std::static_pointer_cast<VrexRevoluteMate3D>(constraint)->getAngle().value,
                        FourBar::rockerAngle(1.2) - FourBar::rockerAngle(0.3), 1e-9);
            EXPECT_EQ(constraint->satisfiedStatus(), VrexConstraintSatisfiedStatus::Satisfied);
        }
    }
}

} // namespace
