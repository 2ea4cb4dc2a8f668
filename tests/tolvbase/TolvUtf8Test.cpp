#include "tolvbase/TolvUtf8.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace {

/// The bytes that the UTF-8 scheme gives a number, also where no character has it.
std::string encode(std::uint32_t number) {
    const auto tail = [number](unsigned int shift) {
        return static_cast<char>(0x80U | ((number >> shift) & 0x3FU));
    };
    if (number < 0x80) {
        return {static_cast<char>(number)};
    }
    if (number < 0x800) {
        return {static_cast<char>(0xC0U | (number >> 6U)), tail(0)};
    }
    if (number < 0x10000) {
        return {static_cast<char>(0xE0U | (number >> 12U)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0U | (number >> 18U)), tail(12), tail(6), tail(0)};
}

} // namespace

TEST(TolvUtf8, EveryCharacterIsValidAndNoSurrogateIs) {
    for (std::uint32_t number = 0; number < 0x120000; ++number) {
        const bool isCharacter = number < 0xD800 || (number > 0xDFFF && number < 0x110000);
        const std::string text = encode(number);
        ASSERT_EQ(nsTolvUtf8::characterLength(text), isCharacter ? text.size() : 0) << number;
        ASSERT_EQ(nsTolvUtf8::findInvalid(text), isCharacter ? std::string::npos : 0) << number;
    }
}

TEST(TolvUtf8, LongerFormsThanNeededAreInvalid) {
    for (const char* text : {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF"}) {
        EXPECT_EQ(nsTolvUtf8::findInvalid(text), 0U);
    }
}

TEST(TolvUtf8, CharacterThatIsCutIsInvalidWhereItStarts) {
    const std::string lead(21, 'a');
    for (const char* cut : {"\xC3", "\xE2\x82", "\xF0\x9F\x98", "\x80", "\xFF", "\xC3\xC3", "\xE2\x82x"}) {
        std::string text = lead;
        text.append("\xC3\xA4").append(cut);
        EXPECT_EQ(nsTolvUtf8::findInvalid(text), lead.size() + 2);
        text.append(lead);
        EXPECT_EQ(nsTolvUtf8::findInvalid(text), lead.size() + 2);
    }
}

TEST(TolvUtf8, EmptyTextIsValid) { EXPECT_EQ(nsTolvUtf8::findInvalid(""), std::string::npos); }
