#include "tolvbase/LumoJsonScanner.h"

#include <algorithm>
#include <charconv>

#include "tolvbase/LumoJsonNumber.h"
#include "tolvbase/TolvFormat.h"
#include "tolvbase/TolvUtf8.h"

std::optional<LumoJsonScanner::Fault> LumoJsonScanner::findFault() {
    if (m_text.starts_with(nsTolvUtf8::BYTE_ORDER_MARK)) {
        fail("the text begins with a byte order mark");
        return m_fault;
    }
    do {
        skipBlanks();
    } while (step());
    return m_fault;
}

std::string LumoJsonScanner::describe(std::string_view text, const Fault& fault) {
    const std::string_view before = text.substr(0, fault.offset);
    const std::size_t lineBreak = before.rfind('\n');
    const std::string_view line = lineBreak == std::string_view::npos ? before : before.substr(lineBreak + 1);
    const auto lineNumber = std::count(before.begin(), before.end(), '\n') + 1;
    const auto column = std::count_if(line.begin(), line.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
    });
    return Tolv::formatString("JSON text, line %td, column %td: %s.", lineNumber, column + 1, fault.reason);
}

bool LumoJsonScanner::step() {
    const bool isDone = m_expected == Expected::Separator && m_open.empty();
    if (m_at == m_text.size()) {
        return !isDone && fail(m_open.empty() ? "the text holds no value" : "the text ends early");
    }
    if (isDone) {
        return fail("text follows the value");
    }
    const char byte = m_text[m_at];
    switch (m_expected) {
    case Expected::Separator:
        return scanSeparator(byte);
    case Expected::Key:
        return scanKey();
    case Expected::KeyOrEnd:
        return byte == '}' ? close() : scanKey();
    case Expected::ValueOrEnd:
        return byte == ']' ? close() : scanValue(byte);
    case Expected::Value:
        break;
    }
    return scanValue(byte);
}

bool LumoJsonScanner::scanValue(char byte) {
    m_expected = Expected::Separator;
    switch (byte) {
    case '[':
    case '{':
        return open(byte);
    case '"':
        return scanString();
    case 't':
        return scanWord("true");
    case 'f':
        return scanWord("false");
    case 'n':
        return scanWord("null");
    default:
        return scanNumber();
    }
}

bool LumoJsonScanner::scanKey() {
    if (!isAt("\"")) {
        return fail("a key in quotation marks is expected");
    }
    if (!scanString()) {
        return false;
    }
    skipBlanks();
    if (!isAt(":")) {
        return fail("a colon is expected after the key");
    }
    ++m_at;
    m_expected = Expected::Value;
    return true;
}

bool LumoJsonScanner::scanSeparator(char byte) {
    const bool isObject = m_open.back() == '{';
    if (byte == ',') {
        ++m_at;
        m_expected = isObject ? Expected::Key : Expected::Value;
        return true;
    }
    if (byte == (isObject ? '}' : ']')) {
        return close();
    }
    return fail(isObject ? "',' or '}' is expected" : "',' or ']' is expected");
}

bool LumoJsonScanner::scanString() {
    const std::size_t start = m_at++;
    while (m_at < m_text.size() && m_text[m_at] != '"') {
        if (!scanCharacter()) {
            return false;
        }
    }
    if (m_at == m_text.size()) {
        m_at = start;
        return fail("the string is not closed");
    }
    ++m_at;
    return true;
}

bool LumoJsonScanner::scanCharacter() {
    constexpr unsigned char FIRST_PRINTABLE = 0x20;
    if (m_text[m_at] == '\\') {
        return scanEscape();
    }
    if (static_cast<unsigned char>(m_text[m_at]) < FIRST_PRINTABLE) {
        return fail("a control character in a string must be escaped");
    }
    const std::size_t length = nsTolvUtf8::characterLength(m_text.substr(m_at));
    m_at += length;
    return length != 0 || fail("the string is not valid UTF-8");
}

bool LumoJsonScanner::scanEscape() {
    if (isAt("\\u")) {
        return scanUnicodeEscape();
    }
    constexpr std::string_view LETTERS = "\"\\/bfnrt";
    if (m_at + 1 == m_text.size() || LETTERS.find(m_text[m_at + 1]) == std::string_view::npos) {
        return fail("the escape is unknown");
    }
    m_at += 2;
    return true;
}

bool LumoJsonScanner::scanUnicodeEscape() {
    constexpr std::size_t ESCAPE_LENGTH = 6;
    const int unit = hexAt(m_at + 2);
    if (unit < 0) {
        return fail("\\u needs four hexadecimal digits");
    }
    const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
    if (!isHigh) {
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        m_at += isLow ? 0 : ESCAPE_LENGTH;
        return !isLow || fail("a surrogate stands alone");
    }
    const bool isEscaped = m_text.substr(m_at + ESCAPE_LENGTH, 2) == "\\u";
    const int low = isEscaped ? hexAt(m_at + ESCAPE_LENGTH + 2) : -1;
    if (low < 0xDC00 || low > 0xDFFF) {
        return fail("a surrogate stands alone");
    }
    m_at += 2 * ESCAPE_LENGTH;
    return true;
}

bool LumoJsonScanner::scanNumber() {
    const std::size_t length = nsLumoJsonNumber::length(m_text.substr(m_at));
    if (length == 0) {
        return fail("a value is expected");
    }
    nsLumoJsonNumber::Number number;
    if (nsLumoJsonNumber::read(m_text.substr(m_at, length), number) != nsLumoJsonNumber::Result::Read) {
        return fail("the number is too large");
    }
    m_at += length;
    return true;
}

bool LumoJsonScanner::scanWord(std::string_view word) {
    if (!isAt(word)) {
        return fail("a value is expected");
    }
    m_at += word.size();
    return true;
}

bool LumoJsonScanner::open(char bracket) {
    if (m_open.size() == DEEPEST) {
        return fail("more than 512 levels");
    }
    m_open += bracket;
    ++m_at;
    m_expected = bracket == '{' ? Expected::KeyOrEnd : Expected::ValueOrEnd;
    return true;
}

bool LumoJsonScanner::close() {
    m_open.pop_back();
    ++m_at;
    m_expected = Expected::Separator;
    return true;
}

bool LumoJsonScanner::fail(const char* reason) {
    m_fault = Fault{m_at, reason};
    return false;
}

void LumoJsonScanner::skipBlanks() {
    m_at = std::min(m_text.find_first_not_of(" \t\n\r", m_at), m_text.size());
}

bool LumoJsonScanner::isAt(std::string_view expected) const {
    return m_text.substr(m_at, expected.size()) == expected;
}

int LumoJsonScanner::hexAt(std::size_t at) const {
    constexpr std::size_t DIGITS = 4;
    if (at + DIGITS > m_text.size()) {
        return -1;
    }
    unsigned int value = 0;
    const char* const first = m_text.data() + at;
    const auto [end, error] = std::from_chars(first, first + DIGITS, value, 16);
    return error == std::errc() && end == first + DIGITS ? static_cast<int>(value) : -1;
}
