#include "data/constraint/equation/VrexCallbackEquation.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "support/LogCapture.h"

namespace {

using testing::ElementsAre;
using enum VrexEquationConditionType;
using Args = std::vector<VrexVariable>;

TEST(VrexCallbackEquation, EvaluatesByItsCallback) {
    const auto equation =
        VrexCallbackEquation::create(equalToZero, [](const Args& args) { return args[0] * args[1]; });
    Args args{3.0, 4.0};
    VrexVariable::initializeDerivatives(args);
    const VrexVariable product = equation->evaluate(args);
    EXPECT_EQ(product.value(), 12.0);
    EXPECT_EQ(product.derivatives()[0], 4.0);
    EXPECT_EQ(product.derivatives()[1], 3.0);
}

TEST(VrexCallbackEquation, TakesDescriptorsAtCreation) {
    const auto variable = VrexGeometryVariable::create(2.0);
    const auto equation = VrexCallbackEquation::create({{variable, 0, "x"}}, lessThanZero,
                                                       VrexLinearEquationCallback({2.0}, 1.0));
    ASSERT_EQ(equation->descriptors().size(), 1U);
    EXPECT_EQ(equation->descriptors()[0].object(), variable);
    EXPECT_THAT(equation->getGeometries(), ElementsAre(variable));
    EXPECT_EQ(equation->conditionType(), lessThanZero);
}

TEST(VrexCallbackEquation, EmptyCallbackThrowsWhenEvaluated) {
    const auto equation = VrexCallbackEquation::create(equalToZero, {});
    EXPECT_FALSE(equation->callback());
    const LogCapture log;
    EXPECT_THROW(static_cast<void>(equation->evaluate({1.0})), std::bad_function_call);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].text, "VrexCallbackEquation::evaluateInternal(): bad_function_call");
}

TEST(VrexCallbackEquation, WrongCountOfArgumentsOfALinearCallbackThrowsThroughEvaluate) {
    const auto equation = VrexCallbackEquation::create(equalToZero, VrexLinearEquationCallback({2.0}, 1.0));
    try {
        static_cast<void>(equation->evaluate({1.0, 2.0}));
        FAIL() << "evaluated";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Size mismatch");
    }
}

TEST(VrexCallbackEquation, TargetOfTheCallbackCanBeAskedFor) {
    const auto linear =
        VrexCallbackEquation::create(equalToZero, VrexLinearEquationCallback({2.0, 3.0}, 1.0));
    const auto* const target = linear->callback().target<VrexLinearEquationCallback>();
    ASSERT_NE(target, nullptr);
    EXPECT_THAT(target->coefficients(), ElementsAre(2.0, 3.0));
    EXPECT_EQ(target->constant(), 1.0);
    EXPECT_EQ(linear->callback().target<VrexEquationCallback>(), nullptr);
}

TEST(VrexCallbackEquation, CopyAndSnapshotShareWhatTheCallbackHolds) {
    const auto calls = std::make_shared<int>(0);
    const auto equation = VrexCallbackEquation::create(equalToZero, [calls](const Args&) {
        ++*calls;
        return VrexVariable(1.0);
    });
    const auto copy = std::static_pointer_cast<VrexCallbackEquation>(equation->makeCopy());
    static_cast<void>(copy->evaluate({}));
    static_cast<void>(equation->evaluate({}));
    EXPECT_EQ(*calls, 2);
}

TEST(VrexCallbackEquation, UpdateTakesTheCallback) {
    const auto equation = VrexCallbackEquation::create(equalToZero, VrexLinearEquationCallback({}, 1.0));
    equation->updateFrom(VrexCallbackEquation::create(lessThanZero, VrexLinearEquationCallback({}, 2.0)));
    EXPECT_EQ(equation->evaluate({}).value(), 2.0);
    EXPECT_EQ(equation->conditionType(), lessThanZero);
}

} // namespace
