#include "data/VrexExprNumberText.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(VrexExprNumberText, ReadsWhatTheStandardConversionReads) {
    for (const char* text : {"0",
                             "1",
                             "1.5",
                             "1.",
                             "1.2.3",
                             "1..e5",
                             "1e+",
                             "1e5.2",
                             "0e99999",
                             "0.0e-99999",
                             "1e308",
                             "1.8e308",
                             "2e308",
                             "4.9e-324",
                             "2e-324",
                             "1e-400",
                             "1e400",
                             "00000001e400",
                             "123456789012345678901234567890",
                             "0.1",
                             "2.2250738585072011e-308",
                             "0.00000000000000000001e325",
                             "10000000000000000000000e-350",
                             "1e-99999999999999999999",
                             "1e99999999999999999999",
                             "10e9223372036854775807",
                             "10e9223372036854775808",
                             "0.01e-9223372036854775807",
                             "0.01e-9223372036854775808",
                             "0.01e9223372036854775807",
                             "10e-9223372036854775807",
                             "0e9223372036854775807",
                             "1e400.5",
                             "1e-400.5",
                             "9007199254740993"}) {
        EXPECT_EQ(nsExprNumberText::read(text), std::strtod(text, nullptr)) << text;
    }
}

TEST(VrexExprNumberText, TellsTooLargeFromTooSmallByTheWholeNumber) {
    const std::string zeros(400, '0');
    EXPECT_EQ(nsExprNumberText::read("0." + zeros + "1"), 0.0);
    EXPECT_EQ(nsExprNumberText::read("0." + zeros + "1e500"), 1e99);
    EXPECT_EQ(nsExprNumberText::read("0." + zeros + "1e800"), INFINITY);
    EXPECT_EQ(nsExprNumberText::read("1" + zeros), INFINITY);
    EXPECT_EQ(nsExprNumberText::read("1" + zeros + "e-399"), 10.0);
    EXPECT_EQ(nsExprNumberText::read("1" + zeros + "e-800"), 0.0);
}

} // namespace
