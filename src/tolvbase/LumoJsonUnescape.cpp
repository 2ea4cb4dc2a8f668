#include "tolvbase/LumoJsonUnescape.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace nsLumoJsonUnescape {
namespace {

constexpr std::uint32_t FIRST_HIGH = 0xD800;
constexpr std::uint32_t FIRST_LOW = 0xDC00;
constexpr std::uint32_t BEHIND_LOW = 0xE000;
constexpr std::uint32_t NO_UNIT = 0xFFFFFFFF;

/// Removes "\\u" and its four digits from the text and returns their value; `NO_UNIT` if they are not there.
std::uint32_t takeUnit(std::string_view& text) {
    constexpr std::size_t LENGTH = 6;
    if (text.size() < LENGTH || !text.starts_with("\\u")) {
        return NO_UNIT;
    }
    std::uint32_t unit = 0;
    const char* const end = text.data() + LENGTH;
    if (std::from_chars(text.data() + 2, end, unit, 16).ptr != end) {
        return NO_UNIT;
    }
    text.remove_prefix(LENGTH);
    return unit;
}

void appendTail(std::string& out, std::uint32_t character, int bits) {
    for (; bits > 0; bits -= 6) {
        out += static_cast<char>(0x80U | (character >> static_cast<unsigned int>(bits - 6) & 0x3FU));
    }
}

void appendUtf8(std::string& out, std::uint32_t character) {
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0U | character >> 6U);
        appendTail(out, character, 6);
    } else if (character < 0x10000) {
        out += static_cast<char>(0xE0U | character >> 12U);
        appendTail(out, character, 12);
    } else {
        out += static_cast<char>(0xF0U | character >> 18U);
        appendTail(out, character, 18);
    }
}

bool takeUnicode(std::string& out, std::string_view& text) {
    std::uint32_t character = takeUnit(text);
    if (character >= FIRST_HIGH && character < FIRST_LOW) {
        const std::uint32_t low = takeUnit(text);
        if (low < FIRST_LOW || low >= BEHIND_LOW) {
            return false;
        }
        character = 0x10000 + ((character - FIRST_HIGH) << 10U) + (low - FIRST_LOW);
    } else if (character == NO_UNIT || (character >= FIRST_LOW && character < BEHIND_LOW)) {
        return false;
    }
    appendUtf8(out, character);
    return true;
}

bool takeEscape(std::string& out, std::string_view& text) {
    constexpr std::string_view LETTERS = "\"\\/bfnrt";
    constexpr std::string_view MEANINGS = "\"\\/\b\f\n\r\t";
    if (text.starts_with("\\u")) {
        return takeUnicode(out, text);
    }
    const std::size_t which = text.size() < 2 ? std::string_view::npos : LETTERS.find(text[1]);
    if (which == std::string_view::npos) {
        return false;
    }
    out += MEANINGS[which];
    text.remove_prefix(2);
    return true;
}

} // namespace

bool append(std::string& out, std::string_view escaped) {
    while (!escaped.empty()) {
        const std::size_t plain = std::min(escaped.find('\\'), escaped.size());
        out += escaped.substr(0, plain);
        escaped.remove_prefix(plain);
        if (!escaped.empty() && !takeEscape(out, escaped)) {
            return false;
        }
    }
    return true;
}

} // namespace nsLumoJsonUnescape
