#include "tolvbase/TolvUtf8.h"

#include <cstdint>
#include <cstring>

namespace nsTolvUtf8 {
namespace {

/// Which lead bytes begin a character of `length` bytes, and what its second byte may be.
struct LeadRange {
    unsigned char first, last;
    std::size_t length;
    unsigned char secondFirst, secondLast;
};

constexpr LeadRange LEADS[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool isBetween(char byte, unsigned char first, unsigned char last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

bool matches(std::string_view text, const LeadRange& lead) {
    if (text.size() < lead.length || !isBetween(text[1], lead.secondFirst, lead.secondLast)) {
        return false;
    }
    for (std::size_t at = 2; at < lead.length; ++at) {
        if (!isBetween(text[at], 0x80, 0xBF)) {
            return false;
        }
    }
    return true;
}

/// The length of the plain ASCII run at the start, in steps of eight bytes.
std::size_t asciiRun(std::string_view text) {
    constexpr std::uint64_t HIGH_BITS = 0x8080808080808080;
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & HIGH_BITS) != 0) {
            break;
        }
    }
    return at;
}

} // namespace

std::size_t characterLength(std::string_view text) noexcept {
    if (isBetween(text[0], 0, 0x7F)) {
        return 1;
    }
    for (const LeadRange& lead : LEADS) {
        if (isBetween(text[0], lead.first, lead.last)) {
            return matches(text, lead) ? lead.length : 0;
        }
    }
    return 0;
}

std::size_t findInvalid(std::string_view text) noexcept {
    std::size_t at = asciiRun(text);
    while (at < text.size()) {
        const std::size_t length = characterLength(text.substr(at));
        if (length == 0) {
            return at;
        }
        at += length;
        if (length > 1) {
            at += asciiRun(text.substr(at));
        }
    }
    return std::string_view::npos;
}

} // namespace nsTolvUtf8
