#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExpr.h"
#include "support/Expressions.h"
#include "support/NaiveEvaluation.h"

using namespace nsExpressions;

// Trees as values, conditions and differentiable values.

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = 1.7976931348623157e308;

const std::vector<double>& points() {
    static const std::vector<double> values{0.0,   -0.0, 1.0, -1.0,  0.5,      -0.5,      2.0,
                                            1e-11, -3.7, 700, 1e300, INFINITY, -INFINITY, NOT_A_NUMBER};
    return values;
}

bool isSameNumber(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool isSameVariable(const VrexVariable& a, const VrexVariable& b) {
    if (!isSameNumber(a.value(), b.value()) || a.derivatives().size() != b.derivatives().size()) {
        return false;
    }
    for (std::uint64_t i = 0; i < a.derivatives().size(); ++i) {
        const auto& left = a.derivatives().begin()[i];
        const auto& right = b.derivatives().begin()[i];
        if (left.key != right.key || !isSameNumber(left.value, right.value)) {
            return false;
        }
    }
    return true;
}

double evalOf(Op op, double a, double b = 0.0) {
    const auto x = VrexVar::create("x", a);
    const auto y = VrexVar::create("y", b);
    return VrexExpr::create(op, variable(x), variable(y))->eval();
}

bool truthOf(const std::string& text) { return parsed(text, someVars())->evalBool(); }

} // namespace

TEST(VrexExprEval, EachCodeFollowsItsFormulaBitForBit) {
    std::vector<Op> ops = unaryOps();
    ops.insert(ops.end(), binaryOps().begin(), binaryOps().end());
    for (const double a : points()) {
        for (const double b : points()) {
            const auto x = VrexVar::create("x", a);
            const auto y = VrexVar::create("y", b);
            for (const Op op : ops) {
                const bool isBinary = VrexExpr::getArgumentsNumber(op) == 2;
                const Expr node = VrexExpr::create(op, variable(x), isBinary ? variable(y) : nullptr);
                ASSERT_TRUE(isSameNumber(node->eval(), nsNaive::eval(*node)))
                    << node->toString() << " at " << a << ", " << b;
            }
        }
    }
}

TEST(VrexExprEval, EachCodeFollowsItsFormulaForDifferentiableValues) {
    std::vector<Op> ops = unaryOps();
    ops.insert(ops.end(), binaryOps().begin(), binaryOps().end());
    for (const double a : points()) {
        for (const double b : points()) {
            const auto x = VrexVar::create("x", a);
            const auto y = VrexVar::create("y", b);
            x->derivatives().set(4, 0.5);
            x->derivatives().set(2, 3.0);
            y->derivatives().set(2, -1.5);
            const Expr constant = VrexExpr::create(b);
            for (const Op op : ops) {
                const bool isBinary = VrexExpr::getArgumentsNumber(op) == 2;
                for (const Expr& second : {variable(y), constant}) {
                    const Expr node = VrexExpr::create(op, variable(x), isBinary ? second : nullptr);
                    ASSERT_TRUE(isSameVariable(node->evalVar(), nsNaive::evalVar(*node)))
                        << node->toString() << " at " << a << ", " << b;
                    const Expr turned = VrexExpr::create(op, second, isBinary ? variable(x) : nullptr);
                    ASSERT_TRUE(isSameVariable(turned->evalVar(), nsNaive::evalVar(*turned)))
                        << turned->toString() << " at " << b << ", " << a;
                }
            }
        }
    }
}

TEST(VrexExprEval, DivisionByNextToNothingIsTheLargestDouble) {
    EXPECT_EQ(evalOf(Op::Div, 5.0, 0.0), LARGEST);
    EXPECT_EQ(evalOf(Op::Div, -5.0, 0.0), LARGEST);
    EXPECT_EQ(evalOf(Op::Div, 0.0, 0.0), LARGEST);
    EXPECT_EQ(evalOf(Op::Div, 1.0, -9.9e-11), LARGEST);
    EXPECT_EQ(evalOf(Op::Div, NOT_A_NUMBER, 0.0), LARGEST);
    EXPECT_EQ(evalOf(Op::Div, 1.0, 1e-10), 1.0 / 1e-10);
    EXPECT_EQ(evalOf(Op::Div, 1.0, -1e-10), 1.0 / -1e-10);
    EXPECT_TRUE(std::isnan(evalOf(Op::Div, 1.0, NOT_A_NUMBER)));
}

TEST(VrexExprEval, DifferentiableDivisionIsPlain) {
    const auto x = VrexVar::create("x", 1.0);
    EXPECT_EQ(parsed("x / 0", {x})->evalVar().value(), INFINITY);
    EXPECT_EQ(parsed("-x / 0", {x})->evalVar().value(), -INFINITY);
}

TEST(VrexExprEval, ComparisonGivesHowFarItIsViolated) {
    EXPECT_EQ(evalOf(Op::Greater, 1.0, 3.0), 4.0);
    EXPECT_EQ(evalOf(Op::Greater, 3.0, 1.0), 0.0);
    EXPECT_EQ(evalOf(Op::Less, 3.0, 1.0), 4.0);
    EXPECT_EQ(evalOf(Op::Less, 1.0, 3.0), 0.0);
    EXPECT_EQ(evalOf(Op::LessEqual, 3.0, 1.0), 4.0);
    EXPECT_EQ(evalOf(Op::LessEqual, 1.0, 3.0), 0.0);
    EXPECT_EQ(evalOf(Op::GreaterEqual, 1.0, 3.0), 4.0);
    EXPECT_EQ(evalOf(Op::GreaterEqual, 3.0, 1.0), 0.0);
    EXPECT_EQ(evalOf(Op::Equal, 1.0, 3.0), -2.0);
    EXPECT_EQ(evalOf(Op::Drag, 1.0, 3.0), -2.0);
}

TEST(VrexExprEval, SignIsZeroAtZeroButNotForDifferentiableValues) {
    EXPECT_EQ(evalOf(Op::Sign, 0.0), 0.0);
    EXPECT_EQ(evalOf(Op::Sign, -0.0), 0.0);
    EXPECT_EQ(evalOf(Op::Sign, 0.1), 1.0);
    EXPECT_EQ(evalOf(Op::Sign, -0.1), -1.0);
    EXPECT_EQ(evalOf(Op::Sign, NOT_A_NUMBER), -1.0);
    EXPECT_EQ(parsed("sign(0)")->evalVar().value(), -1.0);
}

TEST(VrexExprEval, FresnelIntegralsAreZeroAtZero) {
    EXPECT_EQ(evalOf(Op::Sfres, 0.0), 0.0);
    EXPECT_EQ(evalOf(Op::Cfres, 0.0), 0.0);
    // The differentiable sign of 0 is -1.
    const double differentiable = parsed("sfres(0)")->evalVar().value();
    EXPECT_EQ(differentiable, 0.0);
    EXPECT_TRUE(std::signbit(differentiable));
    EXPECT_FALSE(std::signbit(evalOf(Op::Sfres, 0.0)));
}

TEST(VrexExprEval, FresnelIntegralsAreNearTheTrueOnesAndOdd) {
    // S(1) and C(1), S(3) and C(3) of the tables; the approximations are good to two digits (the sine one
    // less, its denominator being the kept one).
    EXPECT_NEAR(evalOf(Op::Cfres, 1.0), 0.7799, 0.01);
    EXPECT_NEAR(evalOf(Op::Cfres, 3.0), 0.6057, 0.01);
    EXPECT_NEAR(evalOf(Op::Sfres, 3.0), 0.4963, 0.02);
    EXPECT_EQ(evalOf(Op::Sfres, -1.3), -evalOf(Op::Sfres, 1.3));
    EXPECT_EQ(evalOf(Op::Cfres, -1.3), -evalOf(Op::Cfres, 1.3));
}

TEST(VrexExprEval, OnlyTheChosenBranchIsEvaluated) {
    const Vars vars = someVars();
    const Expr tree = parsed("if(a < b, t, 1 / 0)", vars);
    EXPECT_EQ(tree->eval(), 0.5);
    EXPECT_EQ(tree->evalVar().value(), 0.5);
    // A logged hypot throws where its result is used.
    vars[2]->enableLog("t");
    vars[2]->derivatives().set(0, 1.0);
    const Expr throwing = parsed("if(a < b, 7, sin(hypot(t, t)) + t)", vars);
    EXPECT_EQ(throwing->evalVar().value(), 7.0);
    EXPECT_ANY_THROW(static_cast<void>(parsed("if(a > b, 7, sin(hypot(t, t)) + t)", vars)->evalVar()));
}

TEST(VrexExprEval, UnknownCodesAndMissingOperandsAreZero) {
    for (const std::uint32_t code : {0U, 31U, 44U, 4000000000U}) {
        const Expr node = VrexExpr::create(static_cast<Op>(code), VrexExpr::two(), VrexExpr::two());
        EXPECT_EQ(node->eval(), 0.0);
        EXPECT_EQ(node->evalVar().value(), 0.0);
        EXPECT_FALSE(node->evalBool());
        EXPECT_EQ((VrexExpr::create(Op::Add, node, VrexExpr::two()))->eval(), 2.0);
    }
    const Expr broken = VrexExpr::create(Op::Add, VrexExpr::two(), VrexExpr::two());
    broken->right = nullptr;
    EXPECT_EQ(broken->eval(), 2.0);
    EXPECT_EQ(broken->evalVar().value(), 2.0);
    EXPECT_FALSE(broken->containVars());
    EXPECT_EQ(broken->toString(), "2 + ");
    const Expr choice = ifThenElse(VrexExpr::one(), VrexExpr::one(), VrexExpr::two());
    choice->third = nullptr;
    EXPECT_EQ(choice->eval(), 0.0);
    choice->left = nullptr;
    EXPECT_FALSE(choice->evalBool());
    EXPECT_EQ(VrexExpr::create(std::shared_ptr<VrexVar>())->eval(), 0.0);
    EXPECT_EQ(VrexExpr::create(std::shared_ptr<VrexVar>())->evalVar().value(), 0.0);
}

TEST(VrexExprEval, DifferentiableVariableIsACopyWithDerivativesAndLog) {
    const auto x = VrexVar::create("x", 2.0);
    x->derivatives().set(7, 3.0);
    x->enableLog("x");
    const VrexVariable result = variable(x)->evalVar();
    EXPECT_EQ(result.value(), 2.0);
    EXPECT_EQ(result.derivatives()[7], 3.0);
    EXPECT_EQ(result.convertLogToStringInfix(), "x");
    EXPECT_EQ(parsed("sin(x) * x", {x})->evalVar().convertLogToStringInfix(), "sin(x) * x");
}

TEST(VrexExprEval, DifferentiableLogarithmToTenIsScaled) {
    const auto x = VrexVar::create("x", 1000.0);
    EXPECT_EQ(parsed("log10(x)", {x})->evalVar().value(), std::log(1000.0) * 0.4342944819032518);
    EXPECT_EQ(parsed("log10(x)", {x})->eval(), std::log10(1000.0));
}

TEST(VrexExprEval, DifferentiableComparisonAtEqualityHasTwiceTheOppositeSlope) {
    const auto x = VrexVar::create("x", 2.0);
    x->derivatives().set(0, 1.0);
    EXPECT_EQ(parsed("x > 2", {x})->evalVar().derivatives()[0], -2.0);
    EXPECT_EQ(parsed("x > 2", {x})->evalVar().value(), 0.0);
}

TEST(VrexExprEval, DifferentiableArcTangentHasItsOwnRule) {
    const auto x = VrexVar::create("x", 2.0);
    x->derivatives().set(0, 1.0);
    const Expr tree = parsed("atan(x)", {x});
    EXPECT_DOUBLE_EQ(tree->evalVar().derivatives()[0], 1.0 / std::sqrt(5.0));
    EXPECT_DOUBLE_EQ(tree->deriv(x)->eval(), 0.2);
}

TEST(VrexExprEval, DifferentiableRemainderHasItsOwnRule) {
    const auto x = VrexVar::create("x", 7.0);
    x->derivatives().set(0, 1.0);
    const Expr tree = parsed("mod(x, 4)", {x});
    EXPECT_EQ(tree->evalVar().derivatives()[0], -1.0);
    EXPECT_EQ(tree->deriv(x), VrexExpr::zero());
}

TEST(VrexExprEval, ComparisonsOfValuesAreConditions) {
    EXPECT_TRUE(truthOf("b > a"));
    EXPECT_FALSE(truthOf("a > a"));
    EXPECT_TRUE(truthOf("a < b"));
    EXPECT_FALSE(truthOf("a < a"));
    const Expr one = VrexExpr::one();
    const Expr two = VrexExpr::two();
    const Expr unknown = VrexExpr::create(NOT_A_NUMBER);
    EXPECT_TRUE(VrexExpr::create(Op::LessEqual, one, one)->evalBool());
    EXPECT_FALSE(VrexExpr::create(Op::LessEqual, two, one)->evalBool());
    EXPECT_TRUE(VrexExpr::create(Op::GreaterEqual, one, one)->evalBool());
    EXPECT_FALSE(VrexExpr::create(Op::GreaterEqual, one, two)->evalBool());
    for (const Op op : {Op::Greater, Op::Less, Op::LessEqual, Op::GreaterEqual}) {
        EXPECT_FALSE(VrexExpr::create(op, one, unknown)->evalBool());
    }
}

TEST(VrexExprEval, ArithmeticReadsAsLogic) {
    const Expr yes = VrexExpr::create(Op::Less, VrexExpr::one(), VrexExpr::two());
    const Expr no = VrexExpr::create(Op::Less, VrexExpr::two(), VrexExpr::one());
    const std::vector<std::pair<Expr, Expr>> operands{{no, no}, {no, yes}, {yes, no}, {yes, yes}};
    const std::vector<std::pair<Op, std::vector<bool>>> rows{
        {Op::Add, {false, true, true, true}},    {Op::Sub, {false, true, true, false}},
        {Op::Mul, {false, false, false, true}},  {Op::Div, {false, false, true, false}},
        {Op::Equal, {true, false, false, true}}, {Op::Drag, {true, false, false, true}},
    };
    for (const auto& [op, truths] : rows) {
        for (std::size_t i = 0; i < operands.size(); ++i) {
            const Expr tree = VrexExpr::create(op, operands[i].first, operands[i].second);
            EXPECT_EQ(tree->evalBool(), truths[i]) << static_cast<int>(op) << " " << i;
            EXPECT_EQ(VrexExpr::create(Op::Neg, tree, nullptr)->evalBool(), !truths[i]);
            EXPECT_EQ(VrexExpr::create(Op::Plus, tree, nullptr)->evalBool(), truths[i]);
            EXPECT_EQ(ifThenElse(tree, no, no)->evalBool(), truths[i]);
            EXPECT_EQ(ifThenElse(tree, VrexExpr::one(), VrexExpr::two())->eval(), truths[i] ? 1.0 : 2.0);
        }
    }
}

TEST(VrexExprEval, NumbersVariablesAndFunctionsAreFalse) {
    EXPECT_FALSE(truthOf("1"));
    EXPECT_FALSE(truthOf("a"));
    for (const Op op : unaryOps()) {
        const Expr yes = VrexExpr::create(Op::Less, VrexExpr::one(), VrexExpr::two());
        EXPECT_EQ(VrexExpr::create(op, yes, nullptr)->evalBool(), op == Op::Plus) << static_cast<int>(op);
    }
    EXPECT_FALSE(truthOf("pow(a < b, a < b)"));
    EXPECT_FALSE(truthOf("mod(a < b, a < b)"));
}

TEST(VrexExprEval, EqualityOfNumbersAsAConditionIsTrue) {
    EXPECT_EQ(parsed("if(a = b, 1, 2)", someVars())->eval(), 1.0);
    EXPECT_EQ(parsed("if(a ~ b, 1, 2)", someVars())->eval(), 1.0);
    EXPECT_EQ(parsed("if(a - b, 1, 2)", someVars())->eval(), 2.0);
}

TEST(VrexExprEval, RandomTreesGiveWhatRecursionGives) {
    const Vars vars{VrexVar::create("x", 0.7), VrexVar::create("y", -1.3), VrexVar::create("z", 2.0)};
    for (std::size_t i = 0; i < vars.size(); ++i) {
        vars[i]->derivatives().set(i, 1.0);
    }
    RandomTrees trees(5, vars);
    for (int i = 0; i < 4000; ++i) {
        const Expr tree = trees.make(i % 24);
        ASSERT_TRUE(isSameNumber(tree->eval(), nsNaive::eval(*tree))) << tree->toString();
        ASSERT_TRUE(isSameVariable(tree->evalVar(), nsNaive::evalVar(*tree))) << tree->toString();
        ASSERT_EQ(tree->evalBool(), nsNaive::evalBool(*tree)) << tree->toString();
    }
}
