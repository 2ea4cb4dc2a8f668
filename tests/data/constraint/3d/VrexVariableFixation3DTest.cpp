#include "data/constraint/3d/VrexVariableFixation3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/SamplesRelations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(VrexVariableFixation3D, VariableIsTheOneElement) {
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto fixation = VrexVariableFixation3D::create(variable);
    const LogCapture log;
    EXPECT_THAT(fixation->getGeometries(), ElementsAre(variable));
    EXPECT_EQ(fixation->variable(), variable);
    EXPECT_EQ(fixation->getGeometries3DCount(), 0U);
    EXPECT_THAT(fixation->geomArguments(), IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_FALSE(fixation->isCompleteFixed());
}

TEST(VrexVariableFixation3D, WithoutAVariableTheListIsEmptyAndTheLogTellsIt) {
    const auto fixation = VrexVariableFixation3D::create(nullptr);
    EXPECT_THAT(fixation->getGeometries(), IsEmpty());
    EXPECT_FALSE(fixation->areGeometriesChanged());
    EXPECT_EQ(fixation->doc(), 1);
    const LogCapture log;
    EXPECT_EQ(fixation->variable(), nullptr);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().channel, 1U);
    EXPECT_EQ(log.lines().front().level, 2U);
    EXPECT_EQ(log.lines().front().text, "the variable fixation argument nonexistent");
}

TEST(VrexVariableFixation3D, UpdateKeepsTheVariable) {
    const auto variable = makeSample<VrexGeometryVariable>();
    const auto fixation = VrexVariableFixation3D::create(variable);
    fixation->updateFrom(makeSample<VrexVariableFixation3D>());
    EXPECT_EQ(fixation->variable(), variable);
    EXPECT_EQ(fixation->alignment(), VrexConstraintAlignment::Positive);
}

} // namespace
