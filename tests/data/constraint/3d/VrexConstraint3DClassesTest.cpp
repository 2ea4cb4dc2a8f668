// What tells a few classes of constraints from all the others, tried over every class.

#include <array>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ObjectClasses.h"

namespace {

using testing::Contains;

class VrexConstraint3DClasses : public testing::TestWithParam<ObjectKind> {
protected:
    std::shared_ptr<VrexConstraint3D> m_constraint =
        std::dynamic_pointer_cast<VrexConstraint3D>(GetParam().makeSample());
};

INSTANTIATE_TEST_SUITE_P(Kinds, VrexConstraint3DClasses,
                         testing::ValuesIn(concreteObjectKinds<VrexConstraint3D>()), nameOfKind);

TEST_P(VrexConstraint3DClasses, DimensionsAloneStoreTheRigidFlag) {
    m_constraint->setRigid(true);
    EXPECT_EQ(m_constraint->isRigid(), dynamic_cast<VrexDimension3D*>(m_constraint.get()) != nullptr);
    m_constraint->setRigid(false);
    EXPECT_FALSE(m_constraint->isRigid());
}

TEST_P(VrexConstraint3DClasses, HelpValuesAreForThoseThatTouchOrMeasureAlongCurves) {
    const std::array<std::string, 5> withPoints{"VrexIncidence3D", "VrexTangency3D", "VrexDistance3D",
                                                "VrexDirectionDistance3D", "VrexParallelDistance3D"};
    const std::array<std::string, 2> withParametersAlone{"VrexEqualCurveProperty3D", "VrexCurveLength3D"};
    const bool hasPoints = testing::Value(withPoints, Contains(GetParam().name));
    EXPECT_EQ(m_constraint->isHelpPointSupported(), hasPoints);
    EXPECT_EQ(m_constraint->isHelpParameterSupported(),
              hasPoints || testing::Value(withParametersAlone, Contains(GetParam().name)));
}

TEST_P(VrexConstraint3DClasses, FixationsAloneCanBeComplete) {
    const auto fixation = std::dynamic_pointer_cast<VrexFixation3D>(m_constraint);
    if (fixation != nullptr) {
        fixation->setFixationType(VrexFixation3DType::Complete3D);
    }
    EXPECT_EQ(m_constraint->isCompleteFixed(), fixation != nullptr);
}

} // namespace
