#include "tolvbase/LumoJsonReader.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <simdjson.h>

#include "tolvbase/LumoJsonNode.h"
#include "tolvbase/LumoJsonNumber.h"
#include "tolvbase/LumoJsonScanner.h"
#include "tolvbase/LumoJsonStack.h"
#include "tolvbase/LumoJsonUnescape.h"
#include "tolvbase/TolvUtf8.h"

/// Builds the value from the places where the tokens of the text begin: brackets, colons, commas, strings
/// and whatever else is not blank. Every operation returns false for a text that is refused; nobody may go
/// on after that.
///
/// The values of all open containers wait on one stack; a container takes its own when it closes, and their
/// number is known then.
class LumoJsonTreeBuilder {
public:
    /// The text is UTF-8, its strings are closed and hold no control characters. Behind the last place stands
    /// the text's size.
    LumoJsonTreeBuilder(std::string_view text, std::span<const std::uint32_t> places)
        : m_text(text),
          m_next(places.data()),
          m_end(m_next + places.size()),
          m_hasEscapes(text.find('\\') != std::string_view::npos) {}

    bool build() {
        if (!takeValue()) {
            return false;
        }
        while (!m_open.empty()) {
            if (!goOn()) {
                return false;
            }
        }
        return m_next == m_end; // Nothing follows the value.
    }

    /// What `build` has built.
    LumoJson& root() { return m_values.top(); }

private:
    /// A container that is being read.
    struct Level {
        std::size_t firstValue;
        char closing;
    };

    /// The first byte of the next token; zero, which is none, behind the last one.
    [[nodiscard]] char peek() const { return m_next == m_end ? '\0' : m_text[*m_next]; }

    bool takeByte(char expected) {
        if (peek() != expected) {
            return false;
        }
        ++m_next;
        return true;
    }

    /// The next token, which must not be the end.
    std::string_view takeToken() {
        const char* const first = m_text.data() + m_next[0];
        const char* last = m_text.data() + m_next[1] - 1;
        while (*last == ' ' || *last == '\n' || *last == '\r' || *last == '\t') {
            --last;
        }
        ++m_next;
        return {first, static_cast<std::size_t>(last - first) + 1};
    }

    /// Goes on behind a value in the innermost container: takes the next one, or closes the container.
    bool goOn() {
        const char closing = m_open.back().closing;
        if (takeByte(',')) {
            return (closing == ']' || takeKey()) && takeValue();
        }
        if (!takeByte(closing)) {
            return false;
        }
        close();
        return true;
    }

    /// Takes a scalar or an empty container, and opens those that it is the first value of.
    bool takeValue() {
        for (;;) {
            const char byte = peek();
            if (byte != '[' && byte != '{') {
                return byte == '"' ? takeString() : takeScalar(byte);
            }
            if (m_open.size() == LumoJsonScanner::DEEPEST) {
                return false;
            }
            ++m_next;
            m_open.push_back({m_values.size(), byte == '[' ? ']' : '}'});
            if (takeByte(m_open.back().closing)) {
                close();
                return true;
            }
            if (byte == '{' && !takeKey()) {
                return false;
            }
        }
    }

    bool takeKey() { return peek() == '"' && takeString() && takeByte(':'); }

    bool takeString() {
        std::string_view text = takeToken();
        if (text.size() < 2 || text.back() != '"') {
            return false;
        }
        text = text.substr(1, text.size() - 2);
        if (!m_hasEscapes || text.find('\\') == std::string_view::npos) {
            addText(text);
            return true;
        }
        m_unescaped.clear();
        if (!nsLumoJsonUnescape::append(m_unescaped, text)) {
            return false;
        }
        LumoJson::toJson(m_values.push(), m_unescaped);
        return true;
    }

    /// Adds a part of the document.
    void addText(std::string_view text) {
        constexpr std::size_t SHORT = LumoJson::SHORT_TEXT;
        LumoJson& value = m_values.push();
        if (text.size() > SHORT || static_cast<std::size_t>(m_text.end() - text.begin()) < SHORT) {
            LumoJson::toJson(value, text);
            return;
        }
        // All bytes that a short text may have are copied, and those that are not its own are erased.
        value.m_tag = LumoJson::Tag::ShortString;
        value.m_bytes[0] = static_cast<char>(text.size());
        const unsigned char* const mask = OWN_BYTES.data() + SHORT - text.size();
        copyWord(value.m_bytes + 1, text.data(), mask);
        copyWord(value.m_bytes + 1 + LATER_WORD, text.data() + LATER_WORD, mask + LATER_WORD);
    }

    static void copyWord(char* to, const char* from, const unsigned char* mask) {
        std::uint64_t word = 0;
        std::uint64_t kept = 0;
        std::memcpy(&word, from, sizeof word);
        std::memcpy(&kept, mask, sizeof kept);
        word &= kept;
        std::memcpy(to, &word, sizeof word);
    }

    bool takeScalar(char byte) {
        if (m_next == m_end) {
            return false;
        }
        const std::string_view token = takeToken();
        switch (byte) {
        case 't':
            LumoJson::toJson(m_values.push(), true);
            return token == "true";
        case 'f':
            LumoJson::toJson(m_values.push(), false);
            return token == "false";
        case 'n':
            m_values.push();
            return token == "null";
        default:
            return addNumber(token);
        }
    }

    bool addNumber(std::string_view token) {
        nsLumoJsonNumber::Number number;
        if (nsLumoJsonNumber::read(token, number) != nsLumoJsonNumber::Result::Read) {
            return false;
        }
        LumoJson& value = m_values.push();
        value.setPayload(number.bits);
        using Kind = nsLumoJsonNumber::Number::Kind;
        value.m_tag = number.kind == Kind::Double     ? LumoJson::Tag::Double
                      : number.kind == Kind::Unsigned ? LumoJson::Tag::Unsigned
                                                      : LumoJson::Tag::Signed;
        return true;
    }

    void close() {
        const auto [first, closing] = m_open.back();
        m_open.pop_back();
        const std::span<LumoJson> own = m_values.from(first);
        LumoJsonNode::Owner node;
        if (closing == '}' && mayHaveEqualKeys(own)) {
            node = LumoJsonNode::make(own.size());
            node->adoptMembers(own);
            m_values.shrink(first);
        } else if (!own.empty()) {
            node = LumoJsonNode::takeOver(own);
            m_values.forget(first);
        }
        LumoJson& container = m_values.push();
        container.setPayload(node.release());
        container.m_tag = closing == '}' ? LumoJson::Tag::Object : LumoJson::Tag::Array;
    }

    /// Whether keys of the object are equal, or are so many that they need an index.
    static bool mayHaveEqualKeys(std::span<const LumoJson> keysAndValues) {
        constexpr std::size_t STRIDE = LumoJsonNode::MEMBER_STRIDE;
        if (keysAndValues.size() > STRIDE * LumoJsonNode::MEMBERS_WITHOUT_INDEX) {
            return true;
        }
        std::uint64_t seen = 0;
        for (std::size_t at = 0; at < keysAndValues.size(); at += STRIDE) {
            const std::uint64_t bit = std::uint64_t{1} << mark(keysAndValues[at]);
            if ((seen & bit) != 0 && isAmong(keysAndValues[at].text(), keysAndValues.first(at))) {
                return true;
            }
            seen |= bit;
        }
        return false;
    }

    /// A number below 64, the same for equal keys.
    static std::uint64_t mark(const LumoJson& key) {
        constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15;
        constexpr unsigned int KEPT = 64 - 6;
        const std::string_view text = key.text();
        const bool isShort = key.m_tag == LumoJson::Tag::ShortString; // What follows a short text is zero.
        std::uint64_t first = 0;
        std::uint64_t later = 0;
        std::memcpy(&first, text.data(), sizeof first);
        std::memcpy(&later, text.data() + (isShort ? LATER_WORD : 0), sizeof later);
        return ((first * SPREAD ^ later) + text.size()) * SPREAD >> KEPT;
    }

    static bool isAmong(std::string_view key, std::span<const LumoJson> keysAndValues) {
        for (std::size_t at = 0; at < keysAndValues.size(); at += LumoJsonNode::MEMBER_STRIDE) {
            if (keysAndValues[at].text() == key) {
                return true;
            }
        }
        return false;
    }

    /// Two words cover all bytes of a short text: the first ones, and the last ones from here on.
    static constexpr std::size_t LATER_WORD = LumoJson::SHORT_TEXT - sizeof(std::uint64_t);
    /// From the place `SHORT_TEXT - n` on: n bytes to keep, then bytes to erase.
    static constexpr std::array<unsigned char, 2 * LumoJson::SHORT_TEXT> OWN_BYTES = [] {
        std::array<unsigned char, 2 * LumoJson::SHORT_TEXT> bytes{};
        for (std::size_t at = 0; at < LumoJson::SHORT_TEXT; ++at) {
            bytes[at] = 0xFF;
        }
        return bytes;
    }();

    std::string_view m_text;
    const std::uint32_t* m_next;
    const std::uint32_t* m_end;
    bool m_hasEscapes;
    std::vector<Level> m_open;
    LumoJsonStack m_values;
    std::string m_unescaped;
};

LumoJson LumoJsonReader::read() const {
    using simdjson::internal::dom_parser_implementation;
    if (m_text.empty() || m_text.starts_with(nsTolvUtf8::BYTE_ORDER_MARK)) {
        refuse("the text is refused");
    }
    std::unique_ptr<dom_parser_implementation> parser;
    simdjson::error_code error =
        simdjson::get_active_implementation()->create_dom_parser_implementation(m_text.size(), 1, parser);
    if (error == simdjson::SUCCESS) {
        error = parser->stage1(reinterpret_cast<const std::uint8_t*>(m_text.data()), m_text.size(),
                               simdjson::stage1_mode::regular);
    }
    if (error == simdjson::MEMALLOC) {
        throw std::bad_alloc();
    }
    if (error != simdjson::SUCCESS) {
        refuse(error == simdjson::CAPACITY ? "the text is too long" : "the text is refused");
    }
    const std::span<std::uint32_t> places(parser->structural_indexes.get(), parser->n_structural_indexes + 1);
    places.back() = static_cast<std::uint32_t>(m_text.size());
    LumoJsonTreeBuilder builder(m_text, places.first(places.size() - 1));
    if (!builder.build()) {
        refuse("the text is refused");
    }
    return std::move(builder.root());
}

void LumoJsonReader::refuse(const char* otherwise) const {
    const LumoJsonScanner::Fault unknown{0, otherwise};
    throw std::runtime_error(
        LumoJsonScanner::describe(m_text, LumoJsonScanner(m_text).findFault().value_or(unknown)));
}
