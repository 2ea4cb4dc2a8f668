#include "tolvbase/LumoJsonText.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "support/JsonSamples.h"
#include "tolvbase/LumoJson.h"

namespace {

template <class Value>
std::string textOf(Value value) {
    std::string text = "before ";
    nsLumoJsonText::append(text, value);
    EXPECT_TRUE(text.starts_with("before "));
    return text.substr(7);
}

TEST(LumoJsonText, AppendsIntegersInDecimal) {
    EXPECT_EQ(textOf(std::uint64_t{0}), "0");
    EXPECT_EQ(textOf(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_EQ(textOf(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(LumoJsonText, AppendsDoublesThatShowAsSuch) {
    EXPECT_EQ(textOf(1.0), "1.0");
    EXPECT_EQ(textOf(-0.0), "-0.0");
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(1e-6), "1e-06");
    EXPECT_EQ(textOf(5e-324), "5e-324");
    EXPECT_EQ(textOf(1.7976931348623157e308), "1.7976931348623157e+308");
    const GermanLocale german;
    ASSERT_TRUE(GermanLocale::isSet());
    EXPECT_EQ(textOf(1234.5), "1234.5");
}

TEST(LumoJsonText, AppendsTextsQuotedAndEscaped) {
    EXPECT_EQ(textOf(std::string_view()), "\"\"");
    EXPECT_EQ(textOf(std::string_view("a\"b\\c/\b\f\n\r\t\x01\x1F\x7F\0", 15)),
              "\"a\\\"b\\\\c/\\b\\f\\n\\r\\t\\u0001\\u001f\x7F\\u0000\"");
    EXPECT_EQ(textOf(std::string_view("\xC3\xA4\xF0\x9F\x98\x80")), "\"\xC3\xA4\xF0\x9F\x98\x80\"");
}

/// Eight bytes are looked at in one go, and these must not hide each other.
TEST(LumoJsonText, FindsWhatNeedsAnEscapeAtEveryPlace) {
    for (std::size_t length = 1; length < 20; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (int byte = 0; byte < 0x80; ++byte) {
                std::string value(length, '!');
                value[place] = static_cast<char>(byte);
                const bool isEscaped = byte < 0x20 || byte == '"' || byte == '\\';
                const std::string text = textOf(std::string_view(value));
                ASSERT_EQ(text != '"' + value + '"', isEscaped) << byte;
                ASSERT_EQ(nsJsonSamples::valueOf<std::string>(LumoJson::parse(text)), value);
            }
        }
    }
}

TEST(LumoJsonText, AppendsNothingOfWhatJsonDoesNotHave) {
    std::string text = "before";
    for (const double number :
         {std::nan(""), std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(nsJsonSamples::thrownText([&] { nsLumoJsonText::append(text, number); }),
                  "Non-finite number cannot be written as JSON.");
    }
    for (const char* const invalid : {"\xFF", "a\xC3", "\xED\xA0\x80", "\xC0\x80"}) {
        EXPECT_EQ(nsJsonSamples::thrownText([&] { nsLumoJsonText::append(text, std::string_view(invalid)); }),
                  "Text that is not valid UTF-8 cannot be written as JSON.");
    }
    EXPECT_EQ(text, "before");
}

TEST(LumoJsonText, AMillionRandomDoublesComeBackToTheBit) {
    constexpr int BATCHES = 1'000;
    constexpr std::size_t BATCH = 1'000;
    std::mt19937_64 random(20'260'101);
    for (int batch = 0; batch < BATCHES; ++batch) {
        std::vector<double> numbers;
        std::string text = "[0";
        while (numbers.size() < BATCH) {
            const double number = std::bit_cast<double>(random());
            if (std::isfinite(number)) {
                numbers.push_back(number);
                text += ',';
                nsLumoJsonText::append(text, number);
            }
        }
        const LumoJson json = LumoJson::parse(text += ']');
        for (std::size_t i = 0; i < BATCH; ++i) {
            const auto back = nsJsonSamples::valueOf<double>(json[i + 1]);
            ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(numbers[i]));
        }
    }
}

} // namespace
