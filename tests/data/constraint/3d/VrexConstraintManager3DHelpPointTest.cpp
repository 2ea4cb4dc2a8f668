#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "data/constraint/3d/HelpValues.h"
#include "support/RefusalChecks.h"
#include "support/Samples.h"

namespace {

using nsHelpFixture::values;

class VrexConstraintManager3DHelpPoint : public nsHelpFixture::Fixture {};

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointIsSetByTheGeometryOrByTheIndex) {
    EXPECT_TRUE(manager.createHelpPoint(constraint, second, P));
    EXPECT_EQ(values(constraint->helpPoint2()), values(P));
    EXPECT_FALSE(constraint->helpPoint1());
    EXPECT_TRUE(constraint->isDirty());
    constraint->setDirty(false);
    EXPECT_TRUE(manager.createHelpPoint(constraint, second, P, 1));
    EXPECT_EQ(values(constraint->helpPoint1()), values(P));
    EXPECT_TRUE(constraint->isDirty());
    EXPECT_TRUE(manager.createHelpPoint(constraint, first, P * 2.0));
    EXPECT_EQ(values(constraint->helpPoint1()), values(P * 2.0));
    EXPECT_TRUE(manager.createHelpPoint(constraint, stranger, P * 3.0, 2));
    EXPECT_EQ(values(constraint->helpPoint2()), values(P * 3.0));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointGoesToTheStoredConstraint) {
    const auto passed = helpConstraint(100, first, second);
    EXPECT_TRUE(manager.createHelpPoint(passed, first, P));
    EXPECT_FALSE(passed->helpPoint1());
    EXPECT_FALSE(passed->isDirty());
    EXPECT_EQ(values(constraint->helpPoint1()), values(P));
}

TEST_F(VrexConstraintManager3DHelpPoint, AGeometryInBothPlacesMeansTheFirst) {
    const auto both = helpConstraint(101, first, first);
    manager.addConstraint(both);
    EXPECT_TRUE(manager.createHelpPoint(both, first, P));
    EXPECT_TRUE(both->helpPoint1());
    EXPECT_FALSE(both->helpPoint2());
}

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointTakesCurvesSurfacesAndSpheres) {
    const std::shared_ptr<VrexGeometry3D> taken[] = {
        makeSample<VrexCircle3D>(), makeSample<VrexEvaluatedCurve3D>(), makeSample<VrexCylinder3D>(),
        makeSample<VrexNURBSSurface3D>(), makeSample<VrexSphere3D>()};
    for (const auto& geometry : taken) {
        EXPECT_TRUE(manager.createHelpPoint(constraint, geometry, P, 1));
    }
    constraint->helpPoint1().reset();
    constraint->setDirty(false);
    const std::shared_ptr<VrexGeometry3D> refused[] = {makeSample<VrexPoint3D>(), makeSample<VrexLine3D>(),
                                                       makeSample<VrexPlane3D>(),
                                                       makeSample<VrexRigidSet3D>()};
    for (const auto& geometry : refused) {
        geometry->setID(44);
        const std::string text = "Checking geometry failure, geometry do not support help point, id : 44.";
        expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, text,
                      [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, geometry, P, 1)); });
        expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, text,
                      [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, geometry, 1, point)); });
    }
    expectUntouched();
}

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointChecksTheGeometryFirstAndThenTheConstraint) {
    const auto bare = helpConstraint(100, first, second);
    bare->points = false;
    const std::string noGeometry = "Failed to check help point  geometry, the geometry is invalid";
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, noGeometry,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(bare, nullptr, P)); });
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, noGeometry,
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(nullptr, nullptr, point)); });
    const std::string noSupport = "Constraint don't support help point, id : 100.";
    expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, noSupport,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(bare, first, P)); });
    expectRefusal(recorder, VrexErrorCode::HELP_POINT_NOT_SUPPORTED, noSupport,
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(bare, first, 1, point)); });
    const std::string noConstraint = "Failed to find related constraint, the constraint is invalid, id : 0.";
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, noConstraint,
                  [&] { EXPECT_FALSE(manager.createHelpPoint(nullptr, first, P)); });
    expectUntouched();
}

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointIndexThreeIsRefusedAndTheConstraintStaysClean) {
    for (const std::uint64_t index : {0U, 3U, 6U}) {
        expectRefusal(
            recorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
            "Failed to set help point on constraint, the help point index is out of range, cosntraint id : "
            "100.",
            [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, first, P, index)); },
            ", Failed to create help point. failed!");
        expectRefusal(
            recorder, VrexErrorCode::HELP_POINT_INDEX_INVALID,
            "Failed to get help point on constraint, the help point index is out of range, cosntraint id : "
            "100.",
            [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, index, point)); });
    }
    expectUntouched();
    EXPECT_EQ(point.x(), -1.0);
}

TEST_F(VrexConstraintManager3DHelpPoint, HelpPointOfAGeometryThatIsNotTheConstraintsIsRefused) {
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
        "Failed to add help point on constraint, the geometry is independent of the constraint, geometry id "
        ": "
        "3, constraint id : 100.",
        [&] { EXPECT_FALSE(manager.createHelpPoint(constraint, stranger, P)); },
        ", Failed to create help point. failed!");
    expectRefusal(recorder, VrexErrorCode::CONSTRAINT_PARAM_ERROR,
                  "Failed to get help point on constraint, the geometry is independent of the constraint, "
                  "geometry id : "
                  "3, constraint id : 100.",
                  [&] { EXPECT_FALSE(manager.enquireHelpPoint(constraint, stranger, point)); });
    expectUntouched();
}

} // namespace
