#include "data/geometry/3d/VrexPattern3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(VrexPattern3D, IsAPatternOfOneFreedom) {
    const auto line = makeSample<VrexLine3D>();
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Circular3D, line, 0.5);
    EXPECT_EQ(pattern->type(), VrexGeometry3DType::PATTERN);
    EXPECT_EQ(pattern->dof(), 1);
    EXPECT_TRUE(pattern->isPattern());
    EXPECT_EQ(VrexPattern3D::PARAMETERS_AMOUNT, 1);
    EXPECT_EQ(VrexPattern3D::VALUE, 0);
    EXPECT_EQ(pattern->getPatternType(), VrexPattern3DType::Circular3D);
    EXPECT_EQ(pattern->getAxisLine(), line);
    EXPECT_THAT(pattern->getGeometries(), ElementsAre(line));
    EXPECT_EQ(pattern->getValue(), 0.5);
}

TEST(VrexPattern3D, AccessorsReadWhatWasSet) {
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Circular3D, nullptr, 0.5);
    const auto line = makeSample<VrexLine3D>();
    pattern->setPatternType(VrexPattern3DType::Linear3D);
    pattern->setAxisLine(line);
    pattern->setValue(-7.0);
    EXPECT_EQ(pattern->getPatternType(), VrexPattern3DType::Linear3D);
    EXPECT_EQ(pattern->getAxisLine(), line);
    EXPECT_EQ(VrexVariableDescriptor(pattern, 0, nullptr).getValue(), -7.0);
}

TEST(VrexPattern3D, WithoutAnAxisItIsBuiltOnNothing) {
    EXPECT_THAT(VrexPattern3D::create(VrexPattern3DType::Linear3D, nullptr, 1.0)->getGeometries(), IsEmpty());
}

TEST(VrexPattern3D, StepChangedByMoreThanTheToleranceIsChanged) {
    const auto pattern = makeSample<VrexPattern3D>();
    EXPECT_FALSE(pattern->checkChanged(0.0, 0.0)) << "without a snapshot";
    pattern->setValue(1.0);
    pattern->backup();
    pattern->setValue(0.5);
    EXPECT_FALSE(pattern->checkChanged(0.5, 0.0));
    EXPECT_TRUE(pattern->checkChanged(0.25, 1e9)) << "the second tolerance has no meaning";
}

TEST(VrexPattern3D, UpdateKeepsTheAxisAndTakesTheRest) {
    const auto line = makeSample<VrexLine3D>();
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Linear3D, line, 1.0);
    pattern->updateFrom(makeSample<VrexPattern3D>());
    EXPECT_EQ(pattern->getAxisLine(), line);
    EXPECT_EQ(pattern->getPatternType(), VrexPattern3DType::Circular3D);
    EXPECT_EQ(pattern->getValue(), 0.25);
}

TEST(VrexPattern3D, CopyAndRestoreCarryTypeAndAxis) {
    const auto line = makeSample<VrexLine3D>();
    const auto pattern = VrexPattern3D::create(VrexPattern3DType::Circular3D, line, 1.0);
    pattern->backup();
    pattern->setPatternType(VrexPattern3DType::Linear3D);
    pattern->setAxisLine(nullptr);
    pattern->restore();
    EXPECT_EQ(pattern->getPatternType(), VrexPattern3DType::Circular3D);
    EXPECT_EQ(pattern->getAxisLine(), line);
}

} // namespace
