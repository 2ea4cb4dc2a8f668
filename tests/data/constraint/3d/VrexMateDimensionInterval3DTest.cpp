#include "data/constraint/3d/VrexMateDimensionInterval3D.h"

#include <typeinfo>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SamplesConstraints.h"

namespace {

using enum VrexMateDimensionInterval3DType;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(VrexMateDimensionInterval3D, NewIntervalHoldsWhatItIsGiven) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto interval = VrexMateDimensionInterval3D::create(variable, {2.0, -3.0}, 5, LinearDimension3D);
    EXPECT_EQ(interval->type(), VrexConstraint3DType::MateDimensionInterval3D);
    EXPECT_EQ(interval->doc(), 0);
    EXPECT_FALSE(interval->isHelpPointSupported() || interval->isHelpParameterSupported());
    EXPECT_EQ(interval->variable(), variable);
    EXPECT_THAT(interval->getGeometries(), ElementsAre(variable));
    EXPECT_TRUE(interval->areGeometriesChanged());
    EXPECT_EQ(interval->getGeometries3DCount(), 0U);
    EXPECT_EQ(interval->limit(), VrexDimensionLimits(2.0, -3.0));
    EXPECT_EQ(interval->dimensionIndex(), 5U);
    EXPECT_EQ(interval->getMateDimensionType(), LinearDimension3D);
}

TEST(VrexMateDimensionInterval3D, NullVariableAppendsNothing) {
    const auto interval = VrexMateDimensionInterval3D::create(nullptr, {}, 0, AngleDimension3D);
    EXPECT_EQ(interval->variable(), nullptr);
    EXPECT_THAT(interval->getGeometries(), IsEmpty());
    EXPECT_FALSE(interval->areGeometriesChanged());
}

TEST(VrexMateDimensionInterval3D, LimitsAndTypeCanBeSet) {
    const auto interval = makeSample<VrexMateDimensionInterval3D>();
    interval->limit() = {std::nullopt, 8.0};
    interval->limit().first = 4.0;
    EXPECT_EQ(std::as_const(*interval).limit(), VrexDimensionLimits(4.0, 8.0));
    interval->setMateDimensionType(AngleDimension3D);
    EXPECT_EQ(interval->getMateDimensionType(), AngleDimension3D);
}

TEST(VrexMateDimensionInterval3D, UpdateKeepsTheVariableAndTakesTheRest) {
    const auto variable = VrexGeometryVariable::create(1.0);
    const auto interval = VrexMateDimensionInterval3D::create(variable, {}, 0, AngleDimension3D);
    interval->updateFrom(makeSample<VrexMateDimensionInterval3D>());
    EXPECT_EQ(interval->variable(), variable);
    EXPECT_EQ(variable->getValue(), 1.0);
    EXPECT_THAT(interval->getGeometries(), ElementsAre(variable));
    EXPECT_EQ(interval->limit(), VrexDimensionLimits(-2.0, 3.0));
    EXPECT_EQ(interval->dimensionIndex(), 1U);
    EXPECT_EQ(interval->getMateDimensionType(), LinearDimension3D);
}

TEST(VrexMateDimensionInterval3D, FailedUpdateChangesNothing) {
    const auto interval = makeSample<VrexMateDimensionInterval3D>();
    const auto before = interval->getGeometries();
    EXPECT_THROW(interval->updateFrom(makeSample<VrexMateRelation3D>()), std::bad_cast);
    EXPECT_EQ(interval->getGeometries(), before);
    EXPECT_EQ(interval->limit(), VrexDimensionLimits(-2.0, 3.0));
}

TEST(VrexMateDimensionInterval3D, ItKeepsItsVariableAlive) {
    const auto interval =
        VrexMateDimensionInterval3D::create(VrexGeometryVariable::create(6.5), {}, 0, AngleDimension3D);
    ASSERT_NE(interval->variable(), nullptr);
    EXPECT_EQ(interval->variable()->getValue(), 6.5);
}

} // namespace
