#include "tolvbase/LumoJsonReader.h"

#include <iterator>
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
#include "tolvbase/TolvUtf8.h"

/// Builds the value while simdjson walks the text: structure and strings come from there, words and numbers
/// are read from their tokens here, which keeps 64-bit integers, larger ones and the last bit of doubles.
/// Every operation returns false for a text that is refused; nobody may go on after that.
///
/// The values of all open containers wait on one stack; a container takes its own when it closes, and their
/// number is known then.
class LumoJsonTreeBuilder {
public:
    /// `hasUnicodeEscapes` tells whether "\\u" stands anywhere in the text.
    explicit LumoJsonTreeBuilder(bool hasUnicodeEscapes) : m_hasUnicodeEscapes(hasUnicodeEscapes) {}

    bool build(simdjson::ondemand::document& document, const char* textEnd) {
        if (!take(document)) {
            return false;
        }
        if (m_open.empty() && !root().is_string()) {
            return m_tokenEnd == textEnd;
        }
        while (!m_open.empty()) {
            if (!advance()) {
                return false;
            }
        }
        return document.current_location().error() == simdjson::OUT_OF_BOUNDS; // Nothing follows the value.
    }

    /// What `build` has built.
    LumoJson& root() { return m_values.front(); }

private:
    /// A container that is being read. Only the iterator of its kind is in use.
    struct Level {
        bool isObject = false;
        std::size_t firstValue = 0;
        simdjson::ondemand::array_iterator elements;
        simdjson::ondemand::object_iterator members;

        [[nodiscard]] bool isOpen() const { return isObject ? members != members : elements != elements; }
        void step() {
            if (isObject) {
                ++members;
            } else {
                ++elements;
            }
        }
    };

    /// Goes on in the innermost container: takes its next value, or leaves it.
    bool advance() {
        const std::size_t depth = m_open.size();
        if (!m_open.back().isOpen()) {
            close();
        } else if (!(m_open.back().isObject ? takeMember() : takeElement())) {
            return false;
        }
        if (m_open.size() <= depth && !m_open.empty()) {
            m_open.back().step();
        }
        return true;
    }

    bool takeElement() {
        simdjson::ondemand::value value;
        return (*m_open.back().elements).get(value) == simdjson::SUCCESS && take(value);
    }

    bool takeMember() {
        simdjson::ondemand::field field;
        std::string_view key;
        if ((*m_open.back().members).get(field) != simdjson::SUCCESS ||
            field.unescaped_key().get(key) != simdjson::SUCCESS || !isText(key)) {
            return false;
        }
        m_values.emplace_back(key);
        return take(field.value());
    }

    /// Adds a scalar to the waiting values, or opens a container.
    template <class Source>
    bool take(Source&& source) {
        simdjson::ondemand::json_type type{};
        if (source.type().get(type) != simdjson::SUCCESS) {
            return false;
        }
        switch (type) {
        case simdjson::ondemand::json_type::array:
            return openArray(source);
        case simdjson::ondemand::json_type::object:
            return openObject(source);
        case simdjson::ondemand::json_type::string:
            return takeString(source);
        default:
            return takeToken(source);
        }
    }

    template <class Source>
    bool openArray(Source& source) {
        simdjson::ondemand::array array;
        Level level;
        return m_open.size() < LumoJsonScanner::DEEPEST &&
               source.get_array().get(array) == simdjson::SUCCESS &&
               array.begin().get(level.elements) == simdjson::SUCCESS && open(level);
    }

    template <class Source>
    bool openObject(Source& source) {
        simdjson::ondemand::object object;
        Level level;
        level.isObject = true;
        return m_open.size() < LumoJsonScanner::DEEPEST &&
               source.get_object().get(object) == simdjson::SUCCESS &&
               object.begin().get(level.members) == simdjson::SUCCESS && open(level);
    }

    bool open(Level& level) {
        level.firstValue = m_values.size();
        m_open.push_back(level);
        return true;
    }

    void close() {
        const bool isObject = m_open.back().isObject;
        const auto first = static_cast<std::ptrdiff_t>(m_open.back().firstValue);
        m_open.pop_back();
        const std::span<LumoJson> own(m_values.begin() + first, m_values.end());
        LumoJson container = LumoJson::emptyContainer(isObject ? LumoJsonType::Object : LumoJsonType::Array);
        if (isObject && !own.empty()) {
            container.ensureNode()->adoptMembers(own);
        } else if (!own.empty()) {
            container.ensureNode()->values.assign(std::move_iterator(own.begin()),
                                                  std::move_iterator(own.end()));
        }
        m_values.erase(m_values.begin() + first, m_values.end());
        m_values.push_back(std::move(container));
    }

    template <class Source>
    bool takeString(Source& source) {
        std::string_view text;
        if (source.get_string().get(text) != simdjson::SUCCESS || !isText(text)) {
            return false;
        }
        m_values.emplace_back(text);
        return true;
    }

    template <class Source>
    bool takeToken(Source& source) {
        std::string_view token;
        if (simdjson::simdjson_result<std::string_view>(source.raw_json_token()).get(token) !=
            simdjson::SUCCESS) {
            return false;
        }
        m_tokenEnd = token.data() + token.size();
        token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
        LumoJson& value = m_values.emplace_back();
        if (token == "true" || token == "false") {
            LumoJson::toJson(value, token.size() == 4);
            return true;
        }
        return token == "null" || nsLumoJsonNumber::read(token, value) == nsLumoJsonNumber::Result::Read;
    }

    /// The bytes of the document are valid, but an escape may have left half of a surrogate pair.
    [[nodiscard]] bool isText(std::string_view text) const {
        return !m_hasUnicodeEscapes || nsTolvUtf8::findInvalid(text) == std::string_view::npos;
    }

    bool m_hasUnicodeEscapes;
    std::vector<Level> m_open;
    std::vector<LumoJson> m_values;
    /// Where the last word or number ended, with the blanks that follow it.
    const char* m_tokenEnd = nullptr;
};

LumoJson LumoJsonReader::read() const {
    std::string padded;
    padded.reserve(m_text.size() + simdjson::SIMDJSON_PADDING);
    padded.append(m_text).append(simdjson::SIMDJSON_PADDING, '\0');
    simdjson::ondemand::parser parser;
    simdjson::ondemand::document document;
    const simdjson::error_code error =
        parser.iterate(padded.data(), m_text.size(), padded.size()).get(document);
    if (error == simdjson::MEMALLOC) {
        throw std::bad_alloc();
    }
    LumoJsonTreeBuilder builder(m_text.find("\\u") != std::string_view::npos);
    if (error != simdjson::SUCCESS || !builder.build(document, padded.data() + m_text.size())) {
        refuse(error == simdjson::CAPACITY ? "the text is too long" : "the text is refused");
    }
    return std::move(builder.root());
}

void LumoJsonReader::refuse(const char* otherwise) const {
    const LumoJsonScanner::Fault unknown{0, otherwise};
    throw std::runtime_error(
        LumoJsonScanner::describe(m_text, LumoJsonScanner(m_text).findFault().value_or(unknown)));
}
