#include "data/VrexInvalidArgumentException.h"

#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

static_assert(std::is_base_of_v<std::invalid_argument, VrexInvalidArgumentException>);
static_assert(std::is_constructible_v<VrexInvalidArgumentException, std::string>);
static_assert(!std::is_default_constructible_v<VrexInvalidArgumentException>);

TEST(VrexInvalidArgumentException, IsCaughtAsAnInvalidArgumentWithItsWholeText) {
    const std::string text(1'000, '%');
    try {
        throw VrexInvalidArgumentException(text);
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(error.what(), text);
        EXPECT_NE(dynamic_cast<const VrexInvalidArgumentException*>(&error), nullptr);
    }
}

TEST(VrexInvalidArgumentException, CopyKeepsTheTextOfTheOriginal) {
    std::string text = "slot 7";
    const VrexInvalidArgumentException original(text);
    text = "changed";
    const VrexInvalidArgumentException copy = original;
    EXPECT_STREQ(original.what(), "slot 7");
    EXPECT_STREQ(copy.what(), "slot 7");
}

} // namespace
