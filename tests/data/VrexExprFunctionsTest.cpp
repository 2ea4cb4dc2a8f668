#include "data/VrexExprFunctions.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "support/Expressions.h"

using namespace nsExpressions;

// What the operators simplify, and what they leave.

namespace {

const Expr X = VrexExpr::create(VrexVar::create("x", 1.0));
const Expr Y = VrexExpr::create(VrexVar::create("y", 2.0));
const Expr THREE = VrexExpr::create(3.0);
const Expr NOT_A_NUMBER = VrexExpr::create(std::numeric_limits<double>::quiet_NaN());

/// Constants equal to the shared ones, which are other nodes.
Expr own(double value) {
    const Expr node = VrexExpr::create(5.0);
    node->value = value;
    return node;
}

void expectNode(const Expr& node, Op op, const Expr& left, const Expr& right) {
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->op, op);
    EXPECT_EQ(node->left, left);
    EXPECT_EQ(node->right, right);
}

TEST(VrexExprFunctions, ProductWithZeroIsZeroWhateverStandsBeside) {
    EXPECT_EQ(own(0.0) * X, VrexExpr::zero());
    EXPECT_EQ(X * own(0.0), VrexExpr::zero());
    EXPECT_EQ(VrexExpr::zero() * NOT_A_NUMBER, VrexExpr::zero());
    EXPECT_EQ(NOT_A_NUMBER * own(-0.0), VrexExpr::zero());
}

TEST(VrexExprFunctions, ProductWithOneIsTheOther) {
    EXPECT_EQ(own(1.0) * X, X);
    EXPECT_EQ(X * own(1.0), X);
    EXPECT_EQ(VrexExpr::one() * NOT_A_NUMBER, NOT_A_NUMBER);
}

TEST(VrexExprFunctions, ProductWithMinusOneIsTheOpposite) {
    expectNode(own(-1.0) * X, Op::Neg, X, nullptr);
    expectNode(X * own(-1.0), Op::Neg, X, nullptr);
    EXPECT_EQ((VrexExpr::mOne() * VrexExpr::create(4.0))->value, -4.0);
    // The left factor is looked at first: -1 * -1 is the opposite of the right one.
    EXPECT_EQ(VrexExpr::mOne() * VrexExpr::mOne(), VrexExpr::one());
}

TEST(VrexExprFunctions, ProductOfConstantsIsFolded) {
    const Expr six = VrexExpr::two() * THREE;
    EXPECT_TRUE(six->isConst());
    EXPECT_EQ(six->value, 6.0);
    expectNode(X * Y, Op::Mul, X, Y);
    expectNode(THREE * X, Op::Mul, THREE, X);
}

TEST(VrexExprFunctions, SumWithZeroIsTheOther) {
    EXPECT_EQ(own(0.0) + X, X);
    EXPECT_EQ(X + own(0.0), X);
    // Even if that has a sign of its own.
    const Expr plus = VrexExpr::create(Op::Plus, X, nullptr);
    EXPECT_EQ(VrexExpr::zero() + plus, plus);
}

TEST(VrexExprFunctions, SumWithAnOppositeIsADifference) {
    expectNode(X + -Y, Op::Sub, X, Y);
    // The left side is not looked at.
    const Expr opposite = -X;
    expectNode(opposite + Y, Op::Add, opposite, Y);
}

TEST(VrexExprFunctions, SumLooksThroughPlusSigns) {
    Expr plus = Y;
    for (int i = 0; i < 3; ++i) {
        plus = VrexExpr::create(Op::Plus, plus, nullptr);
    }
    expectNode(X + plus, Op::Add, X, Y);
    expectNode(X + VrexExpr::create(Op::Plus, -Y, nullptr), Op::Sub, X, Y);
    EXPECT_EQ(X + VrexExpr::create(Op::Plus, own(0.0), nullptr), X);
}

TEST(VrexExprFunctions, SumOfConstantsStays) {
    expectNode(VrexExpr::two() + THREE, Op::Add, VrexExpr::two(), THREE);
}

TEST(VrexExprFunctions, DifferenceWithZero) {
    EXPECT_EQ(X - own(0.0), X);
    expectNode(own(0.0) - X, Op::Neg, X, nullptr);
    EXPECT_EQ((VrexExpr::zero() - THREE)->value, -3.0);
}

TEST(VrexExprFunctions, DifferenceOfConstantsOrWithAnOppositeStays) {
    expectNode(VrexExpr::two() - VrexExpr::one(), Op::Sub, VrexExpr::two(), VrexExpr::one());
    const Expr opposite = -Y;
    expectNode(X - opposite, Op::Sub, X, opposite);
}

TEST(VrexExprFunctions, OppositeOfConstantsIsFolded) {
    const Expr nothing = own(0.0);
    EXPECT_EQ(-nothing, nothing);
    EXPECT_EQ((-THREE)->value, -3.0);
    EXPECT_EQ(-VrexExpr::one(), VrexExpr::mOne());
    EXPECT_TRUE(std::isnan((-NOT_A_NUMBER)->value));
}

TEST(VrexExprFunctions, OppositeOfAnOppositeIsTheVeryOperand) {
    EXPECT_EQ(-(-X), X);
    expectNode(-X, Op::Neg, X, nullptr);
}

TEST(VrexExprFunctions, QuotientIsSimplifiedInOrder) {
    EXPECT_EQ(X / own(1.0), X);
    EXPECT_EQ(own(0.0) / X, VrexExpr::zero());
    EXPECT_EQ(VrexExpr::zero() / VrexExpr::zero(), VrexExpr::zero());
    expectNode(X / own(-1.0), Op::Neg, X, nullptr);
    // 0 / 1 is the dividend itself.
    const Expr nothing = own(0.0);
    EXPECT_EQ(nothing / VrexExpr::one(), nothing);
    EXPECT_EQ(nothing / VrexExpr::mOne(), VrexExpr::zero());
}

TEST(VrexExprFunctions, QuotientOfConstantsOrByZeroStays) {
    const Expr six = VrexExpr::create(6.0);
    expectNode(six / THREE, Op::Div, six, THREE);
    expectNode(X / VrexExpr::zero(), Op::Div, X, VrexExpr::zero());
}

TEST(VrexExprFunctions, FunctionsDoNotFoldConstants) {
    const Expr four = VrexExpr::create(4.0);
    expectNode(sqrt(four), Op::Sqrt, four, nullptr);
    expectNode(drag(four, THREE), Op::Drag, four, THREE);
    expectNode(pow(four, VrexExpr::zero()), Op::Pow, four, VrexExpr::zero());
}

} // namespace
