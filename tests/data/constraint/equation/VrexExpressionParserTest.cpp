#include "data/constraint/equation/VrexExpressionParser.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/Expressions.h"
#include "support/LogCapture.h"

using nsExpressions::Vars;

namespace {

std::shared_ptr<VrexVar> var(const char* name, double value = 0.0) { return VrexVar::create(name, value); }

VrexExpressionParser make(const Vars& vars, const std::string& text) {
    VrexExpressionParser parser;
    EXPECT_TRUE(parser.setExpression(vars, text, true)) << text;
    return parser;
}

/// The only line written, at this level, by this source.
void expectLine(const LogCapture& log, std::uint32_t level, const std::string& text) {
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, level);
    EXPECT_EQ(log.lines()[0].file, "VrexExpressionParser.cpp");
    EXPECT_GT(log.lines()[0].line, 0);
    EXPECT_TRUE(log.lines()[0].text.ends_with(text)) << log.lines()[0].text;
    if (level == 2) {
        EXPECT_EQ(log.lines()[0].text, text);
    }
}

template <typename Exception, typename Function>
void expectThrow(const Function& function, const std::string& text) {
    const LogCapture log;
    try {
        function();
        FAIL() << "nothing thrown";
    } catch (const Exception& failure) {
        EXPECT_EQ(failure.what(), text);
    }
    ASSERT_FALSE(log.lines().empty());
    EXPECT_EQ(log.lines().back().level, 1U);
    EXPECT_TRUE(log.lines().back().text.ends_with("(): " + text)) << log.lines().back().text;
}

TEST(VrexExpressionParser, StartsEmpty) {
    const VrexExpressionParser parser;
    EXPECT_EQ(parser.getExpression(), "");
    EXPECT_FALSE(parser.isEquation());
    EXPECT_FALSE(parser.isExpressionContainVars());
    parser.traverse([](const std::shared_ptr<VrexExpr>&) { FAIL(); });
}

TEST(VrexExpressionParser, EvaluatesForValuesInTheOrderOfTheVariables) {
    const auto t = var("t");
    const auto u = var("u");
    VrexExpressionParser parser = make({t, u}, "t - 2 * u");
    EXPECT_EQ(parser.getExpression(), "t - 2 * u");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(parser.evaluate({7.0, 2.0}), 3.0);
        EXPECT_EQ(parser.evaluate({1.0, 5.0}), -9.0);
    }
    EXPECT_EQ(t->value(), 1.0);
    EXPECT_EQ(u->value(), 5.0);
}

TEST(VrexExpressionParser, EvaluateErasesDerivativesAndLogAndKeepsTheName) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t * t");
    for (const auto& [hasDerivatives, hasLog] : {std::pair(true, true), {true, false}, {false, true}}) {
        if (hasDerivatives) {
            t->derivatives().set(3, 1.0);
        }
        if (hasLog) {
            t->enableLog("t");
        }
        EXPECT_EQ(parser.evaluate({3.0}), 9.0);
        EXPECT_TRUE(t->derivatives().empty()) << hasLog;
        EXPECT_FALSE(t->hasLog()) << hasDerivatives;
        EXPECT_EQ(t->name, "t");
    }
    EXPECT_EQ(parser.evaluateVar({VrexVariable(2.0)}).value(), 4.0);
}

TEST(VrexExpressionParser, DifferentiableValuesKeepDerivativesAndLog) {
    const auto t = var("t");
    const auto u = var("u");
    VrexExpressionParser parser = make({t, u}, "t * u");
    std::vector<VrexVariable> values{VrexVariable(3.0), VrexVariable(4.0)};
    VrexVariable::initializeDerivatives(values);
    for (int i = 0; i < 2; ++i) {
        const VrexVariable result = parser.evaluateVar(values);
        EXPECT_EQ(result.value(), 12.0);
        EXPECT_EQ(result.derivatives()[0], 4.0);
        EXPECT_EQ(result.derivatives()[1], 3.0);
    }
    EXPECT_EQ(t->derivatives()[0], 1.0);
    values[0].enableLog("t");
    values[1].enableLog("u");
    EXPECT_EQ(parser.evaluateVar(values).convertLogToStringInfix(), "t * u");
    EXPECT_TRUE(t->hasLog());
}

TEST(VrexExpressionParser, BadTextIsToldByTheLogAtTheFirstEvaluation) {
    const auto t = var("t");
    VrexExpressionParser parser;
    const LogCapture log;
    EXPECT_TRUE(parser.setExpression({t}, "t + $", false));
    EXPECT_TRUE(log.lines().empty());
    EXPECT_THROW(static_cast<void>(parser.evaluate({1.0})), std::runtime_error);
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, "Expression parse error: valid operand expected (error in \"t + ?$\")");
    EXPECT_EQ(log.lines()[1].level, 1U);
}

TEST(VrexExpressionParser, BadTextIsToldByTheResultWhenParsedAtOnce) {
    VrexExpressionParser parser;
    const LogCapture log;
    EXPECT_FALSE(parser.setExpression({}, "%n%s", true));
    expectLine(log, 2, "Expression parse error: valid operand expected (error in \"?%n%s\")");
    EXPECT_EQ(parser.getExpression(), "%n%s");
}

TEST(VrexExpressionParser, LongTextsAreLoggedWhole) {
    VrexExpressionParser parser;
    const LogCapture log;
    const std::string name(100000, 'a');
    EXPECT_FALSE(parser.setExpression({}, name, true));
    expectLine(log, 2, "Expression parse error: undefined parameter \"" + name + "\"");
}

TEST(VrexExpressionParser, NothingIsLoggedWithoutPermission) {
    VrexExpressionParser parser;
    const LogCapture log(1);
    EXPECT_FALSE(parser.setExpression({}, "u", true));
    EXPECT_FALSE(parser.setExpression({}, "$", true));
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexExpressionParser, UndefinedParameterIsToldOnceAndCountsAsZero) {
    const auto t = var("t");
    VrexExpressionParser parser;
    {
        const LogCapture log;
        EXPECT_FALSE(parser.setExpression({t}, "t + u", true));
        expectLine(log, 2, "Expression parse error: undefined parameter \"u\"");
    }
    const LogCapture log;
    EXPECT_EQ(parser.evaluate({5.0}), 5.0);
    EXPECT_TRUE(parser.isExpressionContainVars());
    EXPECT_TRUE(log.lines().empty());
    EXPECT_FALSE(parser.setExpression({t}, "t + u", true));
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST(VrexExpressionParser, FirstUndefinedParameterOfTheAlphabetIsNamed) {
    VrexExpressionParser parser;
    const LogCapture log;
    EXPECT_FALSE(parser.setExpression({}, "zeta + beta * gamma", true));
    expectLine(log, 2, "Expression parse error: undefined parameter \"beta\"");
}

TEST(VrexExpressionParser, EvaluationWithoutATreeThrowsAndTriesAgainEachTime) {
    VrexExpressionParser parser;
    const auto t = var("t", 5.0);
    static_cast<void>(parser.setExpression({t}, "(", false));
    const std::string text = "The expression is not parsed.";
    const std::vector<VrexVariable> variables{VrexVariable(1.0)};
    expectThrow<std::runtime_error>([&] { static_cast<void>(parser.evaluate({1.0})); }, text);
    expectThrow<std::runtime_error>([&] { static_cast<void>(parser.evaluateVar(variables)); }, text);
    expectThrow<std::runtime_error>([&] { static_cast<void>(parser.evaluateDeriv({1.0}, t, 1)); }, text);
    expectThrow<std::runtime_error>([&] { static_cast<void>(parser.evaluateDerivVar(variables, t, 1)); },
                                    text);
    expectThrow<std::runtime_error>(
        [&] { static_cast<void>(parser.evaluateDerivBySeveralVars({1.0}, {t}, {1})); }, text);
    expectThrow<std::runtime_error>(
        [&] { static_cast<void>(parser.evaluateDerivVarBySeveralVars(variables, {t}, {1})); }, text);
    const LogCapture log;
    EXPECT_THROW(static_cast<void>(parser.evaluate({1.0})), std::runtime_error);
    EXPECT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(t->value(), 5.0);
    EXPECT_FALSE(parser.isEquation());
    EXPECT_FALSE(parser.isExpressionContainVars());
}

TEST(VrexExpressionParser, MoreValuesThanVariablesThrowBeforeAnyIsAssigned) {
    const auto t = var("t", 5.0);
    VrexExpressionParser parser = make({t}, "t");
    const std::string text = "There are more values than variables.";
    expectThrow<std::out_of_range>([&] { static_cast<void>(parser.evaluate({1.0, 2.0})); }, text);
    expectThrow<std::out_of_range>(
        [&] {
            static_cast<void>(parser.evaluateVar({VrexVariable(1.0), VrexVariable(2.0)}));
        },
        text);
    EXPECT_EQ(t->value(), 5.0);
    // The derivatives read what they need.
    EXPECT_EQ(parser.evaluateDeriv({1.0, 2.0}, t, 0), 1.0);
}

TEST(VrexExpressionParser, FewerValuesLeaveTheOtherVariables) {
    const auto t = var("t", 5.0);
    const auto u = var("u", 7.0);
    VrexExpressionParser parser = make({t, u}, "t + u");
    EXPECT_EQ(parser.evaluate({1.0}), 8.0);
    EXPECT_EQ(parser.evaluate({}), 8.0);
    EXPECT_EQ(parser.evaluateVar({VrexVariable(2.0)}).value(), 9.0);
}

TEST(VrexExpressionParser, FewerValuesThanVariablesThrowFromDerivatives) {
    const auto t = var("t", 5.0);
    const auto u = var("u", 7.0);
    VrexExpressionParser parser = make({t, u}, "t + u");
    const std::string text = "There are fewer values than variables.";
    const std::vector<VrexVariable> variables{VrexVariable(1.0)};
    expectThrow<std::out_of_range>([&] { static_cast<void>(parser.evaluateDeriv({1.0}, t, 1)); }, text);
    expectThrow<std::out_of_range>([&] { static_cast<void>(parser.evaluateDerivVar(variables, t, 1)); },
                                   text);
    expectThrow<std::out_of_range>(
        [&] { static_cast<void>(parser.evaluateDerivBySeveralVars({1.0}, {t}, {1})); }, text);
    expectThrow<std::out_of_range>(
        [&] { static_cast<void>(parser.evaluateDerivVarBySeveralVars(variables, {t}, {1})); }, text);
    EXPECT_EQ(t->value(), 5.0);
}

TEST(VrexExpressionParser, DerivativeOfOrderZeroIsTheValue) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t * t + 1");
    EXPECT_EQ(parser.evaluateDeriv({3.0}, t, 0), parser.evaluate({3.0}));
    EXPECT_EQ(parser.evaluateDerivVar({VrexVariable(3.0)}, t, 0).value(), 10.0);
}

TEST(VrexExpressionParser, SecondDerivativeOfASquareIsTwo) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t * t");
    EXPECT_EQ(parser.evaluateDeriv({5.0}, t, 1), 10.0);
    EXPECT_EQ(parser.evaluateDeriv({5.0}, t, 2), 2.0);
    EXPECT_EQ(parser.evaluateDeriv({5.0}, t, 3), 0.0);
    std::vector<VrexVariable> values{VrexVariable(5.0)};
    VrexVariable::initializeDerivatives(values);
    const VrexVariable slope = parser.evaluateDerivVar(values, t, 1);
    EXPECT_EQ(slope.value(), 10.0);
    EXPECT_EQ(slope.derivatives()[0], 2.0);
}

TEST(VrexExpressionParser, HugeOrdersEndAtZero) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t * t * t");
    EXPECT_EQ(parser.evaluateDeriv({5.0}, t, std::numeric_limits<std::uint64_t>::max()), 0.0);
    EXPECT_EQ(parser.evaluateDerivBySeveralVars({5.0}, {t, t}, {std::numeric_limits<int>::max(), 1}), 0.0);
}

TEST(VrexExpressionParser, DerivativesBySeveralVariablesFollowTheirOrders) {
    const auto t = var("t");
    const auto u = var("u");
    VrexExpressionParser parser = make({t, u}, "pow(t, 3) * u * u");
    const auto at = [&](const std::vector<int>& orders) {
        return parser.evaluateDerivBySeveralVars({2.0, 5.0}, {t, u}, orders);
    };
    EXPECT_EQ(at({0, 0}), 200.0);
    EXPECT_EQ(at({1, 0}), 300.0);
    EXPECT_EQ(at({0, 1}), 80.0);
    EXPECT_EQ(at({2, 1}), 120.0);
    EXPECT_EQ(at({1, 2}), 24.0);
    EXPECT_EQ(at({1}), 300.0);
    EXPECT_EQ(at({}), 200.0);
    EXPECT_EQ(at({-3, 1}), 80.0);
    EXPECT_EQ(at({1, 0, 9}), 300.0);
    std::vector<VrexVariable> values{VrexVariable(2.0), VrexVariable(5.0)};
    VrexVariable::initializeDerivatives(values);
    const VrexVariable mixed = parser.evaluateDerivVarBySeveralVars(values, {t, u}, {2, 1});
    EXPECT_EQ(mixed.value(), 120.0);
    EXPECT_EQ(mixed.derivatives()[0], 60.0);
    EXPECT_EQ(mixed.derivatives()[1], 24.0);
}

TEST(VrexExpressionParser, RoundingsAreDifferentiatedAtTheValuesGiven) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "ceil(t)");
    EXPECT_EQ(parser.evaluateDeriv({0.5}, t, 1), 1.0);
    EXPECT_EQ(parser.evaluateDeriv({2.0}, t, 1), 0.0);
    EXPECT_EQ(parser.evaluateDeriv({0.5}, t, 1), 1.0);
}

TEST(VrexExpressionParser, DerivativeByAnotherVariableIsZero) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t * t");
    EXPECT_EQ(parser.evaluateDeriv({5.0}, var("t"), 1), 0.0);
    EXPECT_EQ(parser.evaluateDeriv({5.0}, nullptr, 1), 0.0);
}

TEST(VrexExpressionParser, NullVariablesKeepTheirPlace) {
    const auto t = var("t");
    VrexExpressionParser parser = make({nullptr, t}, "t * 2");
    EXPECT_EQ(parser.evaluate({9.0, 3.0}), 6.0);
    EXPECT_EQ(parser.evaluateDeriv({9.0, 3.0}, t, 1), 2.0);
}

TEST(VrexExpressionParser, CopySharesVariablesUntilItsOwnExpression) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t + 1");
    EXPECT_EQ(parser.evaluate({1.0}), 2.0);
    VrexExpressionParser copy = parser;
    EXPECT_EQ(copy.getExpression(), "t + 1");
    EXPECT_EQ(copy.evaluate({4.0}), 5.0);
    EXPECT_EQ(t->value(), 4.0);
    std::vector<std::shared_ptr<VrexExpr>> nodes;
    parser.traverse([&](const std::shared_ptr<VrexExpr>& node) { nodes.push_back(node); });
    copy.traverse([&](const std::shared_ptr<VrexExpr>& node) {
        EXPECT_EQ(node, *nodes.begin());
        nodes.erase(nodes.begin());
    });
    EXPECT_TRUE(copy.setExpression({t}, "t * 10", true));
    EXPECT_EQ(copy.evaluate({4.0}), 40.0);
    EXPECT_EQ(copy.evaluate({5.0}), 50.0);
    EXPECT_EQ(parser.evaluate({4.0}), 5.0);
    copy = parser;
    EXPECT_EQ(copy.evaluate({6.0}), 7.0);
    copy = *&copy;
    EXPECT_EQ(copy.evaluate({7.0}), 8.0);
    const VrexExpressionParser moved = std::move(copy);
    EXPECT_EQ(moved.getExpression(), "t + 1");
}

TEST(VrexExpressionParser, NewExpressionMayStandInTheOldOne) {
    const auto t = var("t");
    VrexExpressionParser parser = make({t}, "t + 1");
    EXPECT_EQ(parser.evaluate({1.0}), 2.0);
    EXPECT_EQ(parser.evaluate({2.0}), 3.0);
    EXPECT_TRUE(parser.setExpression({t}, parser.getExpression(), true));
    EXPECT_EQ(parser.evaluate({2.0}), 3.0);
    EXPECT_TRUE(parser.setExpression({t}, "t - 1", true));
    EXPECT_EQ(parser.evaluate({2.0}), 1.0);
    EXPECT_EQ(parser.evaluateVar({VrexVariable(2.0)}).value(), 1.0);
}

TEST(VrexExpressionParser, KindOfTheTreeIsAskedOfTheRoot) {
    const auto t = var("t");
    EXPECT_TRUE(make({t}, "t = 1").isEquation());
    EXPECT_TRUE(make({t}, "t - 1").isEquation());
    EXPECT_TRUE(make({t}, "t ~ 1").isEquation());
    EXPECT_FALSE(make({t}, "t + 1").isEquation());
    EXPECT_TRUE(make({t}, "2 * sin(t)").isExpressionContainVars());
    EXPECT_FALSE(make({t}, "2 * sin(1)").isExpressionContainVars());
}

} // namespace
