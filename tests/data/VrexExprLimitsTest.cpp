#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExpr.h"
#include "data/VrexExprParser.h"
#include "support/Expressions.h"
#include "support/SmallStack.h"

using namespace nsExpressions;

// Texts and trees as deep and long as memory allows, on a small stack. What is quadratic shows as a time-out.

namespace {

constexpr int MILLION = 1000000;
constexpr int MANY = 100000;

/// Parses, prints, parses again, evaluates in each way, differentiates and destroys.
void exercise(const std::string& text, const Vars& vars, double value, const std::string& printed) {
    const Expr root = parsed(text, vars);
    EXPECT_EQ(root->eval(), value);
    EXPECT_EQ(root->evalVar().value(), value);
    EXPECT_EQ(root->evalBool(), root->op == Op::If);
    const bool hasPrinted = root->toString() == printed;
    EXPECT_TRUE(hasPrinted);
    EXPECT_EQ(root->containVars(), false);
    EXPECT_FALSE(root->isDependOn(vars.front()));
    std::size_t nodes = 0;
    VrexExpr::traverse(root, [&nodes](const std::shared_ptr<VrexExpr>&) { ++nodes; });
    EXPECT_GT(nodes, 0U);
    const Expr derivative = root->deriv(vars.front());
    ASSERT_NE(derivative, nullptr);
    EXPECT_EQ(derivative->eval(), 0.0);
}

/// The text is `read` and `rest`, between which the parser stops. Long texts stay out of the report.
void expectRefusal(const std::string& read, const std::string& message, const std::string& rest) {
    std::string expected = message;
    expected.append(" (error in \"").append(read).append(rest.empty() ? "" : "?").append(rest).append("\")");
    const bool isExpected = errorOf(read + rest) == expected;
    EXPECT_TRUE(isExpected) << message;
}

} // namespace

TEST(VrexExprLimits, MillionNestedParenthesesHaveTheirValue) {
    runOnSmallStack([] {
        exercise(repeated("(", MILLION) + std::string("1") + repeated(")", MILLION), someVars(), 1.0, "1");
    });
}

TEST(VrexExprLimits, MillionTermsAreSummed) {
    runOnSmallStack([] {
        exercise(std::string("1") + repeated("+1", MILLION - 1), someVars(), 1e6,
                 std::string("1") + repeated(" + 1", MILLION - 1));
    });
}

TEST(VrexExprLimits, MillionTermsOfAVariableAreSummedAndDifferentiated) {
    runOnSmallStack([] {
        const auto x = VrexVar::create("x", 0.5);
        x->derivatives().set(3, 1.0);
        const Expr root = parsed(std::string("x") + repeated("+x", MILLION - 1), {x});
        EXPECT_EQ(root->eval(), 5e5);
        EXPECT_EQ(root->evalVar().derivatives()[3], 1e6);
        EXPECT_TRUE(root->isDependOn(x));
        EXPECT_EQ(root->deriv(x)->eval(), 1e6);
    });
}

TEST(VrexExprLimits, FunctionsNestedDeep) {
    runOnSmallStack([] {
        exercise(repeated("sin(", MANY) + "0" + repeated(")", MANY), someVars(), 0.0,
                 repeated("sin(", MANY) + "0" + repeated(")", MANY));
    });
}

TEST(VrexExprLimits, FunctionsOfAVariableNestedDeepAreDifferentiated) {
    runOnSmallStack([] {
        const auto x = VrexVar::create("x", 0.0);
        // cos(0)^100000
        EXPECT_EQ(
            parsed(repeated("sin(", MANY) + std::string("x") + repeated(")", MANY), {x})->deriv(x)->eval(),
            1.0);
        // The root of the square.
        x->setValue(3.0);
        EXPECT_EQ(
            parsed(repeated("norm(", MANY) + std::string("x") + repeated(")", MANY), {x})->deriv(x)->eval(),
            1.0);
        x->setValue(0.5);
        // On a whole number already, from the second rounding on.
        EXPECT_EQ(parsed(repeated("ceil(", MANY) + std::string("x") + repeated(")", MANY), {x})->deriv(x),
                  VrexExpr::zero());
        EXPECT_EQ(
            parsed(repeated("floor(0.5 + ", MANY) + std::string("x") + repeated(")", MANY), {x})->eval(),
            1.0);
    });
}

TEST(VrexExprLimits, SignsNestedDeep) {
    runOnSmallStack([] {
        exercise(repeated("-(", MANY) + std::string("1") + repeated(")", MANY), someVars(), 1.0,
                 repeated("-", MANY) + "1");
        exercise(repeated("+(", MANY) + std::string("1") + repeated(")", MANY), someVars(), 1.0,
                 repeated("+", MANY) + "1");
    });
}

TEST(VrexExprLimits, RightNestedDifferences) {
    runOnSmallStack([] {
        exercise(repeated("1-(", MANY) + std::string("1") + repeated(")", MANY), someVars(), 1.0,
                 repeated("1 - (", MANY - 1) + "1 - 1" + repeated(")", MANY - 1));
    });
}

TEST(VrexExprLimits, NestedChoicesAndConditions) {
    runOnSmallStack([] {
        constexpr int DEEP = 10000;
        exercise(repeated("if(2 > 1, ", DEEP) + "7" + repeated(", 0)", DEEP), someVars(), 7.0,
                 repeated("if(2 > 1, ", DEEP) + "7" + repeated(", 0)", DEEP));
        const std::string condition = repeated("if(", DEEP) + "1 < 2" + repeated(", 3, 4)", DEEP);
        EXPECT_TRUE(parsed(condition)->evalBool());
        EXPECT_EQ(parsed(condition)->eval(), 3.0);
        const std::string either = std::string("1 > 2") + repeated(") + (1 > 2)", MANY);
        EXPECT_EQ(parsed(std::string("if(") + repeated("(", MANY) + either + " , 5, 6)")->eval(), 6.0);
    });
}

TEST(VrexExprLimits, ChainOfComparisonsIsEvaluatedOnce) {
    runOnSmallStack([] {
        const auto x = VrexVar::create("x", 1.0);
        const Expr root = parsed(std::string("x") + repeated(" > x", MANY), {x});
        // 1 > 1 gives 0, 0 > 1 gives 2, 2 > 1 gives 0, and so on.
        EXPECT_EQ(root->eval(), 2.0);
        EXPECT_NE(root->deriv(x), nullptr);
    });
}

TEST(VrexExprLimits, ManyUnknownNames) {
    runOnSmallStack([] {
        std::string text = "u0";
        for (int i = 1; i < MANY; ++i) {
            text += "+u" + std::to_string(i);
        }
        VrexExprParser parser(text);
        EXPECT_NE(parser.parse(), nullptr);
        EXPECT_EQ(parser.getNewParameters().size(), static_cast<std::size_t>(MANY));
        EXPECT_EQ(parser.getNewParameters().begin()->first, "u0");
    });
}

TEST(VrexExprLimits, LongWordsAndNumbers) {
    const std::string name = repeated("a", MILLION);
    VrexExprParser parser(name);
    ASSERT_NE(parser.parse(), nullptr);
    EXPECT_EQ(parser.getNewParameters().begin()->first.size(), name.size());
    EXPECT_EQ(parsed(repeated("9", MILLION))->eval(), INFINITY);
    EXPECT_EQ(parsed(std::string("1") + repeated(".", MILLION))->eval(), 1.0);
    EXPECT_EQ(parsed(std::string("1e") + repeated("9", MANY))->eval(), INFINITY);
    EXPECT_EQ(parsed(std::string("1e-") + repeated("9", MANY))->eval(), 0.0);
    EXPECT_EQ(parsed(std::string("0.") + repeated("0", MILLION) + "1")->eval(), 0.0);
}

TEST(VrexExprLimits, LongWrongTextsAreRefusedByTheirMessages) {
    runOnSmallStack([] {
        expectRefusal(repeated(" ", MILLION), "operand expected", "");
        expectRefusal(repeated("(", MILLION), "operand expected", "");
        expectRefusal(repeated("(", MANY) + "1" + repeated(")", MANY - 1), "\")\" expected!", "");
        expectRefusal("-", "valid operand expected", repeated("-", MILLION - 1) + "1");
        expectRefusal(repeated("if(1, ", MANY), "operand expected", "");
    });
}
