#include <functional>
#include <limits>
#include <string>

#include "data/VrexVariable.h"
#include "support/ExpectDerivativesMatch.h"
#include "support/ScalarSamples.h"

using namespace nsScalarSamples;

namespace {

using Rule = std::function<double(double a, double b, double da, double db)>;
using Value = std::function<double(double a, double b)>;

// A row repeats the written rule: value and entry of the general form, and of the forms with a number on one
// side.
struct BinaryRow {
    std::string name;
    std::function<VrexVariable(const VrexVariable&, const VrexVariable&)> general;
    std::function<VrexVariable(const VrexVariable&, double)> rightNumber;
    std::function<VrexVariable(double, const VrexVariable&)> leftNumber;
    Value value;
    Rule entry, rightNumberEntry, leftNumberEntry;
    bool copiesStore = false; ///< The forms with a number have a copy's capacity.
};

const std::vector<BinaryRow>& binaryRows() {
    static const std::vector<BinaryRow> rows{
        {"+", [](const auto& a, const auto& b) { return a + b; },
         [](const auto& a, double c) { return a + c; }, [](double c, const auto& a) { return c + a; },
         [](double a, double b) { return a + b; },
         [](double, double, double da, double db) { return da + db; },
         [](double, double, double da, double) { return da; },
         [](double, double, double, double db) { return db; }},
        {"-", [](const auto& a, const auto& b) { return a - b; },
         [](const auto& a, double c) { return a - c; }, [](double c, const auto& a) { return c - a; },
         [](double a, double b) { return a - b; },
         [](double, double, double da, double db) { return da - db; },
         [](double, double, double da, double) { return da; },
         [](double, double, double, double db) { return -db; }},
        {"*", [](const auto& a, const auto& b) { return a * b; },
         [](const auto& a, double c) { return a * c; }, [](double c, const auto& a) { return c * a; },
         [](double a, double b) { return a * b; },
         [](double a, double b, double da, double db) { return da * b + db * a; },
         [](double, double b, double da, double) { return b * da; },
         [](double a, double, double, double db) { return a * db; }, true},
        {"/", [](const auto& a, const auto& b) { return a / b; },
         [](const auto& a, double c) { return a / c; }, [](double c, const auto& a) { return c / a; },
         [](double a, double b) { return a / b; },
         [](double a, double b, double da, double db) { return (da * b - db * a) / (b * b); },
         [](double, double b, double da, double) { return da / b; },
         [](double a, double b, double, double db) { return -(db * a) / (b * b); }},
        {"pow", [](const auto& a, const auto& b) { return pow(a, b); },
         [](const auto& a, double c) { return pow(a, c); }, [](double c, const auto& a) { return pow(c, a); },
         [](double a, double b) { return std::pow(a, b); },
         [](double a, double b, double da, double db) {
             return std::pow(a, b) * (std::log(a) * db) + std::pow(a, b - 1) * (b * da);
         },
         [](double a, double b, double da, double) { return std::pow(a, b - 1) * (b * da); },
         [](double a, double b, double, double db) { return std::pow(a, b) * (std::log(a) * db); }},
        {"atan2", [](const auto& a, const auto& b) { return atan2(a, b); },
         [](const auto& a, double c) { return atan2(a, c); },
         [](double c, const auto& a) { return atan2(c, a); },
         [](double a, double b) { return std::atan2(a, b); },
         [](double a, double b, double da, double db) { return (da * b - db * a) / (a * a + b * b); },
         [](double a, double b, double da, double) { return (b * da) / (a * a + b * b); },
         [](double a, double b, double, double db) { return (-db * a) / (b * b + a * a); }},
        {"hypot2", [](const auto& a, const auto& b) { return hypot2(a, b); },
         [](const auto& a, double c) { return hypot2(a, c); },
         [](double c, const auto& a) { return hypot2(c, a); },
         [](double a, double b) { return a * a + b * b; },
         [](double a, double b, double da, double db) { return 2 * (da * a + db * b); },
         [](double a, double, double da, double) { return 2 * (da * a); },
         [](double, double b, double, double db) { return 2 * (db * b); }},
        {"fmod", [](const auto& a, const auto& b) { return fmod(a, b); },
         [](const auto& a, double c) { return fmod(a, c); },
         [](double c, const auto& a) { return fmod(c, a); },
         [](double a, double b) { return std::fmod(a, b); },
         [](double a, double b, double da, double db) {
             const double m = std::fabs(a) > std::fabs(b) ? (b > 0 ? -1.0 : 1.0) : 0.0;
             return a * db + m * da;
         },
         [](double a, double b, double da, double) {
             const double m = std::fabs(a) > std::fabs(b) ? (b > 0 ? -1.0 : 1.0) : 0.0;
             return m * da;
         },
         [](double a, double, double, double db) { return a * db; }},
    };
    return rows;
}

Entries unionByRule(const StorePair& pair, double a, double b, const Rule& rule) {
    Entries result;
    for (const auto& [key, da] : pair.a) {
        result.emplace_back(key, rule(a, b, da, valueOf(pair.b, key)));
    }
    for (const auto& [key, db] : pair.b) {
        if (!hasKey(pair.a, key)) {
            result.emplace_back(key, rule(a, b, 0.0, db));
        }
    }
    return result;
}

Entries eachByRule(const Entries& entries, const std::function<double(double)>& rule) {
    Entries result;
    for (const auto& [key, d] : entries) {
        result.emplace_back(key, rule(d));
    }
    return result;
}

Entries expectedEntries(const BinaryRow& row, const StorePair& pair, double a, double b) {
    if (pair.a.empty()) {
        return eachByRule(pair.b, [&](double d) { return row.leftNumberEntry(a, b, 0.0, d); });
    }
    if (pair.b.empty()) {
        return eachByRule(pair.a, [&](double d) { return row.rightNumberEntry(a, b, d, 0.0); });
    }
    return unionByRule(pair, a, b, row.entry);
}

std::uint64_t expectedCapacity(const BinaryRow& row, const StorePair& pair, std::uint64_t size) {
    if (size <= 10) {
        return 0;
    }
    const bool withNumber = pair.a.empty() || pair.b.empty();
    return withNumber && row.copiesStore ? 2 * size : pair.a.size() + pair.b.size();
}

std::vector<std::size_t> sizesTo40() {
    std::vector<std::size_t> sizes;
    for (std::size_t n = 0; n <= 40; ++n) {
        sizes.push_back(n);
    }
    return sizes;
}

/// Around the sizes at which the search for keys changes its ways.
std::vector<std::size_t> longSizes() { return {63, 64, 65, 66, 128, 130, 200}; }

std::vector<std::pair<double, double>> valuesOfLongStores() {
    const double inf = std::numeric_limits<double>::infinity();
    return {{1.75, -0.5}, {-2.5, 3.0}, {0.0, 0.3}, {3.0, -0.0}, {inf, 0.75}, {0.3, inf}};
}

} // namespace

TEST(VrexVariableArithmetic, BinaryFormsFollowTheirRuleBitForBit) {
    const std::vector<StorePair> pairs = storePairs(sizesTo40());
    for (const BinaryRow& row : binaryRows()) {
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            for (const auto& [a, b] : valuePairs()) {
                const VrexVariable result = row.general(make(a, pairs[i].a), make(b, pairs[i].b));
                const Entries expected = expectedEntries(row, pairs[i], a, b);
                ASSERT_TRUE(sameResult(result, row.value(a, b), expected))
                    << row.name << " of " << a << " and " << b << ", pair " << i;
                ASSERT_EQ(result.derivatives().capacity(), expectedCapacity(row, pairs[i], expected.size()))
                    << row.name << ", pair " << i;
            }
        }
    }
}

TEST(VrexVariableArithmetic, BinaryFormsOfLongStoresFollowTheirRuleBitForBit) {
    const std::vector<StorePair> pairs = storePairs(longSizes());
    for (const BinaryRow& row : binaryRows()) {
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            for (const auto& [a, b] : valuesOfLongStores()) {
                const VrexVariable result = row.general(make(a, pairs[i].a), make(b, pairs[i].b));
                const Entries expected = expectedEntries(row, pairs[i], a, b);
                ASSERT_TRUE(sameResult(result, row.value(a, b), expected))
                    << row.name << " of " << a << " and " << b << ", pair " << i;
                ASSERT_EQ(result.derivatives().capacity(), expectedCapacity(row, pairs[i], expected.size()))
                    << row.name << ", pair " << i;
            }
        }
    }
}

TEST(VrexVariableArithmetic, FormsWithANumberFollowTheirRuleBitForBit) {
    for (const BinaryRow& row : binaryRows()) {
        for (const std::size_t n : sizesTo40()) {
            const Entries entries = run(n, 3, 1, n);
            for (const auto& values : valuePairs()) {
                const double a = values.first; // no bindings: clang 14 cannot capture them
                const double c = values.second;
                const VrexVariable right = row.rightNumber(make(a, entries), c);
                const VrexVariable left = row.leftNumber(c, make(a, entries));
                const auto ruleRight = [&](double d) { return row.rightNumberEntry(a, c, d, 0.0); };
                const auto ruleLeft = [&](double d) { return row.leftNumberEntry(c, a, 0.0, d); };
                ASSERT_TRUE(sameResult(right, row.value(a, c), eachByRule(entries, ruleRight)))
                    << row.name << " of " << a << " and the number " << c;
                ASSERT_TRUE(sameResult(left, row.value(c, a), eachByRule(entries, ruleLeft)))
                    << row.name << " of the number " << c << " and " << a;
                const std::uint64_t capacity = n <= 10 ? 0 : row.copiesStore ? 2 * n : n;
                ASSERT_EQ(right.derivatives().capacity(), capacity) << row.name;
                ASSERT_EQ(left.derivatives().capacity(), capacity) << row.name;
            }
        }
    }
}

TEST(VrexVariableArithmetic, OperandsMayBeTheSameVariable) {
    for (const BinaryRow& row : binaryRows()) {
        for (const std::size_t n : {1U, 7U, 12U}) {
            const VrexVariable a = make(1.75, run(n, 0, 3, n));
            const StorePair pair{entriesOf(a), entriesOf(a)};
            EXPECT_TRUE(
                sameResult(row.general(a, a), row.value(1.75, 1.75), expectedEntries(row, pair, 1.75, 1.75)))
                << row.name;
        }
    }
}

TEST(VrexVariableArithmetic, DifferenceWithItselfKeepsEveryKeyAtZero) {
    const VrexVariable a = make(2.0, {{4, 1.5}, {2, -3.0}, {9, 0.0}});
    EXPECT_TRUE(sameResult(a - a, 0.0, {{4, 0.0}, {2, 0.0}, {9, 0.0}}));
}

TEST(VrexVariableArithmetic, DisjointSumHoldsTheFirstOperandsKeysFirst) {
    const VrexVariable x = make(1.0, {{8, 1.0}, {3, 2.0}});
    const VrexVariable y = make(2.0, {{5, 3.0}, {1, 4.0}});
    EXPECT_TRUE(sameResult(x + y, 3.0, {{8, 1.0}, {3, 2.0}, {5, 3.0}, {1, 4.0}}));
}

TEST(VrexVariableArithmetic, AUnionOfTenKeysStaysInsideAlthoughTheSizesAddUpToMore) {
    const VrexVariable sum = make(1.0, run(8, 0, 1, 0)) + make(2.0, run(8, 2, 1, 0));
    EXPECT_EQ(sum.derivatives().size(), 10U);
    EXPECT_EQ(sum.derivatives().capacity(), 0U);
}

TEST(VrexVariableArithmetic, AUnionOfElevenKeysReservesTheSumOfTheSizes) {
    const VrexVariable sum = make(1.0, run(8, 0, 1, 0)) + make(2.0, run(8, 3, 1, 0));
    EXPECT_EQ(sum.derivatives().size(), 11U);
    EXPECT_EQ(sum.derivatives().capacity(), 16U);
}

TEST(VrexVariableArithmetic, NegationFollowsItsRuleBitForBit) {
    for (const std::size_t n : sizesTo40()) {
        const Entries entries = run(n, 3, 1, n);
        for (const double x : values()) {
            const VrexVariable result = -make(x, entries);
            ASSERT_TRUE(sameResult(result, -x, eachByRule(entries, [](double d) { return -d; })));
            ASSERT_EQ(result.derivatives().capacity(), n <= 10 ? 0 : n);
        }
    }
}

TEST(VrexVariableArithmetic, LargeUnionsAreRight) {
    for (const std::size_t n : {100U, 4000U}) {
        for (const StorePair& pair : storePairs({n})) {
            const BinaryRow& product = binaryRows()[2];
            const VrexVariable result = product.general(make(1.5, pair.a), make(-0.5, pair.b));
            EXPECT_TRUE(sameResult(result, -0.75, [&] {
                Entries expected = expectedEntries(product, pair, 1.5, -0.5);
                return expected;
            }()));
        }
    }
}

namespace {

struct CompoundRow {
    std::string name;
    std::function<void(VrexVariable&, const VrexVariable&)> apply;
    std::function<void(VrexVariable&, double)> applyNumber;
    Value value;
    Rule entry;    ///< of a key of the left store
    Rule appended; ///< of a key that only the right store has
    std::function<double(double d, double c)> numberEntry;
};

const std::vector<CompoundRow>& compoundRows() {
    static const std::vector<CompoundRow> rows{
        {"+=", [](auto& a, const auto& b) { a += b; }, [](auto& a, double c) { a += c; },
         [](double a, double b) { return a + b; }, [](double, double, double d, double db) { return d + db; },
         [](double, double, double, double db) { return db; }, [](double d, double) { return d; }},
        {"-=", [](auto& a, const auto& b) { a -= b; }, [](auto& a, double c) { a -= c; },
         [](double a, double b) { return a - b; }, [](double, double, double d, double db) { return d - db; },
         [](double, double, double, double db) { return 0.0 - db; }, [](double d, double) { return d; }},
        {"*=", [](auto& a, const auto& b) { a *= b; }, [](auto& a, double c) { a *= c; },
         [](double a, double b) { return a * b; },
         [](double a, double b, double d, double db) { return b * d + db * a; },
         [](double a, double, double, double db) { return db * a; },
         [](double d, double c) { return d * c; }},
        {"/=", [](auto& a, const auto& b) { a /= b; }, [](auto& a, double c) { a /= c; },
         [](double a, double b) { return a / b; },
         [](double a, double b, double d, double db) { return (b * d - db * a) / (b * b); },
         [](double a, double b, double, double db) { return (b * 0.0 - db * a) / (b * b); },
         [](double d, double c) { return d / c; }},
    };
    return rows;
}

Entries compoundByRule(const CompoundRow& row, const StorePair& pair, double a, double b) {
    Entries result;
    for (const auto& [key, d] : pair.a) {
        result.emplace_back(key, row.entry(a, b, d, valueOf(pair.b, key)));
    }
    for (const auto& [key, db] : pair.b) {
        if (!hasKey(pair.a, key)) {
            result.emplace_back(key, row.appended(a, b, 0.0, db));
        }
    }
    return result;
}

} // namespace

TEST(VrexVariableArithmetic, CompoundFormsFollowTheirRuleBitForBit) {
    const std::vector<StorePair> pairs = storePairs(sizesTo40());
    for (const CompoundRow& row : compoundRows()) {
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            for (const auto& [a, b] : valuePairs()) {
                VrexVariable result = make(a, pairs[i].a);
                row.apply(result, make(b, pairs[i].b));
                const Entries expected = compoundByRule(row, pairs[i], a, b);
                ASSERT_TRUE(sameResult(result, row.value(a, b), expected))
                    << a << " " << row.name << " " << b << ", pair " << i;
                ASSERT_EQ(result.derivatives().capacity(), make(a, expected).derivatives().capacity())
                    << "as by appending: " << row.name << ", pair " << i;
            }
        }
    }
}

TEST(VrexVariableArithmetic, CompoundFormsOfLongStoresFollowTheirRuleBitForBit) {
    const std::vector<StorePair> pairs = storePairs(longSizes());
    for (const CompoundRow& row : compoundRows()) {
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            for (const auto& [a, b] : valuesOfLongStores()) {
                VrexVariable result = make(a, pairs[i].a);
                row.apply(result, make(b, pairs[i].b));
                const Entries expected = compoundByRule(row, pairs[i], a, b);
                ASSERT_TRUE(sameResult(result, row.value(a, b), expected))
                    << a << " " << row.name << " " << b << ", pair " << i;
                ASSERT_EQ(result.derivatives().capacity(), make(a, expected).derivatives().capacity())
                    << "as by appending: " << row.name << ", pair " << i;
            }
        }
    }
}

TEST(VrexVariableArithmetic, ACompoundFormUpdatesTheKeysThatTheRightSideLacks) {
    for (const std::size_t n : longSizes()) {
        const Entries left{{1, 2.0}, {2, -8.0}};
        VrexVariable product = make(2.0, left);
        product *= make(4.0, run(n, 100, 1, n));
        VrexVariable quotient = make(2.0, left);
        quotient /= make(4.0, run(n, 100, 1, n));
        ASSERT_EQ(product.derivatives().size(), n + 2);
        ASSERT_EQ(quotient.derivatives().size(), n + 2);
        EXPECT_EQ(entriesOf(product)[0].second, 8.0);
        EXPECT_EQ(entriesOf(product)[1].second, -32.0);
        EXPECT_EQ(entriesOf(quotient)[0].second, 0.5);
        EXPECT_EQ(entriesOf(quotient)[1].second, -2.0);
    }
}

TEST(VrexVariableArithmetic, ASumThatGrowsKeyByKeyClearsTheSignOfZerosAtEachStep) {
    for (const std::size_t count :
         {4U, 9U, 40U}) { // inside, then on the heap, then with keys that share a bit
        VrexVariable sum(0.5);
        Entries expected;
        for (std::size_t i = 0; i < count; ++i) {
            sum += make(0.0, {{3 * i, -0.0}});
            for (auto& [key, d] : expected) {
                d = d + 0.0;
            }
            expected.emplace_back(3 * i, -0.0);
            ASSERT_TRUE(sameResult(sum, 0.5, expected)) << i;
            if (i % 3 == 1) { // makes zeros negative that are settled
                sum *= -1.0;
                sum += 1.0;
                for (auto& [key, d] : expected) {
                    d = d * -1.0;
                }
            }
        }
    }
}

TEST(VrexVariableArithmetic, KeysChangedThroughAnIteratorAreFound) {
    VrexVariable a = make(2.0, {{1, 1.0}, {2, 3.0}});
    const VrexVariable b = make(0.5, {{70, 5.0}});
    a.derivatives().begin()[1].key = 70;
    EXPECT_TRUE(sameResult(a + b, 2.5, {{1, 1.0}, {70, 8.0}}));
    EXPECT_TRUE(sameResult(b + a, 2.5, {{70, 8.0}, {1, 1.0}}));
    VrexVariable sum = a;
    sum += b;
    EXPECT_TRUE(sameResult(sum, 2.5, {{1, 1.0}, {70, 8.0}}));
    VrexVariable other = b;
    other += a;
    EXPECT_TRUE(sameResult(other, 2.5, {{70, 8.0}, {1, 1.0}}));
}

TEST(VrexVariableArithmetic, CompoundFormsWithANumberFollowTheirRuleBitForBit) {
    for (const CompoundRow& row : compoundRows()) {
        for (const std::size_t n : sizesTo40()) {
            const Entries entries = run(n, 3, 1, n);
            for (const auto& values : valuePairs()) {
                const double a = values.first; // no bindings: clang 14 cannot capture them
                const double c = values.second;
                VrexVariable result = make(a, entries);
                row.applyNumber(result, c);
                const auto rule = [&](double d) { return row.numberEntry(d, c); };
                ASSERT_TRUE(sameResult(result, row.value(a, c), eachByRule(entries, rule)))
                    << a << " " << row.name << " " << c;
                ASSERT_EQ(result.derivatives().capacity(), make(a, entries).derivatives().capacity())
                    << row.name << ", size " << n;
            }
        }
    }
}

TEST(VrexVariableArithmetic, CompoundFormsWithANumberKeepAReservedBlock) {
    for (const CompoundRow& row : compoundRows()) {
        VrexVariable result = make(1.75, run(12, 0, 3, 0));
        result.derivatives().reserve(37);
        const auto* const block = result.derivatives().begin();
        row.applyNumber(result, 0.5);
        EXPECT_EQ(result.derivatives().capacity(), 37U) << row.name;
        EXPECT_EQ(result.derivatives().begin(), block) << row.name;
    }
}

TEST(VrexVariableArithmetic, CompoundFormsTakeTheirOwnLeftSide) {
    for (const CompoundRow& row : compoundRows()) {
        for (const std::size_t n : {0U, 1U, 7U, 10U, 11U, 23U, 64U, 65U, 130U}) {
            const Entries entries = run(n, 0, 3, n);
            VrexVariable result = make(1.75, entries);
            row.apply(result, result);
            EXPECT_TRUE(sameResult(result, row.value(1.75, 1.75),
                                   compoundByRule(row, {entries, entries}, 1.75, 1.75)))
                << row.name;
        }
    }
}

TEST(VrexVariableArithmetic, DerivativesMatchDifferences) {
    const std::vector<double> inputs{1.3, 0.7, 2.1};
    expectDerivativesMatch(
        [](const auto& x) { return x[0] + x[1] - x[2] + 2.0 - (1.0 - x[0]) + (3.0 + x[2]); }, inputs, 1e-10);
    expectDerivativesMatch([](const auto& x) { return x[0] * x[1] * 2.0 * x[2] * x[0]; }, inputs, 1e-10);
    expectDerivativesMatch([](const auto& x) { return x[0] / x[1] + 2.0 / x[2] + x[1] / 4.0 - -x[0]; },
                           inputs, 1e-10);
    expectDerivativesMatch(
        [](const auto& x) {
            auto y = x[0];
            y *= x[1];
            y += x[2];
            y /= x[0];
            y -= x[1];
            y *= 3.0;
            y /= 7.0;
            return y;
        },
        inputs, 1e-10);
}

TEST(VrexVariableArithmetic, DerivativesOfManyInputsMatchDifferences) {
    std::vector<double> inputs;
    for (int i = 0; i < 40; ++i) {
        inputs.push_back(0.5 + 0.05 * i);
    }
    expectDerivativesMatch(
        [](const auto& x) {
            auto sum = x[39] * x[0];
            for (std::size_t i = 1; i < x.size(); ++i) {
                sum += x[i] * x[i - 1] / x[(i * 7) % x.size()];
            }
            return sum / (x[3] * x[20]);
        },
        inputs, 1e-9);
}
