#include "data/VrexVariable.h"
#include "support/AllocationCounter.h"
#include "support/ScalarSamples.h"

using nsScalarSamples::make;
using nsScalarSamples::run;

namespace {

double everything(const VrexVariable& a, const VrexVariable& b) {
    VrexVariable sum =
        a + b - a * b + a / b - 2.0 + 3.0 * a - b * 0.5 + 1.0 / a - (4.0 - b) + a / 3.0 + (1.0 + b);
    sum += a;
    sum -= b;
    sum *= a;
    sum /= b;
    sum += 1.0;
    sum -= 2.0;
    sum *= 3.0;
    sum /= 4.0;
    sum += sqrt(a) + square(b) + exp(a) + expm1(a) + log(a) + log1p(a) + sin(a) + cos(a) + tan(a) + asin(a) +
           acos(a);
    sum += atan(a) + sinh(a) + cosh(a) + tanh(a) + erf(a) + erfc(a) + abs(-a) + sign(a) + frac(a);
    sum += floor(a) + ceil(a) + trunc(a) + fmin(a, b) + fmax(a, b) + hypot(a, b) + hypot2(a, b) + atan2(a, b);
    sum += pow(a, b) + pow(a, 2.0) + pow(2.0, a) + fmod(a, b);
    VrexVariable moved(std::move(sum));
    VrexVariable copy(moved);
    copy = a;
    return copy.value() + moved.value();
}

} // namespace

TEST(VrexVariableAllocation, ArithmeticOnUpToTenDerivativesAllocatesNothing) {
    for (const auto& [first, count] : {std::pair{0U, 10U}, {0U, 1U}, {3U, 7U}, {5U, 5U}}) {
        const VrexVariable a = make(0.5, run(10, 0, 1, 0));
        const VrexVariable b = make(0.25, run(count, first, 1, 1));
        const AllocationCounter counter;
        const double value = everything(a, b);
        EXPECT_EQ(counter.count(), 0U);
        EXPECT_EQ(value, value);
    }
}

TEST(VrexVariableAllocation, DisjointStoresThatFitTogetherAllocateNothing) {
    const VrexVariable a = make(0.5, run(5, 0, 1, 0));
    const VrexVariable b = make(0.25, run(5, 100, 1, 1));
    const AllocationCounter counter;
    const double value = everything(a, b);
    EXPECT_EQ(counter.count(), 0U);
    EXPECT_EQ(value, value);
}

TEST(VrexVariableAllocation, TheCounterSeesAStoreThatDoesNotFit) {
    const VrexVariable a = make(0.5, run(6, 0, 1, 0));
    const VrexVariable b = make(0.25, run(5, 100, 1, 1));
    const AllocationCounter counter;
    const VrexVariable sum = a + b;
    EXPECT_EQ(counter.count(), 1U);
    EXPECT_EQ(sum.derivatives().size(), 11U);
}

TEST(VrexVariableAllocation, ArithmeticOnLongStoresAllocatesOneBlockForEachResult) {
    const VrexVariable a = make(0.5, run(30, 0, 1, 0));
    const VrexVariable b = make(0.25, run(30, 0, 1, 1));
    const AllocationCounter counter;
    const VrexVariable product = a * b;
    const VrexVariable root = sqrt(a);
    EXPECT_EQ(counter.count(), 2U);
    EXPECT_EQ(product.derivatives().size() + root.derivatives().size(), 60U);
}
