#include "data/constraint/equation/VrexExpressionEquation.h"

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/ExpectDerivativesMatch.h"
#include "support/LogCapture.h"

namespace {

using testing::ElementsAre;
using enum VrexEquationConditionType;
using Args = std::vector<VrexVariable>;

std::shared_ptr<VrexGeometryVariable> makeVariable(double value) {
    static std::uint64_t lastId = 0;
    auto variable = VrexGeometryVariable::create(value);
    variable->setID(++lastId);
    return variable;
}

/// Over a = 3 and b = 5.
std::shared_ptr<VrexExpressionEquation> makeEquation(const std::string& text) {
    return VrexExpressionEquation::create({{makeVariable(3.0), 0, "a"}, {makeVariable(5.0), 0, "b"}},
                                          equalToZero, text);
}

std::vector<std::string> texts(const LogCapture& log) {
    std::vector<std::string> texts;
    for (const auto& line : log.lines()) {
        EXPECT_EQ(line.level, 2U);
        texts.push_back(line.text);
    }
    return texts;
}

TEST(VrexExpressionEquation, ArgumentsAreTheDescriptorsInOrder) {
    const auto equation = makeEquation("a - 2 * b");
    ASSERT_NE(equation, nullptr);
    EXPECT_EQ(equation->expression(), "a - 2 * b");
    EXPECT_EQ(equation->evaluate({10.0, 1.5}).value(), 7.0);
    EXPECT_EQ(equation->evaluate({1.5, 10.0}).value(), -18.5);
}

TEST(VrexExpressionEquation, DerivativesAreThoseOfTheFunction) {
    const auto equation = VrexExpressionEquation::create(
        {{makeVariable(0.0), 0, "r"}, {makeVariable(0.0), 0, "t"}, {makeVariable(0.0), 0, "z"}}, equalToZero,
        "r * sin(t) + sqrt(r * r + z * z) - z * cos(t) / r");
    ASSERT_NE(equation, nullptr);
    const auto function = [&](const auto& v) {
        if constexpr (std::is_same_v<std::decay_t<decltype(v)>, Args>) {
            return equation->evaluate(v);
        } else {
            return v[0] * std::sin(v[1]) + std::sqrt(v[0] * v[0] + v[2] * v[2]) -
                   v[2] * std::cos(v[1]) / v[0];
        }
    };
    expectDerivativesMatch(function, {0.7, 0.4, -1.3}, 1e-9); // the difference's own error
}

TEST(VrexExpressionEquation, TextWithoutVariablesIsRefusedButStoredAndEvaluated) {
    EXPECT_EQ(makeEquation("2 + 3"), nullptr);
    const auto equation = VrexExpressionEquation::create(equalToZero);
    EXPECT_FALSE(equation->setExpression("2 + 3"));
    EXPECT_EQ(equation->expression(), "2 + 3");
    EXPECT_EQ(equation->evaluate({}).value(), 5.0);
}

TEST(VrexExpressionEquation, TextThatIsNoExpressionIsRefusedAndStored) {
    const LogCapture log;
    EXPECT_EQ(makeEquation("a +"), nullptr);
    EXPECT_EQ(log.lines().size(), 1U);
    const auto equation = makeEquation("a + b");
    EXPECT_FALSE(equation->setExpression("a +"));
    EXPECT_EQ(equation->expression(), "a +");
    EXPECT_THROW(static_cast<void>(equation->evaluate({1.0, 2.0})), std::runtime_error);
    EXPECT_TRUE(equation->setExpression("a * b"));
    EXPECT_EQ(equation->evaluate({2.0, 4.0}).value(), 8.0);
}

TEST(VrexExpressionEquation, EmptyTextIsRefused) {
    EXPECT_EQ(makeEquation(""), nullptr);
    EXPECT_THROW(static_cast<void>(VrexExpressionEquation::create(equalToZero)->evaluate({})),
                 std::runtime_error);
}

TEST(VrexExpressionEquation, UnknownNameIsRefusedAndCountsAsZero) {
    const LogCapture log;
    EXPECT_EQ(makeEquation("a + c"), nullptr);
    const auto equation = makeEquation("a + b");
    EXPECT_FALSE(equation->setExpression("a + c"));
    EXPECT_THAT(texts(log), ElementsAre("Expression parse error: undefined parameter \"c\"",
                                        "Expression parse error: undefined parameter \"c\""));
    EXPECT_EQ(equation->evaluate({4.0, 100.0}).value(), 4.0);
}

TEST(VrexExpressionEquation, MissingArgumentsAreThePresentValuesOfTheParameters) {
    const auto equation = makeEquation("100 * a + b");
    EXPECT_EQ(equation->evaluate({}).value(), 305.0);
    EXPECT_EQ(equation->evaluate({1.0}).value(), 105.0);
}

TEST(VrexExpressionEquation, MoreArgumentsThanDescriptorsDoNotFit) {
    const auto equation = makeEquation("a + b");
    EXPECT_THROW(static_cast<void>(equation->evaluate({1.0, 2.0, 3.0})), std::out_of_range);
    EXPECT_EQ(equation->evaluate({}).value(), 8.0);
}

TEST(VrexExpressionEquation, SetDescriptorsRebuildsTheTreeOverTheNewVariables) {
    const auto equation = makeEquation("a - 2 * b");
    const auto descriptors = equation->descriptors();
    equation->setDescriptors({descriptors[1], descriptors[0]});
    EXPECT_EQ(equation->evaluate({10.0, 1.5}).value(), 1.5 - 20.0);
    equation->setDescriptors({{makeVariable(7.0), 0, "b"}, {makeVariable(9.0), 0, "a"}});
    EXPECT_EQ(equation->evaluate({}).value(), -5.0);
    EXPECT_EQ(equation->expression(), "a - 2 * b");
}

TEST(VrexExpressionEquation, NameMissingFromNewDescriptorsIsToldByTheLogAlone) {
    const auto equation = makeEquation("a - 2 * b");
    const LogCapture log;
    equation->setDescriptors({equation->descriptors()[0]});
    EXPECT_THAT(texts(log), ElementsAre("Expression parse error: undefined parameter \"b\""));
    EXPECT_EQ(equation->expression(), "a - 2 * b");
    EXPECT_EQ(equation->evaluate({6.0}).value(), 6.0);
}

TEST(VrexExpressionEquation, ParameterThatIsNotThereReadsAsZero) {
    const auto point = VrexPoint3D::create(1.0, 2.0, 3.0);
    const auto equation =
        VrexExpressionEquation::create({{point, 2, "z"},
                                        {point, 3, "beyond"},
                                        {nullptr, 0, "nothing"},
                                        {VrexExpressionEquation::create(unknown), 0, "none"}},
                                       equalToZero, "z + beyond + nothing + none");
    ASSERT_NE(equation, nullptr);
    EXPECT_EQ(equation->evaluate({}).value(), 3.0);
}

TEST(VrexExpressionEquation, CopyHasVariablesAndTreeOfItsOwn) {
    const auto equation = makeEquation("100 * a + b");
    const auto copy = std::static_pointer_cast<VrexExpressionEquation>(equation->makeCopy());
    EXPECT_EQ(copy->expression(), "100 * a + b");
    EXPECT_EQ(copy->conditionType(), equalToZero);
    EXPECT_EQ(copy->evaluate({1.0, 2.0}).value(), 102.0);
    EXPECT_EQ(equation->evaluate({}).value(), 305.0);
    copy->setExpression("a");
    EXPECT_EQ(equation->evaluate({2.0, 3.0}).value(), 203.0);
}

TEST(VrexExpressionEquation, CopyReadsThePresentValues) {
    const auto equation = makeEquation("100 * a + b");
    VrexVariableDescriptor first = equation->descriptors()[0];
    first.setValue(8.0);
    const auto copy = std::static_pointer_cast<VrexExpressionEquation>(equation->makeCopy());
    EXPECT_EQ(copy->evaluate({}).value(), 805.0);
    EXPECT_EQ(equation->evaluate({}).value(), 305.0);
}

TEST(VrexExpressionEquation, TextWithUnknownNamesIsLoggedAtEachBackup) {
    const auto equation = makeEquation("a + b");
    equation->setExpression("a + c");
    const LogCapture log;
    equation->backup();
    equation->backup();
    EXPECT_EQ(texts(log).size(), 2U);
}

TEST(VrexExpressionEquation, UpdateTakesTheTextOverTheOwnDescriptors) {
    const auto equation = makeEquation("a + b");
    const auto other = VrexExpressionEquation::create(
        {{makeVariable(1.0), 0, "b"}, {makeVariable(2.0), 0, "a"}}, lessThanZero, "a - b");
    const auto before = equation->descriptors()[0].object();
    equation->updateFrom(other);
    EXPECT_EQ(equation->conditionType(), lessThanZero);
    EXPECT_EQ(equation->expression(), "a - b");
    EXPECT_EQ(equation->descriptors()[0].object(), before);
    EXPECT_EQ(equation->evaluate({}).value(), 3.0 - 5.0);
    EXPECT_EQ(equation->evaluate({10.0, 4.0}).value(), 6.0);
    EXPECT_EQ(other->evaluate({10.0, 4.0}).value(), -6.0);
}

TEST(VrexExpressionEquation, UpdateFromItselfKeepsAllAndLogsNothing) {
    const auto equation = makeEquation("a - b");
    const LogCapture log;
    equation->updateFrom(equation);
    EXPECT_EQ(equation->evaluate({10.0, 4.0}).value(), 6.0);
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexExpressionEquation, RestoreBringsTextAndDescriptorsBack) {
    const auto equation = makeEquation("a - b");
    equation->backup();
    equation->setDescriptors({{makeVariable(1.0), 0, "x"}});
    equation->setExpression("x * 2");
    equation->restore();
    EXPECT_EQ(equation->expression(), "a - b");
    EXPECT_EQ(equation->evaluate({}).value(), -2.0);
    EXPECT_EQ(equation->evaluate({10.0, 4.0}).value(), 6.0);
}

TEST(VrexExpressionEquation, TraverseVisitsTheTree) {
    int visited = 0;
    const auto count = [&visited](const std::shared_ptr<VrexExpr>& node) {
        visited += node != nullptr ? 1 : 0;
    };
    makeEquation("a + b")->traverse(count);
    EXPECT_EQ(visited, 3);
    VrexExpressionEquation::create(equalToZero)->traverse(count);
    EXPECT_EQ(visited, 3);
}

} // namespace
