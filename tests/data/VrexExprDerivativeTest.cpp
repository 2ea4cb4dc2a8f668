#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExpr.h"
#include "support/Expressions.h"

using namespace nsExpressions;

// Derivatives as trees.

namespace {

struct Row {
    const char* text;
    const char* derivative; ///< By x, as it prints.
    double at;              ///< Where it is compared with a difference, 0 for nowhere.
};

/// u and v are functions of x alone, so that no factor is simplified away.
const std::vector<Row>& rows() {
    static const std::vector<Row> table{
        {"7", "0", 0},
        {"y", "0", 0},
        {"x", "1", 0.3},
        {"-sin(x)", "-cos(x)", 0.3},
        {"+sin(x)", "cos(x)", 0.3},
        {"sin(x) + exp(x)", "cos(x) + exp(x)", 0.3},
        {"sin(x) - exp(x)", "cos(x) - exp(x)", 0.3},
        {"sin(x) = exp(x)", "cos(x) - exp(x)", 0.3},
        {"sin(x) ~ exp(x)", "cos(x) - exp(x)", 0.3},
        {"sin(x) * exp(x)", "cos(x) * exp(x) + sin(x) * exp(x)", 0.3},
        {"sin(x) / exp(x)", "(cos(x) * exp(x) - sin(x) * exp(x)) / sqr(exp(x))", 0.3},
        {"sqr(sin(x))", "2 * cos(x) * sin(x)", 0.3},
        {"sqrt(sin(x))", "cos(x) / (2 * sqrt(sin(x)))", 0.3},
        {"abs(sin(x))", "sign(sin(x)) * cos(x)", 0.3},
        {"abs(sin(x))", "sign(sin(x)) * cos(x)", -0.3},
        {"cos(exp(x))", "-sin(exp(x)) * exp(x)", 0.3},
        {"sin(exp(x))", "cos(exp(x)) * exp(x)", 0.3},
        {"acos(sin(x))", "-cos(x) / sqrt(1 - sqr(sin(x)))", 0.3},
        {"asin(cos(x))", "-sin(x) / sqrt(1 - sqr(cos(x)))", 0.3},
        {"atan2(sin(x), exp(x))", "(cos(x) * exp(x) - sin(x) * exp(x)) / (sqr(sin(x)) + sqr(exp(x)))", 0.3},
        {"cosh(sin(x))", "sinh(sin(x)) * cos(x)", 0.3},
        {"sinh(sin(x))", "cosh(sin(x)) * cos(x)", 0.3},
        {"exp(sin(x))", "exp(sin(x)) * cos(x)", 0.3},
        {"sfres(sin(x))", "sin(pi * sqr(sin(x)) / 2) * cos(x)", 0},
        {"cfres(sin(x))", "cos(pi * sqr(sin(x)) / 2) * cos(x)", 0},
        {"sin(x) > exp(x)", "sign(sin(x) - exp(x)) * (cos(x) - exp(x)) - (cos(x) - exp(x))", 0.3},
        {"exp(x) > sin(x)", "sign(exp(x) - sin(x)) * (exp(x) - cos(x)) - (exp(x) - cos(x))", 0.3},
        {"sin(x) < exp(x)", "sign(sin(x) - exp(x)) * (cos(x) - exp(x)) - (exp(x) - cos(x))", 0.3},
        {"exp(x) < sin(x)", "sign(exp(x) - sin(x)) * (exp(x) - cos(x)) - (cos(x) - exp(x))", 0.3},
        {"if(x > 0, sin(x), exp(x))", "if(x > 0, cos(x), exp(x))", 0.3},
        {"if(x > 0, sin(x), exp(x))", "if(x > 0, cos(x), exp(x))", -0.3},
        {"sign(sin(x))", "0", 0.3},
        {"norm(sin(x))", "sign(abs(sin(x))) * cos(x)", 0.3},
        {"tanh(sin(x))", "cos(x) / sqr(cosh(sin(x)))", 0.3},
        {"pow(sin(x), exp(x))",
         "ln(sin(x)) * pow(sin(x), exp(x)) * exp(x) + pow(sin(x), exp(x) - 1) * exp(x) * cos(x)", 0.3},
        {"pow(sin(x), 3)", "pow(sin(x), 3 - 1) * 3 * cos(x)", 0.3},
        {"pow(sin(x), 2)", "pow(sin(x), 2 - 1) * 2 * cos(x)", -0.3},
        {"pow(3, sin(x))", "ln(3) * pow(3, sin(x)) * cos(x)", 0.3},
        {"tan(sin(x))", "cos(x) / sqr(cos(sin(x)))", 0.3},
        {"atan(sin(x))", "cos(x) / (sqr(sin(x)) + 1)", 0.3},
        {"expm1(sin(x))", "exp(sin(x)) * cos(x)", 0.3},
        {"hypot(sin(x), exp(x))",
         "sin(x) * cos(x) / sqrt(sqr(sin(x)) + sqr(exp(x))) + "
         "exp(x) * exp(x) / sqrt(sqr(sin(x)) + sqr(exp(x)))",
         0.3},
        {"ln(sin(x))", "cos(x) / sin(x)", 0.3},
        {"log10(sin(x))", "cos(x) / (2.302585092994046 * sin(x))", 0.3},
        {"log1p(sin(x))", "cos(x) / (1 + sin(x))", 0.3},
        {"mod(sin(x), exp(x))", "0", 0.3},
    };
    return table;
}

/// The five-point central difference.
double slope(const Expr& tree, const std::shared_ptr<VrexVar>& x) {
    const double at = x->value();
    const double step = 1e-3;
    const auto value = [&](double steps) {
        x->setValue(at + steps * step);
        return tree->eval();
    };
    const double result = (8.0 * (value(1) - value(-1)) - (value(2) - value(-2))) / (12.0 * step);
    x->setValue(at);
    return result;
}

std::size_t countNodes(const Expr& root) {
    std::set<const VrexExpr*> seen;
    std::vector<Expr> pending{root};
    while (!pending.empty()) {
        const Expr node = pending.back();
        pending.pop_back();
        if (node != nullptr && seen.insert(node.get()).second) {
            pending.insert(pending.end(), {node->left, node->right, node->third});
        }
    }
    return seen.size();
}

} // namespace

TEST(VrexExprDerivative, EachRuleGivesItsTree) {
    const auto x = VrexVar::create("x", 0.3);
    const auto y = VrexVar::create("y", 0.7);
    for (const Row& row : rows()) {
        EXPECT_EQ(parsed(row.text, {x, y})->deriv(x)->toString(), row.derivative) << row.text;
    }
}

TEST(VrexExprDerivative, EachRuleAgreesWithADifference) {
    const auto x = VrexVar::create("x", 0.0);
    const auto y = VrexVar::create("y", 0.7);
    for (const Row& row : rows()) {
        if (row.at == 0.0 || std::string(row.text).starts_with("mod")) {
            continue; // The remainder has derivative 0 by design.
        }
        x->setValue(row.at);
        const Expr tree = parsed(row.text, {x, y});
        const double expected = slope(tree, x);
        EXPECT_NEAR(tree->deriv(x)->eval(), expected, 1e-9 * std::max(1.0, std::fabs(expected)))
            << row.text << " at " << row.at;
    }
}

TEST(VrexExprDerivative, ComparisonsThatNoTextHasAreDifferentiatedAsTheStrictOnes) {
    const auto x = VrexVar::create("x", 0.3);
    const Expr low = sin(variable(x));
    const Expr high = exp(variable(x));
    const auto derivativeOf = [&](Op op, const Expr& a, const Expr& b) {
        return VrexExpr::create(op, a, b)->deriv(x);
    };
    EXPECT_EQ(derivativeOf(Op::GreaterEqual, low, high)->toString(),
              "sign(sin(x) - exp(x)) * (cos(x) - exp(x)) - (cos(x) - exp(x))");
    EXPECT_EQ(derivativeOf(Op::LessEqual, low, high)->toString(),
              "sign(sin(x) - exp(x)) * (cos(x) - exp(x)) - (exp(x) - cos(x))");
    // Where they are violated 2 (b - a) and 2 (a - b), else 0.
    const double slope = 2.0 * (std::exp(0.3) - std::cos(0.3));
    EXPECT_DOUBLE_EQ(derivativeOf(Op::GreaterEqual, low, high)->eval(), slope);
    EXPECT_EQ(derivativeOf(Op::GreaterEqual, high, low)->eval(), 0.0);
    EXPECT_DOUBLE_EQ(derivativeOf(Op::LessEqual, high, low)->eval(), slope);
    EXPECT_EQ(derivativeOf(Op::LessEqual, low, high)->eval(), 0.0);
}

TEST(VrexExprDerivative, NormHasTheDerivativeOfItsOperandButAtZero) {
    const auto x = VrexVar::create("x", -2.0);
    const Expr tree = parsed("norm(x)", {x});
    EXPECT_EQ(tree->eval(), -2.0);
    EXPECT_EQ(tree->deriv(x)->eval(), 1.0);
    EXPECT_EQ(parsed("norm(3 * x)", {x})->deriv(x)->eval(), 3.0);
    x->setValue(0.0);
    EXPECT_EQ(tree->deriv(x)->eval(), 0.0);
}

TEST(VrexExprDerivative, FresnelIntegralsHaveTheExactIntegrand) {
    const auto x = VrexVar::create("x", 0.8);
    EXPECT_DOUBLE_EQ(parsed("sfres(x)", {x})->deriv(x)->eval(), std::sin(M_PI * 0.64 / 2));
    EXPECT_DOUBLE_EQ(parsed("cfres(x)", {x})->deriv(x)->eval(), std::cos(M_PI * 0.64 / 2));
}

TEST(VrexExprDerivative, RoundingTakesASignFromThePresentValue) {
    const auto x = VrexVar::create("x", 0.25);
    const Expr up = parsed("ceil(x)", {x});
    const Expr down = parsed("floor(x)", {x});
    EXPECT_EQ(up->deriv(x), VrexExpr::one());
    EXPECT_EQ(down->deriv(x), VrexExpr::mOne());
    x->setValue(3.0);
    EXPECT_EQ(up->deriv(x), VrexExpr::zero());
    EXPECT_EQ(down->deriv(x), VrexExpr::zero());
    x->setValue(0.25);
    EXPECT_EQ(parsed("ceil(sin(x))", {x})->deriv(x)->toString(), "cos(x)");
    EXPECT_EQ(parsed("floor(sin(x))", {x})->deriv(x)->toString(), "-cos(x)");
}

TEST(VrexExprDerivative, RoundingGoesStaleWithItsVariable) {
    const auto x = VrexVar::create("x", 0.25);
    const Expr derivative = parsed("ceil(x) * x", {x})->deriv(x);
    EXPECT_EQ(derivative->eval(), 0.25 + 1.0);
    x->setValue(1.0);
    EXPECT_EQ(derivative->eval(), 1.0 + 1.0); // x still counts, though it lies on the number now
}

TEST(VrexExprDerivative, NestedRoundingsSeeTheInnerOnes) {
    const auto x = VrexVar::create("x", 0.25);
    // floor(x) = 0 and ceil(0) - 0 = 0.
    EXPECT_EQ(parsed("ceil(floor(x))", {x})->deriv(x), VrexExpr::zero());
    EXPECT_EQ(parsed("ceil(floor(x) + 0.5)", {x})->deriv(x), VrexExpr::mOne());
}

TEST(VrexExprDerivative, VariableIsTheVeryOne) {
    const auto x = VrexVar::create("x", 0.3);
    const auto namesake = VrexVar::create("x", 0.3);
    const Expr tree = parsed("x * x", {x});
    EXPECT_EQ(tree->deriv(x)->eval(), 0.6);
    EXPECT_EQ(tree->deriv(namesake), VrexExpr::zero());
    EXPECT_EQ(tree->deriv(nullptr), VrexExpr::zero());
    EXPECT_EQ(VrexExpr::create(std::shared_ptr<VrexVar>())->deriv(nullptr), VrexExpr::zero());
}

TEST(VrexExprDerivative, PowerOfAConstantExponentLosesItsLogarithm) {
    const auto x = VrexVar::create("x", -2.0);
    EXPECT_EQ(parsed("pow(x, 3)", {x})->deriv(x)->eval(), 12.0);
    EXPECT_TRUE(std::isnan(parsed("pow(x, x + 5)", {x})->deriv(x)->eval()));
}

TEST(VrexExprDerivative, ConditionIsKeptAsItIs) {
    const auto x = VrexVar::create("x", 0.3);
    const Expr tree = parsed("if(x > 0, x * x, x)", {x});
    const Expr derivative = tree->deriv(x);
    EXPECT_EQ(derivative->op, Op::If);
    EXPECT_EQ(derivative->left, tree->left);
}

TEST(VrexExprDerivative, CodesWithoutARuleHaveNone) {
    const auto x = VrexVar::create("x", 0.3);
    const Expr leaf = variable(x);
    for (const std::uint32_t code : {0U, 31U, 44U, 77777U}) {
        const Expr node = VrexExpr::create(static_cast<Op>(code), leaf, leaf);
        EXPECT_EQ(node->deriv(x), nullptr);
        for (const Op op : unaryOps()) {
            const Expr parent = VrexExpr::create(op, node, nullptr);
            EXPECT_EQ(parent->deriv(x), op == Op::Sign ? VrexExpr::zero() : nullptr) << static_cast<int>(op);
        }
        for (const Op op : binaryOps()) {
            const Expr expected = op == Op::Mod ? VrexExpr::zero() : nullptr;
            EXPECT_EQ(VrexExpr::create(op, node, leaf)->deriv(x), expected) << static_cast<int>(op);
            EXPECT_EQ(VrexExpr::create(op, leaf, node)->deriv(x), expected) << static_cast<int>(op);
        }
        EXPECT_EQ(ifThenElse(leaf, node, leaf)->deriv(x), nullptr);
        EXPECT_EQ(ifThenElse(leaf, leaf, node)->deriv(x), nullptr);
        EXPECT_NE(ifThenElse(node, leaf, leaf)->deriv(x), nullptr);
    }
}

TEST(VrexExprDerivative, MissingOperandHasNone) {
    const auto x = VrexVar::create("x", 0.3);
    std::vector<Op> ops = unaryOps();
    ops.insert(ops.end(), binaryOps().begin(), binaryOps().end());
    for (const Op op : ops) {
        const Expr node = VrexExpr::create(op, variable(x), variable(x));
        (VrexExpr::getArgumentsNumber(op) == 1 ? node->left : node->right) = nullptr;
        const bool isFlat = op == Op::Sign || op == Op::Mod;
        EXPECT_EQ(node->deriv(x), isFlat ? VrexExpr::zero() : nullptr) << static_cast<int>(op);
    }
    for (const auto operand : {&VrexExpr::left, &VrexExpr::right, &VrexExpr::third}) {
        const Expr choice = ifThenElse(variable(x), variable(x), variable(x));
        (*choice).*operand = nullptr;
        EXPECT_EQ(choice->deriv(x), nullptr);
    }
}

TEST(VrexExprDerivative, RandomTreesAgreeWithADifference) {
    // Of smooth codes only, at a point where their arguments are good.
    const auto x = VrexVar::create("x", 0.4);
    const std::vector<std::string> atoms{"x", "0.7", "sin(x)", "x * x", "(x + 0.3)"};
    const std::vector<std::string> forms{"sin(#)",  "cos(#)",      "exp(#)",         "atan(#)",
                                         "tanh(#)", "sqr(#)",      "ln(2 + sqr(#))", "# / (2 + cos(x))",
                                         "x * #",   "hypot(#, 1)", "atan2(#, 3)",    "sqrt(1 + sqr(#))",
                                         "-(#)",    "pow(2, #)",   "(# - cosh(x))",  "(# + sinh(x))",
                                         "# * #",   "expm1(#)",    "log1p(sqr(#))",  "asin(tanh(#) / 2)"};
    std::mt19937 random(11);
    for (int i = 0; i < 500; ++i) {
        std::string text = atoms[random() % atoms.size()];
        for (int depth = 0; depth < 4; ++depth) {
            std::string form = forms[random() % forms.size()];
            for (std::size_t at = 0; (at = form.find('#', at)) != std::string::npos; at += text.size() + 2) {
                form.replace(at, 1, "(" + text + ")");
            }
            text = form;
        }
        const Expr tree = parsed(text, {x});
        const double expected = slope(tree, x);
        if (std::fabs(tree->eval()) < 100.0 && std::fabs(expected) < 100.0) {
            EXPECT_NEAR(tree->deriv(x)->eval(), expected, 2e-6 * std::max(1.0, std::fabs(expected))) << text;
        }
    }
}

TEST(VrexExprDerivative, HighOrdersShareTheirSubtrees) {
    const auto x = VrexVar::create("x", 0.3);
    std::string product = "sin(x)";
    for (int i = 1; i < 20; ++i) {
        product += "*sin(x)";
    }
    Expr tree = parsed(product, {x});
    for (int order = 1; order <= 6; ++order) {
        tree = tree->deriv(x);
    }
    // As a tree it has near 1e9 nodes. sin(x)^20 has the sixth derivative below, by (sin^n)'' =
    // n (n - 1) sin^(n-2) - n^2 sin^n three times over.
    EXPECT_LT(countNodes(tree), 40000U);
    std::vector<double> powers{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1.0};
    for (int twice = 0; twice < 3; ++twice) {
        std::vector<double> next(powers.size());
        for (std::size_t n = 2; n < powers.size(); ++n) {
            const auto exponent = static_cast<double>(n);
            next[n - 2] += powers[n] * exponent * (exponent - 1);
            next[n] -= powers[n] * exponent * exponent;
        }
        powers = next;
    }
    double expected = 0.0;
    for (std::size_t n = 0; n < powers.size(); ++n) {
        expected += powers[n] * std::pow(std::sin(0.3), static_cast<double>(n));
    }
    EXPECT_NEAR(tree->eval(), expected, 1e-9 * std::fabs(expected));
    EXPECT_NEAR(tree->evalVar().value(), expected, 1e-9 * std::fabs(expected));
    EXPECT_TRUE(tree->containVars());
    EXPECT_TRUE(tree->isDependOn(x));
    EXPECT_FALSE(tree->isDependOn(VrexVar::create("x", 0.3)));
    EXPECT_FALSE(tree->evalBool());
}

TEST(VrexExprDerivative, ChainOfComparisonsTakesLinearTime) {
    const auto x = VrexVar::create("x", 0.3);
    std::string text = "x";
    for (int i = 0; i < 200; ++i) {
        text += i % 2 == 0 ? " > x" : " < x";
    }
    const Expr tree = parsed(text, {x});
    const Expr derivative = tree->deriv(x);
    EXPECT_LT(countNodes(derivative), 4000U);
    // (x > x) is 0, 0 < x gives 0 - x if x is negative and 0 otherwise, and so on: all values are finite.
    EXPECT_TRUE(std::isfinite(derivative->eval()));
    EXPECT_TRUE(std::isfinite(tree->eval()));
}
