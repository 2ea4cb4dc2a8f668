#include "tolvbase/TolvFormat.h"

#include <cstdarg>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "support/GermanLocale.h"

namespace {

__attribute__((format(printf, 1, 2))) std::string formatTwice(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string first = Tolv::formatStringV(format, arguments);
    const std::string second = Tolv::formatStringV(format, arguments);
    va_end(arguments);
    return first + "|" + second;
}

} // namespace

TEST(TolvFormat, FormatsAsPrintfDoes) {
    EXPECT_EQ(Tolv::formatString("%s %d %u 0x%08X %5.2f%%", "x", -3, 7U, 0x30000002U, 1.5),
              "x -3 7 0x30000002  1.50%");
    EXPECT_EQ(Tolv::formatString("%s", ""), "");
}

TEST(TolvFormat, NullFormatIsEmpty) {
    const char* const nothing = nullptr;
    EXPECT_EQ(Tolv::formatString(nothing), "");
}

TEST(TolvFormat, LongTextAndPercentSignsPassAsArguments) {
    std::string text(1U << 20U, '%');
    text += "%n%s";
    EXPECT_EQ(Tolv::formatString("[%s]", text.c_str()), "[" + text + "]");
}

TEST(TolvFormat, ZeroBytesAreKept) { EXPECT_EQ(Tolv::formatString("a%cb", 0), std::string("a\0b", 3)); }

TEST(TolvFormat, ArgumentListCanBeReadAgain) { EXPECT_EQ(formatTwice("%d-%s", 4, "y"), "4-y|4-y"); }

TEST(TolvFormat, NumbersIgnoreTheProcessLocaleAndLeaveIt) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    const std::string text = Tolv::formatString("%.2f %g", 1.5, 1e-8);
    char probe[8];
    std::snprintf(probe, sizeof probe, "%.1f", 1.5);
    EXPECT_EQ(text, "1.50 1e-08");
    EXPECT_STREQ(probe, "1,5");
}

TEST(TolvFormat, TextThatTheCLocaleCannotHoldIsEmpty) {
    EXPECT_EQ(Tolv::formatString("[%ls]", L"ascii"), "[ascii]");
    EXPECT_EQ(Tolv::formatString("[%ls]", L"\u20AC"), "");
    const GermanLocale locale; // UTF-8, which could hold it.
    EXPECT_EQ(std::snprintf(nullptr, 0, "%ls", L"\u20AC"), 3);
    EXPECT_EQ(Tolv::formatString("[%ls]", L"\u20AC"), "");
}
