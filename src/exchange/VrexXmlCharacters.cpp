#include "exchange/VrexXmlCharacters.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <system_error>

namespace {

constexpr std::size_t NONE = std::string_view::npos;

/// See "Char" in the recommendation XML 1.0.
bool isAllowed(std::uint32_t code) {
    const bool isBlank = code == '\t' || code == '\n' || code == '\r';
    return isBlank || (code >= 0x20 && code <= 0xD7FF) || (code >= 0xE000 && code <= 0xFFFD) ||
           (code >= 0x10000 && code <= 0x10FFFF);
}

/// In the bytes of UTF-8 all others are parts of what is allowed.
std::size_t findControl(std::string_view text) {
    const auto* const found = std::find_if(text.begin(), text.end(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code < 0x20 && !isAllowed(code);
    });
    return found != text.end() ? static_cast<std::size_t>(found - text.begin()) : NONE;
}

/// Whether the text begins with a reference by number, and that leads to no character.
bool isBrokenReference(std::string_view text) {
    constexpr std::string_view DECIMAL = "&#", HEXADECIMAL = "&#x";
    const bool isHexadecimal = text.starts_with(HEXADECIMAL);
    if (!text.starts_with(DECIMAL)) {
        return false;
    }
    text.remove_prefix(isHexadecimal ? HEXADECIMAL.size() : DECIMAL.size());
    std::uint32_t code = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, code, isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc() && end != last && *end == ';';
    return !isWhole || !isAllowed(code);
}

/// In which ampersands stand for themselves.
struct Verbatim {
    std::string_view begin, end;
};
constexpr Verbatim VERBATIMS[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/// Behind what is verbatim from the start of the text on; 1 where nothing is.
std::size_t lengthOfVerbatim(std::string_view text) {
    const auto* const found = std::ranges::find_if(
        VERBATIMS, [text](const Verbatim& verbatim) { return text.starts_with(verbatim.begin); });
    if (found == std::end(VERBATIMS)) {
        return 1;
    }
    const std::size_t end = text.find(found->end, found->begin.size());
    return end != NONE ? end + found->end.size() : text.size();
}

std::size_t findReference(std::string_view text) {
    constexpr std::string_view BEGINS = "<&";
    std::size_t at = text.find_first_of(BEGINS);
    while (at != NONE) {
        const std::string_view rest = text.substr(at);
        if (isBrokenReference(rest)) {
            return at;
        }
        at = text.find_first_of(BEGINS, at + lengthOfVerbatim(rest));
    }
    return NONE;
}

} // namespace

std::size_t nsXmlCharacters::findForbidden(std::string_view text) {
    return std::min(findControl(text), findReference(text));
}
