#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/equation/VrexExpressionParser.h"
#include "support/AllocationCounter.h"

TEST(VrexExpressionParser, EvaluationAllocatesNothingFromTheThirdOn) {
    const std::vector<std::shared_ptr<VrexVar>> vars{VrexVar::create("x", 0.0), VrexVar::create("y", 0.0)};
    VrexExpressionParser parser;
    ASSERT_TRUE(parser.setExpression(vars, "if(x > y, x * sin(y), x / (2 + y)) - 3", true));
    const std::vector<double> values{0.5, 0.25};
    std::vector<VrexVariable> variables(values.begin(), values.end());
    VrexVariable::initializeDerivatives(variables);
    for (int i = 0; i < 2; ++i) {
        static_cast<void>(parser.evaluate(values));
        static_cast<void>(parser.evaluateVar(variables));
    }
    const AllocationCounter counter;
    for (int i = 0; i < 10; ++i) {
        static_cast<void>(parser.evaluate(values));
        static_cast<void>(parser.evaluateVar(variables));
    }
    EXPECT_EQ(counter.count(), 0U);
}
