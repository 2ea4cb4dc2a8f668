#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>

#include <gtest/gtest.h>

#include "data/VrexVariableLog.h"
#include "support/LoggingSamples.h"
#include "support/ScalarSamples.h"

using nsLoggingSamples::Inputs;
using nsLoggingSamples::named;
using nsLoggingSamples::nextTemporary;
using nsScalarSamples::make;
using enum VrexLogOperationType;

namespace {

/// The text of the failure of this kind that `action` ends in, or nothing.
template <typename Failure, typename Action>
std::optional<std::string> failureOf(const Action& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return std::nullopt;
}

} // namespace

TEST(VrexVariableLog, HypotAndErfcFailAtTheOperationThatCollapsesThem) {
    const Inputs v;
    for (const VrexVariable& unprintable : {hypot(v.a, v.b), erfc(v.a)}) {
        EXPECT_GE(unprintable.logSize(), 2U);
        for (const std::function<void()>& action : std::initializer_list<std::function<void()>>{
                 [&] { (void)(unprintable + v.a); }, [&] { (void)(v.a + unprintable); },
                 [&] { (void)(unprintable * 2.0); }, [&] { (void)sin(unprintable); },
                 [&] { (void)fmin(v.a, unprintable); },
                 [&] {
                     VrexVariable sum = v.a;
                     sum += unprintable;
                 },
                 [&] { (void)unprintable.convertLogToString(); },
                 [&] { (void)unprintable.convertLogToStringInfix(); }}) {
            EXPECT_EQ(failureOf<std::runtime_error>(action), "unexpected operation type");
        }
    }
}

TEST(VrexVariableLog, AFailedCompoundFormChangesNothing) {
    const Inputs v;
    VrexVariable sum = v.a;
    EXPECT_THROW(sum += erfc(v.b), std::runtime_error);
    EXPECT_THROW(sum -= erfc(v.b), std::runtime_error);
    EXPECT_THROW(sum *= erfc(v.b), std::runtime_error);
    EXPECT_THROW(sum /= erfc(v.b), std::runtime_error);
    EXPECT_TRUE(nsScalarSamples::sameResult(sum, 0.5, {{0, 1.0}}));
    EXPECT_EQ(sum.convertLogToString(), "[a]");
}

TEST(VrexVariableLog, TheTemporaryIsDrawnBeforeACollapseThatFails) {
    const Inputs v;
    const VrexVariable unprintable = erfc(v.a);
    struct Row {
        std::function<void()> run;
        int drawn;
    };
    const std::vector<Row> rows{
        {[&] { (void)sin(unprintable); }, 1},    {[&] { (void)floor(unprintable); }, 1},
        {[&] { (void)(unprintable + 1.0); }, 1}, {[&] { (void)(1.0 - unprintable); }, 1},
        {[&] { (void)(unprintable + v.b); }, 1}, {[&] { (void)(v.b + unprintable); }, 1},
        {[&] { (void)(unprintable * 2.0); }, 0}, {[&] { (void)fmin(v.b, unprintable); }, 0}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int before = nextTemporary(v.a);
        EXPECT_THROW(rows[i].run(), std::runtime_error) << "row " << i;
        EXPECT_EQ(nextTemporary(v.a) - before - 1, rows[i].drawn) << "row " << i;
    }
}

TEST(VrexVariableLog, HypotAndErfcWorkWhileLoggingIsOff) {
    const VrexVariable a = make(0.5, {{0, 1.0}});
    EXPECT_NO_THROW((void)sin(hypot(a, a) + erfc(a)));
}

TEST(VrexVariableLog, NamesAndPrioritiesHaveNoRowForHypotAndErfc) {
    for (const VrexLogOperationType operation : {Hypot, Erfc, static_cast<VrexLogOperationType>(39)}) {
        EXPECT_EQ(failureOf<std::runtime_error>([&] { (void)VrexVariableLog::nameOf(operation); }),
                  "unexpected operation type");
        EXPECT_EQ(failureOf<std::out_of_range>([&] { (void)VrexVariableLog::priorityOf(operation); }),
                  "invalid unordered_map<K, T> key");
    }
}

TEST(VrexVariableLog, OperationsHaveTheirNamesAndPriorities) {
    struct Row {
        std::uint32_t code;
        const char* name;
        std::uint64_t priority;
    };
    const std::vector<Row> rows{
        {0, "negate", 0},  {1, "+=", 6},      {2, "-=", 6},     {3, "*=", 6},     {4, "/=", 6},
        {5, "+", 5},       {6, "-", 4},       {7, "*", 3},      {8, "/", 2},      {9, "abs", 1},
        {10, "sign", 1},   {11, "sqrt", 1},   {12, "exp", 1},   {13, "log", 1},   {14, "pow", 1},
        {15, "cos", 1},    {16, "sin", 1},    {17, "tan", 1},   {18, "acos", 1},  {19, "asin", 1},
        {20, "atan", 1},   {21, "atan2", 1},  {22, "cosh", 1},  {23, "sinh", 1},  {24, "tanh", 1},
        {25, "square", 1}, {27, "hypot2", 1}, {28, "frac", 1},  {29, "trunc", 1}, {30, "expm1", 1},
        {31, "log1p", 1},  {32, "ceil", 1},   {33, "floor", 1}, {34, "erf", 1},   {36, "fmod", 1},
        {37, "min", 1},    {38, "max", 1}};
    for (const Row& row : rows) {
        const auto operation = static_cast<VrexLogOperationType>(row.code);
        EXPECT_STREQ(VrexVariableLog::nameOf(operation), row.name);
        EXPECT_EQ(VrexVariableLog::priorityOf(operation), row.priority) << row.name;
    }
}

TEST(VrexVariableLog, AnOperationWithoutEnoughOperandsFails) {
    VrexVariableLog empty;
    empty.appendOperation(Sin, 1);
    EXPECT_EQ(failureOf<std::runtime_error>([&] { (void)empty.toInfix(); }), "no operands before operator");
    VrexVariableLog one;
    one.appendConstant(1.0);
    one.appendOperation(Add, 2);
    EXPECT_EQ(failureOf<std::runtime_error>([&] { (void)one.toInfix(); }), "no operands before operator");
}

TEST(VrexVariableLog, CollapsingALogThatEndsInNoOperationIsABadVariant) {
    VrexVariableLog source;
    source.appendConstant(1.0);
    source.appendConstant(2.0);
    VrexVariableLog target;
    EXPECT_THROW(target.collapse(source), std::bad_variant_access);
    EXPECT_EQ(target.size(), 0U);
}

TEST(VrexVariableLog, CollapsingASingleEntrySharesIt) {
    VrexVariableLog source;
    source.appendNamedVariable("x", 1.0);
    VrexVariableLog target;
    target.collapse(source);
    target.collapse(target);
    EXPECT_EQ(target.toPrefix(), "x,x");
}
