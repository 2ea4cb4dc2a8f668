#include "data/VrexVar.h"

#include <utility>

#include "support/ScalarSamples.h"

using nsScalarSamples::make;
using nsScalarSamples::sameResult;

TEST(VrexVar, DefaultIsZeroAndNamedV) {
    const VrexVar variable;
    EXPECT_TRUE(sameResult(variable, 0.0, {}));
    EXPECT_EQ(variable.name, "v");
}

TEST(VrexVar, CreateTakesNameAndNumber) {
    const auto variable = VrexVar::create("length", 2.5);
    EXPECT_EQ(variable->name, "length");
    EXPECT_TRUE(sameResult(*variable, 2.5, {}));
}

TEST(VrexVar, CreateKeepsDerivativesAndLogOfAVariable) {
    VrexVariable value = make(2.5, {{3, 1.0}});
    value.enableLog("inner");
    const auto variable = VrexVar::create(std::string("outer"), value);
    EXPECT_EQ(variable->name, "outer");
    EXPECT_TRUE(sameResult(*variable, 2.5, {{3, 1.0}}));
    EXPECT_EQ(variable->convertLogToString(), "[inner]");
}

TEST(VrexVar, ANullNameIsEmpty) {
    EXPECT_EQ(VrexVar::create(static_cast<const char*>(nullptr), 1.0)->name, "");
    EXPECT_EQ(VrexVar::create(static_cast<const char*>(nullptr), VrexVariable(1.0))->name, "");
}

TEST(VrexVar, CopiesAndMovesCarryTheName) {
    const auto source = VrexVar::create("a", make(1.0, {{0, 1.0}}));
    VrexVar copy(*source);
    EXPECT_EQ(copy.name, "a");
    EXPECT_TRUE(sameResult(copy, 1.0, {{0, 1.0}}));
    VrexVar moved(std::move(copy));
    EXPECT_EQ(moved.name, "a");
    VrexVar assigned;
    assigned = moved;
    EXPECT_EQ(assigned.name, "a");
    EXPECT_TRUE(sameResult(assigned, 1.0, {{0, 1.0}}));
}

TEST(VrexVar, TakesPartInArithmeticAsItsVariable) {
    const auto x = VrexVar::create("x", make(2.0, {{0, 1.0}}));
    EXPECT_TRUE(sameResult(*x * *x, 4.0, {{0, 4.0}}));
    EXPECT_TRUE(sameResult(sin(*x * 0.0), 0.0, {{0, 0.0}}));
}
