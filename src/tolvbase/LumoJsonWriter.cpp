#include "tolvbase/LumoJsonWriter.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "tolvbase/TolvUtf8.h"

namespace {

/// Enough for the shortest text of any double and for any 64-bit integer.
constexpr std::size_t NUMBER_BUFFER = 32;

} // namespace

std::string LumoJsonWriter::write(const LumoJson& root) {
    writeValue(root);
    while (!m_open.empty()) {
        advance();
    }
    return std::move(m_text);
}

void LumoJsonWriter::advance() {
    Level& level = m_open.back();
    const bool isObject = level.container->is_object();
    if (level.left == 0) {
        m_text += isObject ? '}' : ']';
        m_open.pop_back();
        return;
    }
    if (level.left != level.container->size()) {
        m_text += ',';
    }
    if (isObject) {
        writeString(level.next.key());
        m_text += ':';
    }
    const LumoJson& value = *level.next++;
    --level.left;
    writeValue(value); // May open a level, which moves `level`.
}

void LumoJsonWriter::writeValue(const LumoJson& value) {
    switch (value.m_tag) {
    case LumoJson::Tag::Null:
        m_text += "null";
        break;
    case LumoJson::Tag::Boolean:
        m_text += value.payload<bool>() ? "true" : "false";
        break;
    case LumoJson::Tag::Signed:
    case LumoJson::Tag::Unsigned:
        writeInteger(value);
        break;
    case LumoJson::Tag::Double:
        writeDouble(value.payload<double>());
        break;
    case LumoJson::Tag::ShortString:
    case LumoJson::Tag::LongString:
        writeString(value.text());
        break;
    case LumoJson::Tag::Array:
    case LumoJson::Tag::Object:
        m_text += value.is_object() ? '{' : '[';
        m_open.push_back({&value, value.cbegin(), value.size()});
        break;
    }
}

void LumoJsonWriter::writeInteger(const LumoJson& value) {
    char buffer[NUMBER_BUFFER];
    const auto written = value.m_tag == LumoJson::Tag::Signed
                             ? std::to_chars(buffer, buffer + sizeof buffer, value.payload<std::int64_t>())
                             : std::to_chars(buffer, buffer + sizeof buffer, value.payload<std::uint64_t>());
    m_text.append(buffer, written.ptr);
}

void LumoJsonWriter::writeDouble(double value) {
    if (!std::isfinite(value)) {
        throw std::runtime_error("Non-finite number cannot be written as JSON.");
    }
    char buffer[NUMBER_BUFFER];
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value);
    const std::string_view digits(buffer, static_cast<std::size_t>(written.ptr - buffer));
    m_text += digits;
    if (digits.find_first_of(".e") == std::string_view::npos) {
        m_text += ".0";
    }
}

void LumoJsonWriter::writeString(std::string_view text) {
    if (nsTolvUtf8::findInvalid(text) != std::string_view::npos) {
        throw std::runtime_error("Text that is not valid UTF-8 cannot be written as JSON.");
    }
    m_text += '"';
    std::size_t done = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x20 || byte == '"' || byte == '\\') {
            m_text.append(text, done, at - done);
            writeEscape(byte);
            done = at + 1;
        }
    }
    m_text.append(text, done);
    m_text += '"';
}

void LumoJsonWriter::writeEscape(unsigned char byte) {
    constexpr std::string_view PLAIN = "\"\\\b\f\n\r\t";
    constexpr std::string_view LETTERS = "\"\\bfnrt";
    constexpr std::string_view DIGITS = "0123456789abcdef";
    const std::size_t known = PLAIN.find(static_cast<char>(byte));
    if (known != std::string_view::npos) {
        m_text += '\\';
        m_text += LETTERS[known];
        return;
    }
    m_text += "\\u00";
    m_text += DIGITS[byte >> 4U];
    m_text += DIGITS[byte & 0xFU];
}
