#include "data/VrexChangeOrUndo.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace {

TEST(VrexChangeOrUndo, UndoesNothingAfterAChange) {
    int steps = 0;
    changeOrUndo([&] { steps += 1; }, [&] { steps += 10; });
    EXPECT_EQ(steps, 1);
}

TEST(VrexChangeOrUndo, UndoesAndThrowsOnWhereTheChangeThrows) {
    int steps = 0;
    EXPECT_THROW(changeOrUndo([] { throw std::length_error("full"); }, [&] { steps += 10; }),
                 std::length_error);
    EXPECT_EQ(steps, 10);
}

} // namespace
