#include "data/VrexVariable.h"

#include <limits>
#include <sstream>
#include <utility>

#include "data/VrexVariableUtils.h"
#include "support/ScalarSamples.h"

using nsScalarSamples::entriesOf;
using nsScalarSamples::make;
using nsScalarSamples::run;
using nsScalarSamples::sameResult;

TEST(VrexVariable, HoldsValueDerivativesAndLogInThisOrder) {
    static_assert(sizeof(VrexVariable) == 8 + sizeof(VrexVariable::Derivatives) + 8);
    const VrexVariable variable(2.5);
    const auto* bytes = reinterpret_cast<const char*>(&variable);
    EXPECT_EQ(*reinterpret_cast<const double*>(bytes), 2.5);
    EXPECT_EQ(reinterpret_cast<const char*>(&variable.derivatives()), bytes + 8);
}

TEST(VrexVariable, DefaultIsZeroWithoutDerivativesAndLog) {
    const VrexVariable variable;
    EXPECT_TRUE(sameResult(variable, 0.0, {}));
    EXPECT_EQ(variable.logSize(), 0U);
}

TEST(VrexVariable, ConstantLikeAnotherReservesItsSizeAndHasNoDerivatives) {
    for (const auto& [count, capacity] : {std::pair{10U, 0U}, {11U, 11U}, {25U, 25U}}) {
        const VrexVariable variable(4.0, make(1.0, run(count, 0, 1, 0)));
        EXPECT_TRUE(sameResult(variable, 4.0, {}));
        EXPECT_EQ(variable.derivatives().capacity(), capacity);
        EXPECT_EQ(variable.logSize(), 0U);
    }
}

TEST(VrexVariable, VectorGivesAnEntryForEachIndexZerosIncluded) {
    const VrexVariable variable(4.0, std::vector<double>{0.0, 2.0, 0.0});
    EXPECT_TRUE(sameResult(variable, 4.0, {{0, 0.0}, {1, 2.0}, {2, 0.0}}));
}

TEST(VrexVariable, VectorOfMoreThanTenReservesExactly) {
    EXPECT_EQ(VrexVariable(0.0, std::vector<double>(10)).derivatives().capacity(), 0U);
    EXPECT_EQ(VrexVariable(0.0, std::vector<double>(11)).derivatives().capacity(), 11U);
    EXPECT_EQ(VrexVariable(0.0, std::vector<double>(33)).derivatives().capacity(), 33U);
}

TEST(VrexVariable, CopyKeepsEverything) {
    VrexVariable source = make(3.0, run(13, 0, 1, 0));
    source.enableLog("x");
    const VrexVariable copy(source);
    EXPECT_TRUE(sameResult(copy, 3.0, entriesOf(source)));
    EXPECT_EQ(copy.convertLogToString(), "[x]");
}

TEST(VrexVariable, MovedFromKeepsValueAndDerivativesAndLosesItsLog) {
    for (const std::size_t count : {3U, 13U}) {
        VrexVariable source = make(3.0, run(count, 0, 1, 0));
        source.enableLog("x");
        VrexVariable moved(std::move(source));
        EXPECT_TRUE(sameResult(source, 3.0, run(count, 0, 1, 0))); // NOLINT(bugprone-use-after-move)
        EXPECT_EQ(source.logSize(), 0U);
        EXPECT_EQ(moved.convertLogToString(), "[x]");
        VrexVariable assigned(1.0);
        assigned.enableLog("old");
        assigned = std::move(moved);
        EXPECT_TRUE(sameResult(moved, 3.0, run(count, 0, 1, 0))); // NOLINT(bugprone-use-after-move)
        EXPECT_EQ(moved.logSize(), 0U);
        EXPECT_TRUE(sameResult(assigned, 3.0, run(count, 0, 1, 0)));
        EXPECT_EQ(assigned.convertLogToString(), "[x]");
    }
}

TEST(VrexVariable, MoveAssignmentDropsTheOldLog) {
    VrexVariable target(1.0);
    target.enableLog("old");
    target = VrexVariable(2.0);
    EXPECT_EQ(target.logSize(), 0U);
}

TEST(VrexVariable, CopyAssignmentTakesOrDropsTheLog) {
    VrexVariable logging(1.0);
    logging.enableLog("x");
    const VrexVariable silent(2.0);
    VrexVariable target;
    target = logging;
    EXPECT_EQ(target.convertLogToString(), "[x]");
    target += 1.0;
    EXPECT_EQ(target.logSize(), 3U);
    EXPECT_EQ(logging.logSize(), 1U);
    target = silent;
    EXPECT_EQ(target.logSize(), 0U);
}

TEST(VrexVariable, SelfAssignmentChangesNothing) {
    VrexVariable variable = make(3.0, run(13, 0, 1, 0));
    variable.enableLog("x");
    VrexVariable& self = variable;
    variable = self;
    EXPECT_TRUE(sameResult(variable, 3.0, run(13, 0, 1, 0)));
    variable = std::move(self);
    EXPECT_TRUE(sameResult(variable, 3.0, run(13, 0, 1, 0)));
    EXPECT_EQ(variable.convertLogToString(), "[x]");
}

TEST(VrexVariable, SettingTheValueKeepsDerivativesAndTheLogsOldNumber) {
    VrexVariable variable = make(3.0, {{4, 1.0}});
    variable.enableLog("");
    variable.setValue(8.0);
    EXPECT_TRUE(sameResult(variable, 8.0, {{4, 1.0}}));
    EXPECT_EQ(variable.convertLogToString(), "[['',3]]");
}

TEST(VrexVariable, ComparisonsLookAtValuesOnly) {
    const VrexVariable small = make(1.0, {{0, 5.0}});
    const VrexVariable same = make(1.0, {{1, 7.0}});
    const VrexVariable large(2.0);
    EXPECT_TRUE(small == same);
    EXPECT_FALSE(small != same);
    EXPECT_TRUE(small < large && small <= large && small <= same && !(small < same));
    EXPECT_TRUE(large > small && large >= small && same >= small && !(same > small));
    EXPECT_TRUE(VrexVariable(0.0) == VrexVariable(-0.0));
    EXPECT_TRUE(small < 2.0 && 0.5 < small && small == 1.0);
}

TEST(VrexVariable, NaNIsUnequalToItself) {
    const VrexVariable nan(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
    EXPECT_FALSE(nan < nan || nan <= nan || nan > nan || nan >= nan);
}

TEST(VrexVariable, InitializingGivesFreshVariablesTheirOwnIndex) {
    std::vector<VrexVariable> variables(14);
    VrexVariable::initializeDerivatives(variables);
    for (std::size_t i = 0; i < variables.size(); ++i) {
        EXPECT_TRUE(sameResult(variables[i], 0.0, {{i, 1.0}}));
    }
}

TEST(VrexVariable, InitializingOverwritesTheOwnEntryAndLeavesOthers) {
    std::vector<VrexVariable> variables{make(1.0, {{7, 2.0}}), make(2.0, {{3, 4.0}, {1, 9.0}})};
    VrexVariable::initializeDerivatives(variables);
    EXPECT_TRUE(sameResult(variables[0], 1.0, {{7, 2.0}, {0, 1.0}}));
    EXPECT_TRUE(sameResult(variables[1], 2.0, {{3, 4.0}, {1, 1.0}}));
}

TEST(VrexVariable, VectorsAreWrittenOneValueALine) {
    std::ostringstream stream;
    stream << std::vector<VrexVariable>{1.5, -2.0, 0.1};
    EXPECT_EQ(stream.str(), "[\n1.5,\n-2,\n0.1\n]");
}

TEST(VrexVariable, VectorsAreWrittenInTheStreamsFormat) {
    std::ostringstream stream;
    stream.precision(3);
    stream << std::scientific << std::vector<VrexVariable>{1.5};
    EXPECT_EQ(stream.str(), "[\n1.500e+00\n]");
}

TEST(VrexVariable, AnEmptyVectorIsWrittenAsBracketsOnTwoLines) {
    std::ostringstream stream;
    stream << std::vector<VrexVariable>{};
    EXPECT_EQ(stream.str(), "[\n\n]");
}

TEST(nsVariableUtils, InitializedValueIsOfTheKindOfTheSecondArgument) {
    VrexVariable like = make(1.0, run(12, 0, 1, 0));
    like.enableLog("x");
    const VrexVariable constant = nsVariableUtils::initializeValue(2.5, like);
    EXPECT_TRUE(sameResult(constant, 2.5, {}));
    EXPECT_EQ(constant.derivatives().capacity(), 12U);
    EXPECT_EQ(constant.logSize(), 1U);
    static_assert(std::is_same_v<decltype(nsVariableUtils::initializeValue(2.5, 1.0)), double>);
    EXPECT_EQ(nsVariableUtils::initializeValue(2.5, 1.0), 2.5);
}

TEST(nsVariableUtils, ValueIsStripped) {
    EXPECT_EQ(nsVariableUtils::toValue(2.5), 2.5);
    EXPECT_EQ(nsVariableUtils::toValue(make(3.5, {{0, 1.0}})), 3.5);
}

TEST(nsVariableUtils, PlainNumbersTakeTheFunctionsOfVariables) {
    for (const double x : {0.0, -0.0, 2.75, -2.75, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(sameResult(sign(VrexVariable(x)), nsVariableUtils::sign(x), {}));
        EXPECT_TRUE(sameResult(square(VrexVariable(x)), nsVariableUtils::square(x), {}));
        EXPECT_TRUE(sameResult(frac(VrexVariable(x)), nsVariableUtils::frac(x), {}));
        EXPECT_TRUE(
            sameResult(hypot2(VrexVariable(x), VrexVariable(1.5)), nsVariableUtils::hypot2(x, 1.5), {}));
    }
    EXPECT_EQ(nsVariableUtils::sign(0.0), -1.0);
    EXPECT_EQ(nsVariableUtils::frac(-2.75), -0.75);
}
