#include <functional>
#include <new>
#include <string>

#include "data/VrexVariable.h"
#include "data/VrexVariableFusion.h"
#include "support/AllocationCounter.h"
#include "support/ScalarSamples.h"

using nsScalarSamples::Entries;
using nsScalarSamples::entriesOf;
using nsScalarSamples::make;
using nsScalarSamples::run;
using nsScalarSamples::sameResult;

namespace {

double everything(const VrexVariable& a, const VrexVariable& b) {
    VrexVariable sum =
        a + b - a * b + a / b - 2.0 + 3.0 * a - b * 0.5 + 1.0 / a - (4.0 - b) + a / 3.0 + (1.0 + b);
    sum += a;
    sum -= b;
    sum *= a;
    sum /= b;
    sum += 1.0;
    sum -= 2.0;
    sum *= 3.0;
    sum /= 4.0;
    sum += sqrt(a) + square(b) + exp(a) + expm1(a) + log(a) + log1p(a) + sin(a) + cos(a) + tan(a) + asin(a) +
           acos(a);
    sum += atan(a) + sinh(a) + cosh(a) + tanh(a) + erf(a) + erfc(a) + abs(-a) + sign(a) + frac(a);
    sum += floor(a) + ceil(a) + trunc(a) + fmin(a, b) + fmax(a, b) + hypot(a, b) + hypot2(a, b) + atan2(a, b);
    sum += pow(a, b) + pow(a, 2.0) + pow(2.0, a) + fmod(a, b);
    VrexVariable moved(std::move(sum));
    VrexVariable copy(moved);
    copy = a;
    return copy.value() + moved.value();
}

} // namespace

TEST(VrexVariableAllocation, ArithmeticOnUpToTenDerivativesAllocatesNothing) {
    for (const auto& [first, count] : {std::pair{0U, 10U}, {0U, 1U}, {3U, 7U}, {5U, 5U}}) {
        const VrexVariable a = make(0.5, run(10, 0, 1, 0));
        const VrexVariable b = make(0.25, run(count, first, 1, 1));
        const AllocationCounter counter;
        const double value = everything(a, b);
        EXPECT_EQ(counter.count(), 0U);
        EXPECT_EQ(value, value);
    }
}

TEST(VrexVariableAllocation, DisjointStoresThatFitTogetherAllocateNothing) {
    const VrexVariable a = make(0.5, run(5, 0, 1, 0));
    const VrexVariable b = make(0.25, run(5, 100, 1, 1));
    const AllocationCounter counter;
    const double value = everything(a, b);
    EXPECT_EQ(counter.count(), 0U);
    EXPECT_EQ(value, value);
}

TEST(VrexVariableAllocation, TheCounterSeesAStoreThatDoesNotFit) {
    const VrexVariable a = make(0.5, run(6, 0, 1, 0));
    const VrexVariable b = make(0.25, run(5, 100, 1, 1));
    const AllocationCounter counter;
    const VrexVariable sum = a + b;
    EXPECT_EQ(counter.count(), 1U);
    EXPECT_EQ(sum.derivatives().size(), 11U);
}

TEST(VrexVariableAllocation, TermsThatDifferInTheirLastKeyAllocateOneBlock) {
    const VrexVariable a = make(0.5, run(20, 0, 1, 0));
    const VrexVariable b = a + make(0.25, {{90, 1.0}});
    const VrexVariable c = a + make(0.25, {{91, 1.0}});
    const AllocationCounter counter;
    const VrexVariable sum = nsVariableFusion::linearCombination(1.0, {{b, 2.0}, {c, 3.0}});
    EXPECT_EQ(counter.count(), 1U);
    EXPECT_EQ(sum.derivatives().size(), 22U);
    EXPECT_EQ(sum.derivatives().capacity(), 22U);
}

TEST(VrexVariableAllocation, ArithmeticOnLongStoresAllocatesOneBlockForEachResult) {
    const VrexVariable a = make(0.5, run(30, 0, 1, 0));
    const VrexVariable b = make(0.25, run(30, 0, 1, 1));
    const AllocationCounter counter;
    const VrexVariable product = a * b;
    const VrexVariable root = sqrt(a);
    EXPECT_EQ(counter.count(), 2U);
    EXPECT_EQ(product.derivatives().size() + root.derivatives().size(), 60U);
}

namespace {

struct State {
    double value;
    Entries entries;
    std::string log;
};

State stateOf(const VrexVariable& variable) {
    return {variable.value(), entriesOf(variable), variable.convertLogToString()};
}

void expectState(const VrexVariable& variable, const State& expected, const std::string& where) {
    EXPECT_TRUE(sameResult(variable, expected.value, expected.entries)) << where;
    EXPECT_EQ(variable.convertLogToString(), expected.log) << where;
}

using Action = std::function<void(VrexVariable& target, const VrexVariable& right)>;

/// Lets `action` fail at its first allocation, its second, ... until it passes; gives how often it failed.
/// Each failure must leave the target as it was.
std::size_t failAtEach(const Action& action, const VrexVariable& start, const VrexVariable& right,
                       const std::string& name) {
    VrexVariable wanted = start;
    action(wanted, right);
    const State before = stateOf(start);
    const State after = stateOf(wanted);
    for (std::size_t allowed = 0;; ++allowed) {
        VrexVariable target = start;
        bool failed = false;
        try {
            const AllocationLimit limit(allowed);
            action(target, right);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        const std::string where = name + " after allocation " + std::to_string(allowed);
        expectState(target, failed ? before : after, where);
        if (!failed) {
            return allowed;
        }
    }
}

struct ActionRow {
    std::string name;
    Action action;
};

std::vector<ActionRow> assignments() {
    return {{"+=", [](VrexVariable& target, const VrexVariable& right) { target += right; }},
            {"-=", [](VrexVariable& target, const VrexVariable& right) { target -= right; }},
            {"*=", [](VrexVariable& target, const VrexVariable& right) { target *= right; }},
            {"/=", [](VrexVariable& target, const VrexVariable& right) { target /= right; }},
            {"=", [](VrexVariable& target, const VrexVariable& right) { target = right; }}};
}

VrexVariable logged(VrexVariable variable, const char* name) {
    variable.enableLog(name);
    return variable;
}

} // namespace

TEST(VrexVariableAllocation, AnAssignmentThatRunsOutOfMemoryChangesNothing) {
    for (const std::size_t n : {8U, 20U, 80U}) {
        const VrexVariable left = make(0.5, run(n, 0, 1, 0));
        const VrexVariable right = make(0.25, run(3 * n, n / 2, 1, 1)); // more than a copy of `left` holds
        const VrexVariable loggedRight = logged(right, "right") * 2.0;
        for (const auto& [name, action] : assignments()) {
            const std::string where = name + " of " + std::to_string(n);
            EXPECT_GE(failAtEach(action, left, right, where), 1U) << where;
            EXPECT_GE(failAtEach(action, logged(left, "left"), loggedRight, where), 2U) << where;
            failAtEach(action, logged(left, "left"), right, where);
            failAtEach(action, left, loggedRight, where);
        }
    }
}

TEST(VrexVariableAllocation, ACompoundFormWithANumberThatRunsOutOfMemoryChangesNothing) {
    const VrexVariable left = logged(make(0.5, run(12, 0, 1, 0)), "left");
    const std::vector<ActionRow> rows{
        {"+=", [](VrexVariable& target, const VrexVariable& right) { target += right.value(); }},
        {"-=", [](VrexVariable& target, const VrexVariable& right) { target -= right.value(); }},
        {"*=", [](VrexVariable& target, const VrexVariable& right) { target *= right.value(); }},
        {"/=", [](VrexVariable& target, const VrexVariable& right) { target /= right.value(); }}};
    for (const auto& [name, action] : rows) {
        EXPECT_GE(failAtEach(action, left, VrexVariable(0.25), name), 3U) << name;
    }
}

TEST(VrexVariableAllocation, ALogGrowsByFewAllocationsOfItsSequence) {
    VrexVariable sum = logged(make(0.5, run(2, 0, 1, 0)), "sum");
    const AllocationCounter counter;
    for (int i = 0; i < 1000; ++i) {
        sum += 1.0;
    }
    EXPECT_EQ(sum.logSize(), 2001U);
    EXPECT_LT(counter.count(), 1000U * 5 + 20); // two entries and their own short sequence for each step
}
