#include "data/VrexExprSteps.h"

#include <gtest/gtest.h>

#include "support/Expressions.h"
#include "support/NaiveEvaluation.h"

using namespace nsExpressions;

namespace {

TEST(VrexExprSteps, HeldStepsFollowTheVariables) {
    const Vars vars = someVars();
    const Expr tree = parsed("if(a < b, a * t, b / t) + sqrt(t)", vars);
    VrexExprSteps steps(*tree);
    for (const double value : {0.25, 3.0, 1.0, 9.0, 0.0}) {
        vars[0]->setValue(value);
        vars[2]->setValue(value + 1.0);
        EXPECT_EQ(steps.eval(), nsNaive::eval(*tree));
        EXPECT_EQ(steps.evalVar().value(), nsNaive::evalVar(*tree).value());
    }
}

TEST(VrexExprSteps, ResultIsTheCallersOwn) {
    const Vars vars = someVars();
    // Made by the last step, by either branch, by a shared node, and a variable as it is.
    const Expr shared = parsed("sin(a)", vars);
    for (const Expr& tree :
         {parsed("a + b", vars), parsed("if(a < b, a, b / t)", vars), shared, parsed("a", vars)}) {
        VrexExprSteps steps(*tree);
        vars[0]->setValue(0.25);
        const VrexVariable first = steps.evalVar();
        const double expected = nsNaive::evalVar(*tree).value();
        vars[0]->setValue(4.0);
        EXPECT_EQ(steps.evalVar().value(), nsNaive::evalVar(*tree).value());
        EXPECT_EQ(first.value(), expected);
    }
}

TEST(VrexExprSteps, SharedNodesAreWorkedOutAnewInEachEvaluation) {
    const auto x = VrexVar::create("x", 2.0);
    const Expr shared = variable(x) * variable(x);
    const Expr tree = ifThenElse(VrexExpr::create(Op::Less, shared, expr(5.0)), shared + shared, sin(shared));
    VrexExprSteps steps(*tree);
    EXPECT_EQ(steps.eval(), 8.0);
    x->setValue(1.0);
    EXPECT_EQ(steps.eval(), 2.0);
    EXPECT_EQ(steps.evalVar().value(), 2.0);
    x->setValue(3.0);
    EXPECT_EQ(steps.eval(), std::sin(9.0));
    EXPECT_EQ(steps.evalVar().value(), std::sin(9.0));
}

TEST(VrexExprSteps, SharedNodeOfABranchNotTakenIsWorkedOutLater) {
    const auto x = VrexVar::create("x", 2.0);
    const Expr shared = sin(variable(x));
    const Expr no = VrexExpr::create(Op::Less, expr(2.0), expr(1.0));
    const Expr tree = ifThenElse(no, shared, expr(7.0)) + shared;
    EXPECT_EQ(VrexExprSteps(*tree).eval(), 7.0 + std::sin(2.0));
    EXPECT_EQ(VrexExprSteps(*tree).evalVar().value(), 7.0 + std::sin(2.0));
}

TEST(VrexExprSteps, SharedNodeReadsAsValueAndAsCondition) {
    const Expr shared = VrexExpr::create(Op::Greater, expr(1.0), expr(3.0));
    const Expr tree = ifThenElse(shared, expr(10.0), shared + shared);
    EXPECT_EQ(tree->eval(), 8.0); // 4 for each, being violated by 2
    EXPECT_EQ(tree->evalVar().value(), 8.0);
    EXPECT_FALSE(tree->evalBool());
}

TEST(VrexExprSteps, FailureInMidRunLeavesTheStepsUsable) {
    const auto t = VrexVar::create("t", 2.0);
    t->derivatives().set(0, 1.0);
    const Expr tree = parsed("sin(hypot(t, t)) + t", {t});
    VrexExprSteps steps(*tree);
    const double expected = std::sin(std::sqrt(8.0)) + 2.0;
    EXPECT_EQ(steps.evalVar().value(), expected);
    t->enableLog("t");
    EXPECT_ANY_THROW(static_cast<void>(steps.evalVar()));
    t->disableLog();
    EXPECT_EQ(steps.evalVar().value(), expected);
}

} // namespace
