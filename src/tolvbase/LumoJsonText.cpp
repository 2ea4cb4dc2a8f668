#include "tolvbase/LumoJsonText.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

#include "tolvbase/TolvUtf8.h"

namespace {

/// Enough for the shortest text of any double and for any 64-bit integer.
constexpr std::size_t NUMBER_BUFFER = 32;

template <class Integer>
void appendInteger(std::string& text, Integer value) {
    char buffer[NUMBER_BUFFER];
    text.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

void appendEscape(std::string& text, unsigned char byte) {
    constexpr std::string_view PLAIN = "\"\\\b\f\n\r\t";
    constexpr std::string_view LETTERS = "\"\\bfnrt";
    constexpr std::string_view DIGITS = "0123456789abcdef";
    const std::size_t known = PLAIN.find(static_cast<char>(byte));
    if (known != std::string_view::npos) {
        text += '\\';
        text += LETTERS[known];
        return;
    }
    text += "\\u00";
    text += DIGITS[byte >> 4U];
    text += DIGITS[byte & 0xFU];
}

} // namespace

void nsLumoJsonText::append(std::string& text, double value) {
    if (!std::isfinite(value)) {
        throw std::runtime_error("Non-finite number cannot be written as JSON.");
    }
    char buffer[NUMBER_BUFFER];
    char* end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    if (std::string_view(buffer, static_cast<std::size_t>(end - buffer)).find_first_of(".e") ==
        std::string_view::npos) {
        *end++ = '.';
        *end++ = '0';
    }
    text.append(buffer, end);
}

void nsLumoJsonText::append(std::string& text, std::uint64_t value) { appendInteger(text, value); }

void nsLumoJsonText::append(std::string& text, std::int64_t value) { appendInteger(text, value); }

void nsLumoJsonText::append(std::string& text, std::string_view value) {
    if (nsTolvUtf8::findInvalid(value) != std::string_view::npos) {
        throw std::runtime_error("Text that is not valid UTF-8 cannot be written as JSON.");
    }
    text += '"';
    std::size_t done = 0;
    for (std::size_t at = 0; at < value.size(); ++at) {
        const auto byte = static_cast<unsigned char>(value[at]);
        if (byte < 0x20 || byte == '"' || byte == '\\') {
            text.append(value, done, at - done);
            appendEscape(text, byte);
            done = at + 1;
        }
    }
    text.append(value, done);
    text += '"';
}
