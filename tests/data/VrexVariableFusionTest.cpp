#include "data/VrexVariableFusion.h"

#include "support/ScalarSamples.h"

using namespace nsScalarSamples;
using nsVariableFusion::linearCombination;
using nsVariableFusion::Term;

namespace {

Entries ordinary(std::size_t count, std::uint64_t first, std::uint64_t step) {
    Entries entries;
    for (std::size_t i = 0; i < count; ++i) {
        entries.emplace_back(first + i * step, 0.5 + 0.25 * double(i));
    }
    return entries;
}

/// By plain map arithmetic; sums of these dyadic numbers are exact in any order.
Entries expectedSum(const std::vector<std::pair<Entries, double>>& terms) {
    Entries result;
    for (const auto& [entries, factor] : terms) {
        for (const auto& [key, d] : entries) {
            if (!hasKey(result, key)) {
                result.emplace_back(key, 0.0);
            }
            for (auto& entry : result) {
                entry.second += entry.first == key ? factor * d : 0.0;
            }
        }
    }
    return result;
}

} // namespace

TEST(VrexVariableFusion, SumsTermsInTheOrderInWhichTheyBringTheirKeys) {
    for (const std::size_t n : {0U, 1U, 2U, 3U, 4U, 7U, 10U, 11U, 20U, 32U, 33U, 90U}) {
        for (const StorePair& layout : storePairs({n})) {
            std::vector<std::pair<Entries, double>> terms;
            for (const auto& [entries, factor] :
                 {std::pair{layout.a, 2.0}, {layout.b, -0.5}, {reversed(layout.a), 1.0}}) {
                Entries dyadic = entries;
                for (std::size_t i = 0; i < dyadic.size(); ++i) {
                    dyadic[i].second = 0.25 * double(i + 1);
                }
                terms.emplace_back(dyadic, factor);
            }
            const VrexVariable a = make(1.0, terms[0].first);
            const VrexVariable b = make(2.0, terms[1].first);
            const VrexVariable c = make(3.0, terms[2].first);
            const VrexVariable result = linearCombination(9.0, {{a, 2.0}, {b, -0.5}, {c, 1.0}});
            const Entries expected = expectedSum(terms);
            EXPECT_TRUE(sameResult(result, 9.0, expected)) << "size " << n;
            EXPECT_EQ(result.derivatives().capacity() == 0, expected.size() <= 10);
        }
    }
}

TEST(VrexVariableFusion, KeysWithEqualLowBitsStayApart) {
    const VrexVariable a = make(1.0, {{1, 1.0}, {65, 2.0}, {129, 4.0}});
    const VrexVariable b = make(1.0, {{129, 8.0}, {193, 16.0}, {1, 32.0}});
    EXPECT_TRUE(sameResult(linearCombination(0.0, {{a, 1.0}, {b, 1.0}}), 0.0,
                           {{1, 33.0}, {65, 2.0}, {129, 12.0}, {193, 16.0}}));
}

TEST(VrexVariableFusion, AnOperandMayStandInSeveralTerms) {
    const VrexVariable a = make(1.0, ordinary(12, 0, 1));
    EXPECT_TRUE(sameResult(linearCombination(0.0, {{a, 1.0}, {a, 2.0}}), 0.0,
                           expectedSum({{ordinary(12, 0, 1), 1.0}, {ordinary(12, 0, 1), 2.0}})));
}

TEST(VrexVariableFusion, HasTheKeysOfPlainOperatorsInTheirOrder) {
    const VrexVariable x = make(3.0, ordinary(4, 10, 2));
    const VrexVariable y = make(-2.0, ordinary(5, 11, 1));
    const VrexVariable z = make(0.5, ordinary(6, 0, 3));
    const VrexVariable plain = y * x + z * x - y;
    const VrexVariable fused =
        linearCombination(y.value() * x.value() + z.value() * x.value() - y.value(),
                          {{y, x.value() - 1.0}, {x, y.value() + z.value()}, {z, x.value()}});
    EXPECT_TRUE(sameResult(fused, plain.value(), entriesOf(plain)));
}

TEST(VrexVariableFusion, OperandsWithoutDerivativesAddNothing) {
    const VrexVariable a = make(1.0, {{3, 2.0}});
    EXPECT_TRUE(sameResult(linearCombination(4.0, {{VrexVariable(2.0), 5.0}, {a, 3.0}}), 4.0, {{3, 6.0}}));
    EXPECT_TRUE(sameResult(linearCombination(4.0, {}), 4.0, {}));
}

TEST(VrexVariableFusion, TellsWhetherAnOperandLogs) {
    VrexVariable a(1.0);
    const VrexVariable b(2.0);
    EXPECT_FALSE(nsVariableFusion::anyLog(a, b));
    a.enableLog("a");
    EXPECT_TRUE(nsVariableFusion::anyLog(b, a));
}

TEST(VrexVariableFusion, AFactorThatIsNotFiniteLeavesTheKeysAloneThatItsOperandLacks) {
    const double inf = std::numeric_limits<double>::infinity();
    for (const std::size_t n : {3U, 8U, 40U, 300U}) {
        const VrexVariable a = make(1.0, ordinary(n, 0, 1));
        const VrexVariable b = make(1.0, ordinary(n, 1000, 1));
        const VrexVariable sum = linearCombination(0.0, {{a, 1.0}, {b, inf}});
        Entries expected = ordinary(n, 0, 1);
        for (const auto& entry : ordinary(n, 1000, 1)) {
            expected.emplace_back(entry.first, inf);
        }
        EXPECT_TRUE(sameResult(sum, 0.0, expected)) << "size " << n;
    }
}
