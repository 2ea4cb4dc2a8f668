// What tells a few classes of constraints from all the others, tried over every class.

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ObjectClasses.h"

namespace {

using testing::Contains;

/// Whether the name of the class is in `list`.
template <class Object, std::size_t COUNT>
bool isOneOf(const std::array<std::string, COUNT>& list) {
    return testing::Value(list, Contains(ObjectClass<Object>::NAME));
}

template <class Object>
class VrexConstraint3DClasses : public testing::Test {};

TYPED_TEST_SUITE(VrexConstraint3DClasses, ConcreteObjectClasses<>);

TYPED_TEST(VrexConstraint3DClasses, DimensionsAloneStoreTheRigidFlag) {
    if constexpr (std::is_base_of_v<VrexConstraint3D, TypeParam>) {
        const auto constraint = makeSample<TypeParam>();
        constraint->setRigid(true);
        EXPECT_EQ(constraint->isRigid(), (std::is_base_of_v<VrexDimension3D, TypeParam>));
        constraint->setRigid(false);
        EXPECT_FALSE(constraint->isRigid());
    }
}

TYPED_TEST(VrexConstraint3DClasses, HelpValuesAreForThoseThatTouchOrMeasureAlongCurves) {
    const std::array<std::string, 5> withPoints{"VrexIncidence3D", "VrexTangency3D", "VrexDistance3D",
                                                "VrexDirectionDistance3D", "VrexParallelDistance3D"};
    const std::array<std::string, 2> withParametersAlone{"VrexEqualCurveProperty3D", "VrexCurveLength3D"};
    if constexpr (std::is_base_of_v<VrexConstraint3D, TypeParam>) {
        const auto constraint = makeSample<TypeParam>();
        const bool hasPoints = isOneOf<TypeParam>(withPoints);
        EXPECT_EQ(constraint->isHelpPointSupported(), hasPoints);
        EXPECT_EQ(constraint->isHelpParameterSupported(),
                  hasPoints || isOneOf<TypeParam>(withParametersAlone));
    }
}

TYPED_TEST(VrexConstraint3DClasses, FixationsAloneCanBeComplete) {
    if constexpr (std::is_same_v<VrexFixation3D, TypeParam>) {
        const auto fixation = makeSample<TypeParam>();
        fixation->setFixationType(VrexFixation3DType::Complete3D);
        EXPECT_TRUE(fixation->isCompleteFixed());
    } else if constexpr (std::is_base_of_v<VrexConstraint3D, TypeParam>) {
        EXPECT_FALSE(makeSample<TypeParam>()->isCompleteFixed());
    }
}

} // namespace
