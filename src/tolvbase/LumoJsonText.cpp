#include "tolvbase/LumoJsonText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "tolvbase/LumoJsonDouble.h"
#include "tolvbase/TolvUtf8.h"

namespace {

/// Enough for any 64-bit integer.
constexpr std::size_t NUMBER_BUFFER = 32;

template <class Integer>
void appendInteger(std::string& text, Integer value) {
    char buffer[NUMBER_BUFFER];
    text.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

constexpr std::uint64_t EACH_BYTE = 0x0101010101010101;
constexpr std::uint64_t HIGH_BITS = 0x80 * EACH_BYTE;
/// The high bits of bytes that are zero; above one of those perhaps of others, too.
constexpr std::uint64_t zeroBytes(std::uint64_t word) { return (word - EACH_BYTE) & ~word & HIGH_BITS; }

/// Whether eight bytes are plain ASCII and need no escape. May say no wrongly, and never yes.
bool isPlain(std::uint64_t word) {
    constexpr std::uint64_t BLANKS = 0x20 * EACH_BYTE;
    const std::uint64_t control = (word - BLANKS) & ~word;
    return (((word | control) & HIGH_BITS) | zeroBytes(word ^ ('"' * EACH_BYTE)) |
            zeroBytes(word ^ ('\\' * EACH_BYTE))) == 0;
}

bool isPlainAt(const char* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return isPlain(word);
}

/// The same of a text, eight bytes at a time; the last ones may overlap those before.
bool isPlain(std::string_view text) {
    constexpr std::size_t WORD = sizeof(std::uint64_t);
    if (text.size() < WORD) {
        char filled[WORD];
        std::fill_n(filled, WORD, ' ');
        std::copy(text.begin(), text.end(), filled);
        return isPlainAt(filled);
    }
    for (std::size_t at = 0; at + WORD <= text.size(); at += WORD) {
        if (!isPlainAt(text.data() + at)) {
            return false;
        }
    }
    return isPlainAt(text.data() + text.size() - WORD);
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
    char buffer[nsLumoJsonDouble::BUFFER];
    text.append(buffer, nsLumoJsonDouble::write(buffer, value));
}

void nsLumoJsonText::append(std::string& text, std::uint64_t value) { appendInteger(text, value); }

void nsLumoJsonText::append(std::string& text, std::int64_t value) { appendInteger(text, value); }

void nsLumoJsonText::append(std::string& text, std::string_view value) {
    if (isPlain(value)) { // As nearly all are.
        text += '"';
        text += value;
        text += '"';
        return;
    }
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
