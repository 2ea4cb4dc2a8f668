#include "data/geometry/3d/VrexEqualDimensionElement3D.h"

#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"

namespace {

TEST(VrexEqualDimensionElement3D, IsOneValueOfOneFreedom) {
    const auto element = VrexEqualDimensionElement3D::create(2.5);
    EXPECT_EQ(element->type(), VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT);
    EXPECT_EQ(element->dof(), 1);
    EXPECT_FALSE(element->isPattern());
    EXPECT_TRUE(element->getGeometries().empty());
    EXPECT_EQ(VrexEqualDimensionElement3D::PARAMETERS_AMOUNT, 1);
    EXPECT_EQ(VrexEqualDimensionElement3D::VALUE, 0);
    EXPECT_EQ(element->getValue(), 2.5);
    element->setValue(-3.0);
    EXPECT_EQ(VrexVariableDescriptor(element, 0, nullptr).getValue(), -3.0);
}

TEST(VrexEqualDimensionElement3D, ValueChangedByMoreThanTheToleranceIsChanged) {
    const auto element = VrexEqualDimensionElement3D::create(1.0);
    EXPECT_FALSE(element->checkChanged(0.0, 0.0)) << "without a snapshot";
    element->backup();
    element->setValue(1.5);
    EXPECT_FALSE(element->checkChanged(0.5, 0.0));
    EXPECT_TRUE(element->checkChanged(0.25, 1e9)) << "the second tolerance has no meaning";
}

} // namespace
