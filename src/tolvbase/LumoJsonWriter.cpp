#include "tolvbase/LumoJsonWriter.h"

#include <cstdint>

#include "tolvbase/LumoJsonText.h"

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
    const std::size_t depth = m_open.size();
    while (level.left != 0) {
        if (level.left != level.container->size()) {
            m_text += ',';
        }
        if (isObject) {
            nsLumoJsonText::append(m_text, level.next.key());
            m_text += ':';
        }
        const LumoJson& value = *level.next++;
        --level.left;
        writeValue(value);
        if (m_open.size() != depth) { // A level was opened, and `level` has moved.
            return;
        }
    }
    m_text += isObject ? '}' : ']';
    m_open.pop_back();
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
        nsLumoJsonText::append(m_text, value.payload<std::int64_t>());
        break;
    case LumoJson::Tag::Unsigned:
        nsLumoJsonText::append(m_text, value.payload<std::uint64_t>());
        break;
    case LumoJson::Tag::Double:
        nsLumoJsonText::append(m_text, value.payload<double>());
        break;
    case LumoJson::Tag::ShortString:
    case LumoJson::Tag::LongString:
        nsLumoJsonText::append(m_text, value.text());
        break;
    case LumoJson::Tag::Array:
    case LumoJson::Tag::Object:
        m_text += value.is_object() ? '{' : '[';
        m_open.push_back({&value, value.cbegin(), value.size()});
        break;
    }
}
