#include "data/VrexExpr.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Expressions.h"

using namespace nsExpressions;

namespace {

constexpr int CODES = 44;

/// For each code from 0 on: operands, order, whether it is an equation, whether additive.
struct CodeRow {
    int operands;
    int order;
    bool isEquation;
    bool isAdditive;
};

const std::vector<CodeRow>& codeRows() {
    static const std::vector<CodeRow> rows{
        {0, 0, false, false}, // none
        {0, 0, false, false}, {0, 0, false, false}, {1, 0, false, false}, {1, 0, false, false},
        {2, 2, false, true},  {2, 2, true, true},   {2, 3, false, false}, {2, 3, false, false},
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false},
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {2, 0, false, false},
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false},
        {1, 0, false, false}, {2, 1, true, false},  {2, 1, true, false},  {2, 1, true, false},
        {2, 1, true, false},  {2, 1, true, true},   {3, 0, false, false}, {1, 0, false, false},
        {1, 0, false, false}, {2, 1, true, true},   {2, 0, false, true}, // 31, reserved
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {2, 0, false, false},
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {2, 0, false, false},
        {1, 0, false, false}, {1, 0, false, false}, {1, 0, false, false}, {2, 0, false, false},
    };
    return rows;
}

TEST(VrexExpr, EachCodeHasItsOperandsOrderAndKind) {
    ASSERT_EQ(codeRows().size(), static_cast<std::size_t>(CODES));
    const Expr x = VrexExpr::create(3.0);
    for (int code = 0; code < CODES; ++code) {
        const CodeRow& row = codeRows()[static_cast<std::size_t>(code)];
        const auto op = static_cast<Op>(code);
        EXPECT_EQ(VrexExpr::getArgumentsNumber(op), row.operands) << code;
        EXPECT_EQ(VrexExpr::orderOf(op), row.order) << code;
        EXPECT_EQ(VrexExpr::isEquation(op), row.isEquation) << code;
        const Expr node = VrexExpr::create(op, x, x, x);
        EXPECT_EQ(node->isEquation(), row.isEquation) << code;
        EXPECT_EQ(node->isAdditive(), row.isAdditive) << code;
        EXPECT_EQ(node->isUnary(), row.operands < 2) << code;
        EXPECT_EQ(node->isConst(), code == 1) << code;
        EXPECT_EQ(node->isDrag(), code == 30) << code;
    }
}

TEST(VrexExpr, CodesBeyondTheTableTakeNoOperands) {
    for (const std::uint32_t code : {44U, 45U, 1000U, 0xffffffffU}) {
        const auto op = static_cast<Op>(code);
        EXPECT_EQ(VrexExpr::getArgumentsNumber(op), 0);
        EXPECT_EQ(VrexExpr::orderOf(op), 0);
        EXPECT_FALSE(VrexExpr::isEquation(op));
        EXPECT_TRUE(VrexExpr::create(op, nullptr, nullptr)->isUnary());
    }
}

TEST(VrexExpr, FourConstantsAreSharedAndOthersAreNot) {
    EXPECT_EQ(VrexExpr::create(0.0), VrexExpr::zero());
    EXPECT_EQ(VrexExpr::create(-0.0), VrexExpr::zero());
    EXPECT_EQ(VrexExpr::create(1.0), VrexExpr::one());
    EXPECT_EQ(VrexExpr::create(-1.0), VrexExpr::mOne());
    EXPECT_EQ(VrexExpr::create(2.0), VrexExpr::two());
    EXPECT_NE(VrexExpr::create(3.0), VrexExpr::create(3.0));
    EXPECT_EQ(expr(2.0), VrexExpr::two());
    EXPECT_FALSE(std::signbit(VrexExpr::create(-0.0)->value));
    EXPECT_EQ(VrexExpr::zero()->value, 0.0);
    EXPECT_EQ(VrexExpr::one()->value, 1.0);
    EXPECT_EQ(VrexExpr::mOne()->value, -1.0);
    EXPECT_EQ(VrexExpr::two()->value, 2.0);
}

TEST(VrexExpr, NodeHoldsWhatItWasMadeOf) {
    const auto var = VrexVar::create("x", 1.0);
    const Expr x = VrexExpr::create(var);
    EXPECT_EQ(x->op, Op::Var);
    EXPECT_EQ(x->var, var);
    const Expr a = VrexExpr::create(3.0);
    const Expr b = VrexExpr::create(4.0);
    const Expr node = VrexExpr::create(Op::If, x, a, b);
    EXPECT_EQ(node->op, Op::If);
    EXPECT_EQ(node->left, x);
    EXPECT_EQ(node->right, a);
    EXPECT_EQ(node->third, b);
    const Expr sum = VrexExpr::create(Op::Add, a, b);
    EXPECT_EQ(sum->third, nullptr);
    EXPECT_TRUE(sum->hasTwoOperands());
    EXPECT_FALSE(VrexExpr::create(Op::Neg, a, nullptr)->hasTwoOperands());
}

TEST(VrexExpr, ConstantsAreToldByTheirValue) {
    EXPECT_TRUE(VrexExpr::zero()->isZeroConst());
    EXPECT_TRUE(VrexExpr::one()->isOneConst());
    EXPECT_TRUE(VrexExpr::mOne()->isMinusOneConst());
    EXPECT_FALSE(VrexExpr::two()->isZeroConst());
    EXPECT_FALSE(VrexExpr::two()->isOneConst());
    EXPECT_FALSE(VrexExpr::two()->isMinusOneConst());
    const Expr x = VrexExpr::create(VrexVar::create("x", 0.0));
    EXPECT_FALSE(x->isZeroConst());
    EXPECT_FALSE(VrexExpr::create(Op::Neg, VrexExpr::one(), nullptr)->isMinusOneConst());
}

TEST(VrexExpr, SubstitutionIsADifferenceOfTwoVariables) {
    const Expr x = VrexExpr::create(VrexVar::create("x", 0.0));
    const Expr three = VrexExpr::create(3.0);
    EXPECT_TRUE(VrexExpr::create(Op::Sub, x, x)->isSubstitionForm());
    EXPECT_FALSE(VrexExpr::create(Op::Equal, x, x)->isSubstitionForm());
    EXPECT_FALSE(VrexExpr::create(Op::Sub, x, three)->isSubstitionForm());
    EXPECT_FALSE(VrexExpr::create(Op::Sub, three, x)->isSubstitionForm());
}

TEST(VrexExpr, VariablesAreFoundAnywhereInTheTree) {
    const auto t = VrexVar::create("t", 0.0);
    EXPECT_TRUE(parsed("2 * sin(1 + (t))", {t})->containVars());
    EXPECT_TRUE(parsed("if(1 > 2, 3, t)", {t})->containVars());
    EXPECT_TRUE(parsed("t", {t})->containVars());
    EXPECT_FALSE(parsed("2 * sin(1 + pi)")->containVars());
}

TEST(VrexExpr, DependenceIsOnTheVeryVariable) {
    const auto t = VrexVar::create("t", 0.0);
    const auto namesake = VrexVar::create("t", 0.0);
    const Expr tree = parsed("cos(if(2 > 1, 1, 3 * t))", {t});
    EXPECT_TRUE(tree->isDependOn(t));
    EXPECT_FALSE(tree->isDependOn(namesake));
    EXPECT_FALSE(tree->isDependOn(nullptr));
}

TEST(VrexExpr, TraverseVisitsNodeThenLeftRightAndThird) {
    const Vars vars = someVars();
    std::vector<std::string> texts;
    VrexExpr::traverse(parsed("if(a > b, -t, a)", vars),
                       [&](const std::shared_ptr<VrexExpr>& node) { texts.push_back(node->toString()); });
    const std::vector<std::string> expected{"if(a > b, -t, a)", "a > b", "a", "b", "-t", "t", "a"};
    EXPECT_EQ(texts, expected);
    VrexExpr::traverse(nullptr, [](const std::shared_ptr<VrexExpr>&) { FAIL(); });
}

TEST(VrexExpr, TraverseVisitsASharedNodeOncePerPath) {
    Expr tree = VrexExpr::create(VrexVar::create("x", 1.0));
    for (int i = 0; i < 5; ++i) {
        tree = VrexExpr::create(Op::Add, tree, tree);
    }
    int count = 0;
    VrexExpr::traverse(tree, [&count](const std::shared_ptr<VrexExpr>&) { ++count; });
    EXPECT_EQ(count, 63); // 1 + 2 + 4 + ... + 32
}

TEST(VrexExpr, FunctionsMakeTheNodesOfTheirNames) {
    const Expr x = VrexExpr::create(3.0);
    const Expr y = VrexExpr::create(4.0);
    const std::vector<std::pair<Expr, Op>> rows{
        {abs(x), Op::Abs},        {acos(x), Op::Acos},      {asin(x), Op::Asin},   {atan(x), Op::Atan},
        {atan2(x, y), Op::Atan2}, {ceil(x), Op::Ceil},      {cfres(x), Op::Cfres}, {cos(x), Op::Cos},
        {cosh(x), Op::Cosh},      {drag(x, y), Op::Drag},   {exp(x), Op::Exp},     {expm1(x), Op::Expm1},
        {floor(x), Op::Floor},    {hypot(x, y), Op::Hypot}, {log(x), Op::Log},     {log10(x), Op::Log10},
        {log1p(x), Op::Log1p},    {mod(x, y), Op::Mod},     {norm(x), Op::Norm},   {pow(x, y), Op::Pow},
        {sfres(x), Op::Sfres},    {sign(x), Op::Sign},      {sin(x), Op::Sin},     {sinh(x), Op::Sinh},
        {sqr(x), Op::Sqr},        {sqrt(x), Op::Sqrt},      {tan(x), Op::Tan},     {tanh(x), Op::Tanh},
    };
    for (const auto& [node, op] : rows) {
        EXPECT_EQ(node->op, op) << node->toString();
        EXPECT_EQ(node->left, x);
        EXPECT_EQ(node->right, VrexExpr::getArgumentsNumber(op) == 2 ? y : nullptr);
        EXPECT_EQ(node->third, nullptr);
    }
    const Expr choice = ifThenElse(x, y, x);
    EXPECT_EQ(choice->op, Op::If);
    EXPECT_EQ(choice->right, y);
    EXPECT_EQ(choice->third, x);
}

TEST(VrexExpr, TreeReadsItsVariablesAtEachEvaluation) {
    const auto t = VrexVar::create("t", 2.0);
    const Expr tree = parsed("t * t", {t});
    EXPECT_EQ(tree->eval(), 4.0);
    t->setValue(3.0);
    EXPECT_EQ(tree->eval(), 9.0);
}

} // namespace
