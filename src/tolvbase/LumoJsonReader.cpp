#include "tolvbase/LumoJsonReader.h"

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include <simdjson.h>

#include "tolvbase/LumoJsonNode.h"
#include "tolvbase/LumoJsonNumber.h"
#include "tolvbase/LumoJsonScanner.h"
#include "tolvbase/TolvUtf8.h"

/// Builds the value while simdjson walks the text: structure and strings come from there, words and numbers
/// are read from their tokens here, which keeps 64-bit integers, larger ones and the last bit of doubles.
/// Every operation returns false for a text that is refused; nobody may go on after that.
class LumoJsonTreeBuilder {
public:
    bool build(simdjson::ondemand::document& document, LumoJson& root, const char* textEnd) {
        if (!take(document, root)) {
            return false;
        }
        if (!root.is_array() && !root.is_object() && !root.is_string()) {
            return m_tokenEnd == textEnd;
        }
        while (!m_open.empty()) {
            if (!advance()) {
                return false;
            }
        }
        return document.current_location().error() == simdjson::OUT_OF_BOUNDS; // Nothing follows the value.
    }

private:
    /// A container that is being read. Only the iterator of its kind is in use.
    struct Level {
        LumoJsonNode* node;
        bool isObject;
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
            m_open.pop_back();
        } else if (!(m_open.back().isObject ? takeMember() : takeElement())) {
            return false;
        }
        if (m_open.size() <= depth && !m_open.empty()) {
            m_open.back().step();
        }
        return true;
    }

    bool takeElement() {
        Level& level = m_open.back();
        simdjson::ondemand::value value;
        return (*level.elements).get(value) == simdjson::SUCCESS &&
               take(value, level.node->values.emplace_back());
    }

    bool takeMember() {
        Level& level = m_open.back();
        simdjson::ondemand::field field;
        std::string_view key;
        if ((*level.members).get(field) != simdjson::SUCCESS ||
            field.unescaped_key().get(key) != simdjson::SUCCESS || !isText(key)) {
            return false;
        }
        return take(field.value(), level.node->member(key));
    }

    /// Stores a scalar in `slot`, or makes it a container and opens that.
    template <class Source>
    bool take(Source&& source, LumoJson& slot) {
        simdjson::ondemand::json_type type{};
        if (source.type().get(type) != simdjson::SUCCESS) {
            return false;
        }
        switch (type) {
        case simdjson::ondemand::json_type::array:
            return openArray(source, slot);
        case simdjson::ondemand::json_type::object:
            return openObject(source, slot);
        case simdjson::ondemand::json_type::string:
            return takeString(source, slot);
        default:
            return takeToken(source, slot);
        }
    }

    template <class Source>
    bool openArray(Source& source, LumoJson& slot) {
        simdjson::ondemand::array array;
        Level level{};
        if (m_open.size() == LumoJsonScanner::DEEPEST || source.get_array().get(array) != simdjson::SUCCESS ||
            array.begin().get(level.elements) != simdjson::SUCCESS) {
            return false;
        }
        return open(level, LumoJsonType::Array, slot);
    }

    template <class Source>
    bool openObject(Source& source, LumoJson& slot) {
        simdjson::ondemand::object object;
        Level level{};
        if (m_open.size() == LumoJsonScanner::DEEPEST ||
            source.get_object().get(object) != simdjson::SUCCESS ||
            object.begin().get(level.members) != simdjson::SUCCESS) {
            return false;
        }
        return open(level, LumoJsonType::Object, slot);
    }

    bool open(Level& level, LumoJsonType type, LumoJson& slot) {
        slot = LumoJson::emptyContainer(type);
        level.node = slot.ensureNode();
        level.isObject = type == LumoJsonType::Object;
        m_open.push_back(level);
        return true;
    }

    template <class Source>
    bool takeString(Source& source, LumoJson& slot) {
        std::string_view text;
        if (source.get_string().get(text) != simdjson::SUCCESS || !isText(text)) {
            return false;
        }
        LumoJson::toJson(slot, text);
        return true;
    }

    template <class Source>
    bool takeToken(Source& source, LumoJson& slot) {
        std::string_view token;
        if (simdjson::simdjson_result<std::string_view>(source.raw_json_token()).get(token) !=
            simdjson::SUCCESS) {
            return false;
        }
        m_tokenEnd = token.data() + token.size();
        token = token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
        if (token == "null") {
            slot = LumoJson();
        } else if (token == "true" || token == "false") {
            LumoJson::toJson(slot, token.size() == 4);
        } else {
            return nsLumoJsonNumber::read(token, slot) == nsLumoJsonNumber::Result::Read;
        }
        return true;
    }

    /// The text is valid as bytes, but an escape may have left half of a surrogate pair: those bytes begin
    /// so.
    static bool isText(std::string_view text) {
        constexpr int SURROGATE_LEAD = 0xED;
        return std::memchr(text.data(), SURROGATE_LEAD, text.size()) == nullptr ||
               nsTolvUtf8::findInvalid(text) == std::string_view::npos;
    }

    std::vector<Level> m_open;
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
    LumoJson root;
    if (error != simdjson::SUCCESS ||
        !LumoJsonTreeBuilder().build(document, root, padded.data() + m_text.size())) {
        refuse(error == simdjson::CAPACITY ? "the text is too long" : "the text is refused");
    }
    return root;
}

void LumoJsonReader::refuse(const char* otherwise) const {
    const LumoJsonScanner::Fault unknown{0, otherwise};
    throw std::runtime_error(
        LumoJsonScanner::describe(m_text, LumoJsonScanner(m_text).findFault().value_or(unknown)));
}
