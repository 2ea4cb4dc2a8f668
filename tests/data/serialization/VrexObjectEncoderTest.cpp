#include "data/serialization/VrexObjectEncoder.h"

#include <cstdint>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "support/LogCapture.h"
#include "support/Numbered.h"
#include "support/StreamEncoding.h"
#include "support/StreamObjects.h"

namespace {

using nsStreamEncoding::encoded;
using nsStreamEncoding::isEncoded;
using nsStreamEncoding::marked;
using nsStreamObjects::block;
using nsStreamObjects::callbackEquation;
using nsStreamObjects::descriptor;
using nsStreamObjects::expressionEquation;
using nsStreamObjects::join;
using nsStreamObjects::none;

double sum(const double* values, unsigned int count, double* gradient) {
    double total = 0.0;
    for (unsigned int i = 0; i < count; ++i) {
        total += values[i];
        gradient[i] = 1.0;
    }
    return total;
}

std::shared_ptr<VrexGeometryVariable> variable(std::uint64_t id) {
    return numbered(VrexGeometryVariable::create(2.5), id);
}

std::shared_ptr<VrexCallbackEquation> equationOf(VrexCallbackEquation::Callback callback) {
    return VrexCallbackEquation::create(VrexEquationConditionType::lessThanZero, std::move(callback));
}

TEST(VrexObjectEncoder, AnExpressionEquationIsItsText) {
    EXPECT_EQ(
        encoded(
            marked(VrexExpressionEquation::create({{variable(3), 0, "d"}, {variable(4), 0, "e"}},
                                                  VrexEquationConditionType::greaterThanZero, "2 * d - e"),
                   9)),
        expressionEquation(3, block(join({descriptor(3, 0, "d"), descriptor(4, 0, "e")})), "2 * d - e", 9));
}

TEST(VrexObjectEncoder, AnEquationWithoutConditionAndDescriptors) {
    EXPECT_EQ(encoded(marked(VrexExpressionEquation::create(VrexEquationConditionType::unknown), 9)),
              expressionEquation(-1, none(), "", 9));
}

TEST(VrexObjectEncoder, ACallbackEquationIsTheAddressOfItsFunction) {
    const auto equation =
        marked(VrexCallbackEquation::create({{variable(3), 0, "d"}}, VrexEquationConditionType::equalToZero,
                                            VrexEquationCallback(&sum)),
               9);
    const auto address = reinterpret_cast<std::uintptr_t>(&sum);
    EXPECT_EQ(encoded(equation), callbackEquation(0, block(descriptor(3, 0, "d")), address, 9));
}

TEST(VrexObjectEncoder, AnEmptyFunctionIsTheAddressNull) {
    EXPECT_EQ(encoded(marked(equationOf(VrexEquationCallback({})), 9)), callbackEquation(1, none(), 0, 9));
    const VrexEquationCallback::Function function = nullptr;
    EXPECT_EQ(encoded(marked(equationOf(VrexEquationCallback(function)), 9)),
              callbackEquation(1, none(), 0, 9));
}

TEST(VrexObjectEncoder, AFunctionWithoutAnAddressFails) {
    const VrexCallbackEquation::Callback unfit[] = {
        {},
        VrexLinearEquationCallback({1.0}, 0.0),
        [](const std::vector<VrexVariable>&) { return VrexVariable(); },
        VrexEquationCallback([](const double*, unsigned int, double*) { return 0.0; }),
        VrexEquationCallback(std::ref(sum)),
    };
    for (const auto& callback : unfit) {
        const LogCapture log;
        EXPECT_FALSE(isEncoded(equationOf(callback)));
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines()[0].level, 1U);
    }
}

TEST(VrexObjectEncoder, ADescriptorWithoutAnObjectFails) {
    EXPECT_FALSE(isEncoded(VrexCallbackEquation::create(
        {{nullptr, 0, "d"}}, VrexEquationConditionType::equalToZero, VrexEquationCallback(&sum))));
}

} // namespace
