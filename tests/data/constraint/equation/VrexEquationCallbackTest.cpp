#include "data/constraint/equation/VrexEquationCallback.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ExpectDerivativesMatch.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Args = std::vector<VrexVariable>;

/// The derivative entries in their order.
std::vector<std::pair<std::uint64_t, double>> entries(const VrexVariable& variable) {
    std::vector<std::pair<std::uint64_t, double>> entries;
    for (const auto& entry : variable.derivatives()) {
        entries.emplace_back(entry.key, entry.value);
    }
    return entries;
}

/// With the derivative 1 by `key`.
VrexVariable seeded(double value, std::uint64_t key) {
    VrexVariable variable(value);
    variable.derivatives().set(key, 1.0);
    return variable;
}

/// Of value 5, with this gradient.
VrexEquationCallback withGradient(std::vector<double> gradient) {
    return VrexEquationCallback(
        [gradient = std::move(gradient)](const double*, unsigned int count, double* out) {
            EXPECT_EQ(count, gradient.size());
            std::copy(gradient.begin(), gradient.end(), out);
            return 5.0;
        });
}

double polar(const double* v, unsigned int, double* gradient) {
    gradient[0] = std::sin(v[1]) + v[2];
    gradient[1] = v[0] * std::cos(v[1]);
    gradient[2] = v[0];
    return v[0] * std::sin(v[1]) + v[0] * v[2];
}

TEST(VrexEquationCallback, HandsOverValuesCountAndAGradientOfZeros) {
    std::vector<double> seen;
    const VrexEquationCallback callback([&seen](const double* values, unsigned int count, double* gradient) {
        seen.assign(values, values + count);
        seen.insert(seen.end(), gradient, gradient + count);
        return -2.5;
    });
    EXPECT_EQ(callback({seeded(7.0, 3), 8.0}).value(), -2.5);
    EXPECT_THAT(seen, ElementsAre(7.0, 8.0, 0.0, 0.0));
}

TEST(VrexEquationCallback, GradientIsTheDerivativeByTheArgumentsIndices) {
    const VrexEquationCallback callback(polar);
    const auto function = [&](const auto& v) {
        if constexpr (std::is_same_v<std::decay_t<decltype(v)>, Args>) {
            return callback(v);
        } else {
            return v[0] * std::sin(v[1]) + v[0] * v[2];
        }
    };
    expectDerivativesMatch(function, {0.7, 0.4, -1.3}, 1e-9); // the difference's own error
}

TEST(VrexEquationCallback, EntryOfAnArgumentNamesTheKeyAndIsNotMultipliedIn) {
    VrexVariable scaled(1.0);
    scaled.derivatives().set(9, 40.0);
    scaled.derivatives().set(2, 1.0);
    EXPECT_THAT(entries(withGradient({3.0, 2.0})({scaled, seeded(1.0, 4)})),
                ElementsAre(Pair(9, 3.0), Pair(4, 2.0)));
}

TEST(VrexEquationCallback, GradientZeroLeavesTheKeyOut) {
    const auto result = withGradient({0.0, 2.0, -0.0})({seeded(1.0, 1), seeded(1.0, 2), seeded(1.0, 3)});
    EXPECT_THAT(entries(result), ElementsAre(Pair(2, 2.0)));
    EXPECT_EQ(result.derivatives().find(1), result.derivatives().end());
}

TEST(VrexEquationCallback, EqualKeysAreOverwrittenNotSummed) {
    EXPECT_THAT(entries(withGradient({3.0, 2.0, 0.0})({seeded(1.0, 7), seeded(1.0, 7), seeded(1.0, 7)})),
                ElementsAre(Pair(7, 2.0)));
}

TEST(VrexEquationCallback, ArgumentsWithoutDerivativesBringNone) {
    EXPECT_THAT(entries(withGradient({3.0, 2.0})({1.0, 2.0})), IsEmpty());
    EXPECT_THAT(entries(withGradient({3.0, 2.0})({1.0, seeded(2.0, 6)})), ElementsAre(Pair(6, 2.0)));
}

TEST(VrexEquationCallback, GradientThatIsNotANumberIsKept) {
    const auto result = withGradient({std::numeric_limits<double>::quiet_NaN()})({seeded(1.0, 7)});
    ASSERT_EQ(result.derivatives().size(), 1U);
    EXPECT_TRUE(std::isnan(result.derivatives()[7]));
}

TEST(VrexEquationCallback, ManyArgumentsAndNone) {
    constexpr unsigned MANY = 40;
    Args args;
    std::vector<double> gradient;
    for (unsigned i = 0; i < MANY; ++i) {
        args.push_back(seeded(i, 100 + i));
        gradient.push_back(1.0 + i);
    }
    const auto result = entries(withGradient(gradient)(args));
    ASSERT_EQ(result.size(), MANY);
    for (unsigned i = 0; i < MANY; ++i) {
        EXPECT_THAT(result[i], Pair(100 + i, 1.0 + i));
    }
    EXPECT_THAT(entries(withGradient({})({})), IsEmpty());
}

TEST(VrexEquationCallback, EmptyCallbackThrows) {
    const VrexEquationCallback callback({});
    EXPECT_FALSE(callback.callback());
    EXPECT_THROW(static_cast<void>(callback({1.0})), std::bad_function_call);
}

TEST(VrexEquationCallback, PlainFunctionCanBeAskedFor) {
    using Function = double (*)(const double*, unsigned int, double*);
    const VrexEquationCallback callback(polar);
    ASSERT_NE(callback.callback().target<Function>(), nullptr);
    EXPECT_EQ(*callback.callback().target<Function>(), &polar);
}

} // namespace
