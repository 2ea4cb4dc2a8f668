#include "tolvbase/LumoJsonScanner.h"

#include <random>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/RandomTurns.h"
#include "tolvbase/LumoJson.h"

namespace {

constexpr int TURNS = randomTurns(100'000);

bool isRead(const std::string& text) {
    try {
        (void)LumoJson::parse(text);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

/// Changes, adds or drops one to three bytes of the text.
std::string damage(std::string text, std::mt19937& random) {
    const std::string bytes = "{}[],:\"\\ \n019-+.eEtfnul\xC3\xED\x80" + std::string(1, '\0');
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (std::size_t change = below(3) + 1; change > 0; --change) {
        const char byte = bytes[below(bytes.size())];
        const std::size_t at = below(text.size());
        switch (below(3)) {
        case 0:
            text[at] = byte;
            break;
        case 1:
            text.insert(at, 1, byte);
            break;
        default:
            text.erase(at, 1);
        }
    }
    return text;
}

} // namespace

TEST(LumoJsonScanner, FindsNoFaultInAGoodText) {
    EXPECT_FALSE(LumoJsonScanner(R"( {"a":[1,-2.5e3,"\ud83d\ude00",true,false,null,{},[]]} )").findFault());
}

TEST(LumoJsonScanner, ColumnsCountCharactersOfTheLine) {
    const std::string text = "\xC3\xA4\n\xE2\x82\xAC x";
    EXPECT_EQ(LumoJsonScanner::describe(text, {text.size() - 1, "why"}), "JSON text, line 2, column 3: why.");
    EXPECT_EQ(LumoJsonScanner::describe(text, {0, "why"}), "JSON text, line 1, column 1: why.");
}

TEST(LumoJsonScanner, AgreesWithTheReaderOnDamagedTexts) {
    const std::string good =
        R"({"a":[1,-2.5e3,"\ud83d\ude00é"],"b" : {"c":[true,false,null,[[]],{}]},"d":0.1})";
    std::mt19937 random(11);
    int refused = 0;
    for (int turn = 0; turn < TURNS; ++turn) {
        const std::string text = damage(good, random);
        const bool isGood = isRead(text);
        ASSERT_EQ(isGood, !LumoJsonScanner(text).findFault()) << text;
        refused += isGood ? 0 : 1;
    }
    EXPECT_GT(refused, TURNS / 10);
    EXPECT_LT(refused, TURNS);
}
