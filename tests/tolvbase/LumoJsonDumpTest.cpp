#include <cfloat>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "tolvbase/LumoJson.h"

namespace {

std::string dumpFailure(const LumoJson& json) {
    try {
        (void)json.dump();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

double fromBits(std::uint64_t bits) {
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

std::uint64_t toBits(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

double readBack(double value) {
    double out = 0;
    LumoJson::getValue(LumoJson::parse(LumoJson(value).dump()), out);
    return out;
}

struct NumberRow {
    LumoJson value;
    const char* text;
};

const NumberRow NUMBER_ROWS[] = {
    {5.0, "5.0"},
    {1e-8, "1e-08"},
    {-0.0, "-0.0"},
    {0.0, "0.0"},
    {0.1, "0.1"},
    {-1.25, "-1.25"},
    {1e300, "1e+300"},
    {1e5, "1e+05"},
    {123456.0, "123456.0"},
    {2.220446049250313e-14, "2.220446049250313e-14"},
    {5e-324, "5e-324"},
    {DBL_MAX, "1.7976931348623157e+308"},
    {9007199254740993.0, "9007199254740992.0"},
    {5, "5"},
    {0, "0"},
    {-2147483647 - 1, "-2147483648"},
    {4294967295U, "4294967295"},
    {18446744073709551615ULL, "18446744073709551615"},
    {std::numeric_limits<long long>::min(), "-9223372036854775808"},
};

struct EscapeRow {
    std::string text;
    const char* dumped;
};

const EscapeRow ESCAPE_ROWS[] = {
    {"", R"("")"},
    {"\"", R"("\"")"},
    {"\\", R"("\\")"},
    {"/", R"("/")"},
    {"\n\t\r\b\f", R"("\n\t\r\b\f")"},
    {std::string("\0\x01\x1f", 3), R"("\u0000\u0001\u001f")"},
    {"\x7f", "\"\x7f\""},
    {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "\"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\""},
    {"line one\nline two", R"("line one\nline two")"},
};

} // namespace

TEST(LumoJsonDump, IsCompactAndKeepsTheOrderOfKeys) {
    LumoJson json;
    json["z"] = LumoJson::array({1, LumoJson(), true, false, "t", LumoJson::array()});
    json["a"] = LumoJson{{"k", 0.5}};
    json["m"] = LumoJson::parse(" { } ");
    EXPECT_EQ(json.dump(), R"({"z":[1,null,true,false,"t",[]],"a":{"k":0.5},"m":{}})");
}

TEST(LumoJsonDump, NumbersTakeTheShortestTextOfTheirKind) {
    for (const NumberRow& row : NUMBER_ROWS) {
        EXPECT_EQ(row.value.dump(), row.text);
        EXPECT_EQ(LumoJson::parse(row.text).dump(), row.text);
    }
}

TEST(LumoJsonDump, DoublesReadBackToTheSameBits) {
    std::mt19937_64 random(7);
    for (int turn = 0; turn < 200000; ++turn) {
        const double value = fromBits(random());
        if (std::isfinite(value)) {
            ASSERT_EQ(toBits(readBack(value)), toBits(value)) << value;
        }
    }
    for (const double value : {5e-324, DBL_MIN, DBL_MAX, -DBL_MAX, -0.0, DBL_EPSILON, DBL_MIN - 5e-324}) {
        EXPECT_EQ(toBits(readBack(value)), toBits(value)) << value;
    }
}

TEST(LumoJsonDump, NonFiniteNumberThrowsWhereverItStands) {
    const double infinity = std::numeric_limits<double>::infinity();
    const char* const text = "Non-finite number cannot be written as JSON.";
    EXPECT_EQ(dumpFailure(infinity), text);
    EXPECT_EQ(dumpFailure(-infinity), text);
    EXPECT_EQ(dumpFailure(std::numeric_limits<double>::quiet_NaN()), text);
    EXPECT_EQ(dumpFailure(LumoJson{{"a", LumoJson::array({1, infinity})}}), text);
}

TEST(LumoJsonDump, OnlyQuotesBackslashesAndControlsAreEscaped) {
    for (const EscapeRow& row : ESCAPE_ROWS) {
        EXPECT_EQ(LumoJson(row.text).dump(), row.dumped);
        EXPECT_EQ((LumoJson{{row.text, 1}}).dump(), std::string("{").append(row.dumped).append(":1}"));
        std::string readAgain;
        LumoJson::getValue(LumoJson::parse(row.dumped), readAgain);
        EXPECT_EQ(readAgain, row.text);
    }
}

TEST(LumoJsonDump, HasNoLineBreak) {
    for (int byte = 0; byte < 0x80; ++byte) {
        const std::string text = LumoJson(std::string(20, static_cast<char>(byte))).dump();
        EXPECT_EQ(text.find_first_of("\n\r"), std::string::npos);
    }
}

TEST(LumoJsonDump, TextThatIsNotUtf8ThrowsAsValueAndAsKey) {
    const char* const text = "Text that is not valid UTF-8 cannot be written as JSON.";
    EXPECT_EQ(dumpFailure("\xFF"), text);
    EXPECT_EQ(dumpFailure("\xC3"), text);
    EXPECT_EQ(dumpFailure("\xED\xA0\x80"), text);
    EXPECT_EQ(dumpFailure(LumoJson{{"k\x80", 1}}), text);
}

TEST(LumoJsonDump, NumbersIgnoreTheProcessLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    for (const NumberRow& row : NUMBER_ROWS) {
        EXPECT_EQ(row.value.dump(), row.text);
        EXPECT_EQ(LumoJson::parse(row.text).dump(), row.text);
    }
    EXPECT_THROW(LumoJson::parse("1,5"), std::runtime_error);
    EXPECT_EQ(LumoJson(1234567).dump(), "1234567");
}
