#include "tolvbase/LumoJson.h"

#include <algorithm>
#include <utility>

#include "tolvbase/LumoJsonNode.h"
#include "tolvbase/LumoJsonReader.h"
#include "tolvbase/LumoJsonWriter.h"

static_assert(sizeof(LumoJson) == 16);

LumoJson::LumoJson(const LumoJson& other) {
    const LumoJsonNode* const elements = other.node();
    if (elements != nullptr) {
        setPayload(LumoJsonNode::copy(*elements).release());
        m_tag = other.m_tag;
    } else if (other.m_tag == Tag::LongString) {
        toJson(*this, other.text());
    } else {
        std::memcpy(m_bytes, other.m_bytes, sizeof m_bytes);
        m_tag = other.m_tag;
    }
}

LumoJson& LumoJson::operator=(const LumoJson& other) {
    LumoJson copied(other);
    swap(copied);
    return *this;
}

LumoJson::LumoJson(std::initializer_list<LumoJson> elements, bool deduceType) {
    const auto isMember = [](const LumoJson& element) {
        return element.is_array() && element.size() == 2 && element.front().is_string();
    };
    if (!deduceType || !std::all_of(elements.begin(), elements.end(), isMember)) {
        *this = array(elements);
        return;
    }
    LumoJson object = emptyContainer(LumoJsonType::Object);
    for (const LumoJson& element : elements) {
        object.member(element.front().text()) = element.back();
    }
    swap(object);
}

LumoJson LumoJson::array(std::initializer_list<LumoJson> elements) {
    LumoJson result = emptyContainer(LumoJsonType::Array);
    if (elements.size() != 0) {
        LumoJsonNode* const node = result.ensureRoom(elements.size());
        for (const LumoJson& element : elements) {
            node->push(element);
        }
    }
    return result;
}

LumoJson LumoJson::parse(std::string_view text) { return LumoJsonReader(text).read(); }

std::string LumoJson::dump() const { return LumoJsonWriter().write(*this); }

LumoJsonType LumoJson::type() const noexcept {
    switch (m_tag) {
    case Tag::Null:
        return LumoJsonType::Null;
    case Tag::Boolean:
        return LumoJsonType::Boolean;
    case Tag::Signed:
    case Tag::Unsigned:
    case Tag::Double:
        return LumoJsonType::Number;
    case Tag::ShortString:
    case Tag::LongString:
        return LumoJsonType::String;
    case Tag::Array:
        return LumoJsonType::Array;
    case Tag::Object:
        break;
    }
    return LumoJsonType::Object;
}

void LumoJson::clear() noexcept {
    if (is_array() || is_object()) {
        LumoJsonNode::release(detachNode());
    } else if (is_string()) {
        LumoJson old(std::move(*this));
        m_tag = Tag::ShortString;
        m_bytes[0] = 0;
    } else {
        m_tag = Tag::Null;
    }
}

LumoJson LumoJson::emptyContainer(LumoJsonType type) noexcept {
    LumoJson result;
    result.setPayload<LumoJsonNode*>(nullptr);
    result.m_tag = type == LumoJsonType::Object ? Tag::Object : Tag::Array;
    return result;
}

void LumoJson::release() noexcept {
    if (m_tag == Tag::LongString) {
        ::operator delete(payload<char*>());
    } else {
        LumoJsonNode::release(payload<LumoJsonNode*>());
    }
    m_tag = Tag::Null;
}

LumoJsonNode* LumoJson::ensureRoom(std::size_t count) {
    LumoJsonNode* const elements = LumoJsonNode::withRoom(node(), count);
    setPayload(elements);
    return elements;
}

LumoJson& LumoJson::member(std::string_view key) {
    LumoJsonNode* const elements = node();
    if (LumoJson* const found = elements == nullptr ? nullptr : elements->findMember(key)) {
        return *found;
    }
    LumoJson copied(key); // The key may be a view into this very object.
    return ensureRoom(LumoJsonNode::MEMBER_STRIDE)->append(std::move(copied));
}
