#include "data/VrexParameterVector.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

/// Lengths on both sides of the inline capacity.
class VrexParameterVectorOfLength : public testing::TestWithParam<std::uint32_t> {
protected:
    VrexParameterVector m_vector = filled(GetParam(), 1.0);

    static VrexParameterVector filled(std::uint32_t size, double first) {
        VrexParameterVector vector(size);
        for (std::uint32_t i = 0; i < size; ++i) {
            vector[i] = first + i;
        }
        return vector;
    }
    static std::vector<double> valuesOf(const VrexParameterVector& vector) {
        return {vector.values().begin(), vector.values().end()};
    }
};

INSTANTIATE_TEST_SUITE_P(BothSidesOfTheInlineCapacity, VrexParameterVectorOfLength,
                         testing::Values(0U, 1U, 3U, 4U, 5U, 9U, 100U));

TEST_P(VrexParameterVectorOfLength, StartsWithZeros) {
    EXPECT_EQ(valuesOf(VrexParameterVector(GetParam())), std::vector<double>(GetParam(), 0.0));
}

TEST_P(VrexParameterVectorOfLength, CopyIsIndependent) {
    const auto expected = valuesOf(m_vector);
    VrexParameterVector copy(m_vector);
    EXPECT_EQ(valuesOf(copy), expected);
    for (std::uint32_t i = 0; i < copy.size(); ++i) {
        copy[i] = -1.0;
    }
    EXPECT_EQ(valuesOf(m_vector), expected);
}

TEST_P(VrexParameterVectorOfLength, MoveLeavesTheSourceEmpty) {
    const auto expected = valuesOf(m_vector);
    VrexParameterVector moved(std::move(m_vector));
    EXPECT_EQ(valuesOf(moved), expected);
    EXPECT_EQ(m_vector.size(), 0U); // NOLINT(bugprone-use-after-move)
}

TEST_P(VrexParameterVectorOfLength, AssignmentReplacesAnyOtherLength) {
    const auto expected = valuesOf(m_vector);
    for (const std::uint32_t size : {0U, 3U, 4U, 5U, 20U}) {
        VrexParameterVector copied = filled(size, 50.0);
        copied = m_vector;
        EXPECT_EQ(valuesOf(copied), expected);
        VrexParameterVector moved = filled(size, 50.0);
        moved = VrexParameterVector(m_vector);
        EXPECT_EQ(valuesOf(moved), expected);
    }
}

TEST_P(VrexParameterVectorOfLength, SelfAssignmentChangesNothing) {
    const auto expected = valuesOf(m_vector);
    VrexParameterVector& self = m_vector;
    m_vector = self;
    EXPECT_EQ(valuesOf(m_vector), expected);
    m_vector = std::move(self);
    EXPECT_EQ(valuesOf(m_vector), expected);
}

} // namespace
