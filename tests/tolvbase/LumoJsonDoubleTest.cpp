#include "tolvbase/LumoJsonDouble.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

/// What another implementation writes.
std::string expectedText(double value) {
    char buffer[400];
    std::string text(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::string writtenText(double value) {
    char buffer[nsLumoJsonDouble::BUFFER];
    return {buffer, nsLumoJsonDouble::write(buffer, value)};
}

/// Digits and exponent of the shortest text with an exponent.
std::string expectedDecimal(double value) {
    char buffer[64];
    std::string text(buffer,
                     std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific).ptr);
    const std::size_t mark = text.find('e');
    int exponent = std::atoi(text.c_str() + mark + 1);
    text.resize(mark);
    if (text.size() > 1) {
        exponent -= static_cast<int>(text.size()) - 2;
        text.erase(1, 1);
    }
    return text + "e" + std::to_string(exponent);
}

std::string shortestDecimal(double value) {
    const auto decimal = nsLumoJsonDouble::shortest(value);
    return std::to_string(decimal.digits) + "e" + std::to_string(decimal.exponent);
}

TEST(LumoJsonDouble, WritesEveryShapeOfNumber) {
    EXPECT_EQ(writtenText(0.5), "0.5");
    EXPECT_EQ(writtenText(-0.5), "-0.5");
    EXPECT_EQ(writtenText(0.001), "0.001");
    EXPECT_EQ(writtenText(0.00123), "0.00123");
    EXPECT_EQ(writtenText(0.0001), "1e-04");
    EXPECT_EQ(writtenText(123.25), "123.25");
    EXPECT_EQ(writtenText(-1234567890.5), "-1234567890.5");
    EXPECT_EQ(writtenText(4503599627370495.5), "4503599627370495.5");
    EXPECT_EQ(writtenText(4503599627370497.0), "4503599627370497.0");
    EXPECT_EQ(writtenText(100000.0), "1e+05");
    EXPECT_EQ(writtenText(0.30000000000000004), "0.30000000000000004");
    EXPECT_EQ(writtenText(-0.0), "-0.0");
}

TEST(LumoJsonDouble, FindsTheShortestNumberAtEveryPowerOfTwo) {
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        for (const double value :
             {power, std::nextafter(power, std::numeric_limits<double>::max()), std::nextafter(power, 0.0)}) {
            if (value > 0.0) {
                ASSERT_EQ(shortestDecimal(value), expectedDecimal(value));
            }
        }
    }
}

TEST(LumoJsonDouble, FindsTheShortestOfRandomNumbers) {
    std::mt19937_64 random(82'091);
    for (int i = 0; i < 200'000; ++i) {
        const double value = std::fabs(std::bit_cast<double>(random()));
        if (std::isfinite(value) && value != 0.0) {
            ASSERT_EQ(shortestDecimal(value), expectedDecimal(value));
        }
    }
}

TEST(LumoJsonDouble, WritesNumbersOfEverySizeAndLength) {
    std::mt19937_64 random(82'091);
    for (int i = 0; i < 200'000; ++i) {
        const double full =
            std::ldexp(static_cast<double>(random() >> 11U), -static_cast<int>(random() % 70));
        ASSERT_EQ(writtenText(full), expectedText(full));
        const double few = static_cast<double>(random() % 1'000'000) / std::pow(10.0, random() % 9);
        ASSERT_EQ(writtenText(-few), expectedText(-few));
    }
}

} // namespace
