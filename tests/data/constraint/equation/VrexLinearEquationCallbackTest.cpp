#include "data/constraint/equation/VrexLinearEquationCallback.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace {

using Args = std::vector<VrexVariable>;

TEST(VrexLinearEquationCallback, IsTheWeightedSumWithTheWeightsAsDerivatives) {
    Args args{1.5, -2.0, 10.0};
    VrexVariable::initializeDerivatives(args);
    const VrexVariable sum = VrexLinearEquationCallback({2.0, 4.0, 0.5}, 100.0)(args);
    EXPECT_EQ(sum.value(), 3.0 - 8.0 + 5.0 + 100.0);
    ASSERT_EQ(sum.derivatives().size(), 3U);
    EXPECT_EQ(sum.derivatives()[0], 2.0);
    EXPECT_EQ(sum.derivatives()[1], 4.0);
    EXPECT_EQ(sum.derivatives()[2], 0.5);
}

TEST(VrexLinearEquationCallback, AddsFromTheFirstToTheLastAndTheConstantAfterThem) {
    // 1e16 swallows a 1 that is added to it.
    const VrexLinearEquationCallback callback({1.0, 1.0, 1.0}, 1.0);
    EXPECT_EQ(callback({1e16, 1.0, -1e16}).value(), 1.0);
    EXPECT_EQ(callback({1e16, -1e16, 1.0}).value(), 2.0);
    EXPECT_EQ(VrexLinearEquationCallback({1.0, 1.0}, 1e16)({1.0, 1.0}).value(), 1e16 + 2.0);
}

TEST(VrexLinearEquationCallback, DerivativesOfSharedIndicesAreSummed) {
    VrexVariable twice(3.0);
    twice.derivatives().set(5, 2.0);
    const VrexVariable sum = VrexLinearEquationCallback({10.0, 100.0}, 0.0)({twice, twice});
    EXPECT_EQ(sum.value(), 330.0);
    EXPECT_EQ(sum.derivatives()[5], 220.0);
}

TEST(VrexLinearEquationCallback, WithoutCoefficientsIsTheConstant) {
    const VrexVariable constant = VrexLinearEquationCallback({}, -3.5)({});
    EXPECT_EQ(constant.value(), -3.5);
    EXPECT_TRUE(constant.derivatives().empty());
}

TEST(VrexLinearEquationCallback, KeysStandInTheOrderOfTheArgumentsZerosIncluded) {
    VrexVariable first(1.0);
    first.derivatives().set(8, 1.0);
    first.derivatives().set(3, 0.5);
    VrexVariable second(2.0);
    second.derivatives().set(3, 1.0);
    second.derivatives().set(1, 4.0);
    const VrexVariable sum = VrexLinearEquationCallback({0.0, 10.0}, 5.0)({first, second});
    const std::pair<std::uint64_t, double> expected[] = {{8, 0.0}, {3, 10.0}, {1, 40.0}};
    ASSERT_EQ(sum.derivatives().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(sum.derivatives().begin()[i].key, expected[i].first);
        EXPECT_EQ(sum.derivatives().begin()[i].value, expected[i].second);
    }
}

TEST(VrexLinearEquationCallback, LogGoesOnWhenTheFirstArgumentHasOne) {
    Args args{1.5, -2.0};
    args[0].enableLog("a");
    const VrexVariable sum = VrexLinearEquationCallback({2.0, 4.0}, 100.0)(args);
    EXPECT_EQ(sum.value(), 95.0);
    EXPECT_TRUE(sum.hasLog());
    EXPECT_FALSE(VrexLinearEquationCallback({2.0}, 1.0)({args[1]}).hasLog());
}

VrexVariable withEntries(double value, std::initializer_list<std::pair<std::uint64_t, double>> entries) {
    VrexVariable variable(value);
    for (const auto& [key, derivative] : entries) {
        variable.derivatives().set(key, derivative);
    }
    return variable;
}

/// Bit for bit, the signs of zeros and the room for entries included.
void expectSame(const VrexVariable& a, const VrexVariable& b) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(a.value()), std::bit_cast<std::uint64_t>(b.value()));
    EXPECT_EQ(a.convertLogToString(), b.convertLogToString());
    EXPECT_EQ(a.derivatives().capacity(), b.derivatives().capacity());
    ASSERT_EQ(a.derivatives().size(), b.derivatives().size());
    for (std::size_t i = 0; i < a.derivatives().size(); ++i) {
        const auto& left = a.derivatives().begin()[i];
        const auto& right = b.derivatives().begin()[i];
        EXPECT_EQ(left.key, right.key);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(left.value), std::bit_cast<std::uint64_t>(right.value));
    }
}

TEST(VrexLinearEquationCallback, IsWhatTheOperatorsMakeToTheLastBit) {
    VrexVariable logged = withEntries(2.0, {{7, 1.0}});
    logged.enableLog("l");
    VrexVariable many(0.5);
    for (std::uint64_t key = 20; key < 33; ++key) {
        many.derivatives().set(key, 0.1 * static_cast<double>(key));
    }
    const VrexVariable zeros = withEntries(-0.0, {{1, -0.0}, {2, 0.0}});
    const VrexVariable some = withEntries(0.3, {{3, 0.7}, {4, -0.0}, {5, 1e-310}});
    const VrexVariable overlapping =
        withEntries(1e16, {{4, 0.1}, {2, 3.0}, {66, 0.2}}); // 66 has the bit of 2
    const VrexVariable constant(-0.0);
    const Args all{zeros, some, overlapping, constant, many, logged};
    const std::vector<double> coefficients{-0.0, 0.1, -3.0};
    for (std::size_t i = 0; i < all.size() * all.size() * all.size(); ++i) {
        const Args args{all[i % all.size()], all[i / all.size() % all.size()],
                        all[i / (all.size() * all.size())]};
        VrexVariable expected = coefficients[0] * args[0];
        expected += coefficients[1] * args[1];
        expected += coefficients[2] * args[2];
        expected += -0.0;
        expectSame(VrexLinearEquationCallback(coefficients, -0.0)(args), expected);
    }
}

TEST(VrexLinearEquationCallback, OtherCountOfArgumentsThrows) {
    const VrexLinearEquationCallback callback({1.0, 2.0}, 0.0);
    for (const Args& args : {Args{}, Args{1.0}, Args{1.0, 2.0, 3.0}}) {
        const LogCapture log;
        try {
            static_cast<void>(callback(args));
            FAIL() << "summed";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "Size mismatch");
        }
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
        EXPECT_EQ(log.lines()[0].text, "VrexLinearEquationCallback::operator()(): Size mismatch");
    }
}

} // namespace
