#include "tools/vrex/VrexHarmlessText.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

#include "tolvbase/TolvUtf8.h"

namespace {

/// From the first to the last, by code point.
struct Range {
    unsigned first, last;
};

/// Unicode's control characters (Cc), its marks of direction (Bidi_Control) and its separators of lines.
constexpr Range HARMFUL[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C}, {0x200E, 0x200F},
    {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF},
};

bool isHarmful(unsigned code) {
    return std::ranges::any_of(
        HARMFUL, [code](const Range& range) { return code >= range.first && code <= range.last; });
}

/// Of a valid character of UTF-8.
unsigned codeOf(std::string_view character) {
    constexpr unsigned FOLLOWER_BITS = 6, FOLLOWER_MASK = 0x3F;
    constexpr unsigned LEAD_MASKS[] = {0x7F, 0x1F, 0x0F, 0x07};
    unsigned code = static_cast<unsigned char>(character[0]) & LEAD_MASKS[character.size() - 1];
    for (const char follower : character.substr(1)) {
        code = code << FOLLOWER_BITS | (static_cast<unsigned char>(follower) & FOLLOWER_MASK);
    }
    return code;
}

} // namespace

std::string nsVrexHarmlessText::of(std::string_view text) {
    std::string harmless;
    while (!text.empty()) {
        const std::size_t length = nsTolvUtf8::characterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        text.remove_prefix(character.size());
        if (length == 0) {
            fmt::format_to(std::back_inserter(harmless), "\\x{:02x}",
                           static_cast<unsigned char>(character[0]));
        } else if (const unsigned code = codeOf(character); isHarmful(code)) {
            fmt::format_to(std::back_inserter(harmless), "\\u{:04x}", code);
        } else {
            harmless += character;
        }
    }
    return harmless;
}
