#include "data/constraint/3d/VrexConstraintManager3D.h"

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/3d/HelpValues.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "support/RefusalChecks.h"
#include "support/Samples.h"

namespace {

using nsHelpFixture::values;
using testing::ElementsAre;

class VrexConstraintManager3DTest : public nsHelpFixture::Fixture {};

TEST_F(VrexConstraintManager3DTest, HelpValuesOfAConstraintThatIsNotStoredAreRefused) {
    const auto unknown = helpConstraint(55, first, second);
    const std::string text = "Failed to find related constraint, the constraint is invalid, id : 55.";
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpPoint(unknown, first, P)); },
        ", Failed to create help point. failed!");
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpParameter(unknown, first, U)); },
        ", createHelpParameter failed!");
    // An equation under the identifier has no help values.
    manager.addConstraint(numbered(makeSample<VrexExpressionEquation>(), 55));
    expectRefusal(
        recorder, VrexErrorCode::CONSTRAINT_ID_INVALID, text,
        [&] { EXPECT_FALSE(manager.createHelpPoint(unknown, first, P)); },
        ", Failed to create help point. failed!");
    EXPECT_FALSE(unknown->helpPoint1());
}

TEST_F(VrexConstraintManager3DTest, EnquiringReadsThePassedConstraint) {
    const auto unstored = helpConstraint(55, first, second);
    unstored->setHelpPoint2(P);
    unstored->setHelpParam2(U);
    EXPECT_TRUE(manager.enquireHelpPoint(unstored, second, point));
    EXPECT_EQ(values(point), values(P));
    EXPECT_TRUE(manager.enquireHelpPoint(unstored, first, 2, point));
    EXPECT_TRUE(manager.enquireHelpParameter(unstored, second, parameter));
    EXPECT_EQ(values(parameter), values(U));
    EXPECT_TRUE(manager.enquireHelpParameter(unstored, first, 8, parameter));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, EnquiringAnEmptyHelpValueRecordsNothing) {
    EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, point));
    EXPECT_FALSE(manager.enquireHelpPoint(constraint, first, 2, point));
    EXPECT_FALSE(manager.enquireHelpParameter(constraint, first, parameter));
    EXPECT_FALSE(manager.enquireHelpParameter(constraint, first, 8, parameter));
    EXPECT_TRUE(recorder.isNoError());
    EXPECT_EQ(point.x(), -1.0);
    EXPECT_EQ(parameter.x(), -1.0);
}

TEST_F(VrexConstraintManager3DTest, RefusalsOfChecksAreNotAppendedTo) {
    EXPECT_FALSE(manager.createHelpPoint(constraint, makeSample<VrexPlane3D>(), P));
    EXPECT_EQ(std::string(recorder.getErrorMessage()).find("failed!"), std::string::npos);
    EXPECT_STREQ(recorder.getLogMessage(), "");
}

TEST_F(VrexConstraintManager3DTest, ReleasingAVariableUnbindsItsDimensions) {
    const auto variable = numbered(VrexGeometryVariable::create(7.5), 9);
    const auto distance = [&](std::uint64_t id) {
        const auto made =
            numbered(VrexDistance3D::create(first, second, 1.25, VrexGeometryComponentType::UNKNOWN,
                                            VrexGeometryComponentType::UNKNOWN),
                     id);
        made->bindVariable(variable);
        manager.addConstraint(made);
        made->setDirty(false);
        return made;
    };
    const auto one = distance(61);
    const auto two = distance(62);
    const auto equation = numbered(
        VrexExpressionEquation::create({{variable, 0, "d"}}, VrexEquationConditionType::greaterThanZero, "d"),
        63);
    manager.addConstraint(equation);
    EXPECT_EQ(one->value(), 7.5);
    manager.removeFromReleatedDimension(one->getGeometries().back()); // gone from the list meanwhile
    for (const auto& dimension : {one, two}) {
        EXPECT_EQ(dimension->getVariable(), nullptr);
        EXPECT_EQ(dimension->value(), 1.25);
        EXPECT_TRUE(dimension->isDirty());
        EXPECT_THAT(dimension->getGeometries(), ElementsAre(first, second));
    }
    EXPECT_THAT(manager.findRelatedConstraints(std::shared_ptr<VrexBaseGeometry>(variable)),
                ElementsAre(equation));
    manager.removeConstraint(equation);
    EXPECT_FALSE(manager.getRelatedGeometryMap().contains(9));
    EXPECT_TRUE(recorder.isNoError());
}

TEST_F(VrexConstraintManager3DTest, ReleasingAnUnusedVariableChangesNothing) {
    manager.removeFromReleatedDimension(first);
    EXPECT_THAT(manager.getRelatedGeometryMap().find(1), ElementsAre(100));
    expectUntouched();
    EXPECT_TRUE(recorder.isNoError());
    expectRefusal(recorder, VrexErrorCode::GEOMETRY_ID_INVALID, "The geometry is nullptr!",
                  [&] { manager.removeFromReleatedDimension(nullptr); });
}

} // namespace
