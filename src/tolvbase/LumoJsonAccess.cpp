#include <stdexcept>
#include <utility>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonNode.h"

namespace {

[[noreturn]] void throwMissing(const char* what) { throw std::out_of_range(what); }

constexpr const char* NO_MEMBER = "JSON value has no such member.";
constexpr const char* NO_ELEMENT = "JSON value has no such element.";

} // namespace

LumoJson& LumoJson::operator[](std::string_view key) & {
    if (is_null()) {
        *this = emptyContainer(LumoJsonType::Object);
    }
    if (!is_object()) {
        throw std::runtime_error("JSON value is no object and takes no member.");
    }
    return member(key);
}

LumoJson& LumoJson::operator[](const char* key) & {
    return key == nullptr ? (throwMissing(NO_MEMBER), *this) : (*this)[std::string_view(key)];
}

const LumoJson& LumoJson::operator[](std::string_view key) const& {
    const LumoJson* const found = findMember(key);
    return found == nullptr ? (throwMissing(NO_MEMBER), *this) : *found;
}

const LumoJson& LumoJson::operator[](const char* key) const& {
    return key == nullptr ? (throwMissing(NO_MEMBER), *this) : (*this)[std::string_view(key)];
}

const LumoJson& LumoJson::operator[](int index) const& {
    return index < 0 ? (throwMissing(NO_ELEMENT), *this) : (*this)[static_cast<std::size_t>(index)];
}

const LumoJson& LumoJson::operator[](std::size_t index) const& {
    const LumoJson* const found = findElement(index);
    return found == nullptr ? (throwMissing(NO_ELEMENT), *this) : *found;
}

// A value that may change gives elements that may change.
LumoJson& LumoJson::operator[](int index) & { return const_cast<LumoJson&>(std::as_const(*this)[index]); }

LumoJson& LumoJson::operator[](std::size_t index) & {
    return const_cast<LumoJson&>(std::as_const(*this)[index]);
}

bool LumoJson::contains(std::string_view key) const { return findMember(key) != nullptr; }

bool LumoJson::contains(const char* key) const { return key != nullptr && contains(std::string_view(key)); }

LumoJson::iterator LumoJson::find(std::string_view key) { return iterator(std::as_const(*this).find(key)); }

LumoJson::const_iterator LumoJson::find(std::string_view key) const {
    const LumoJson* const found = findMember(key);
    return found == nullptr ? cend() : const_iterator(found - 1, LumoJsonNode::MEMBER_STRIDE);
}

LumoJson::iterator LumoJson::begin() { return iterator(cbegin()); }

LumoJson::iterator LumoJson::end() { return iterator(cend()); }

LumoJson::const_iterator LumoJson::cbegin() const {
    if (!is_array() && !is_object()) {
        throw std::runtime_error("JSON value is no container and has no elements.");
    }
    return empty() ? cend() : const_iterator(node()->values().data(), stride());
}

LumoJson::const_iterator LumoJson::cend() const {
    const LumoJsonNode* const elements = node();
    return elements == nullptr
               ? const_iterator()
               : const_iterator(elements->values().data() + elements->values().size(), stride());
}

std::size_t LumoJson::size() const noexcept {
    const LumoJsonNode* const elements = node();
    return elements == nullptr ? 0 : elements->values().size() / static_cast<std::size_t>(stride());
}

void LumoJson::makeArray() {
    if (is_null()) {
        *this = emptyContainer(LumoJsonType::Array);
    }
    if (!is_array()) {
        throw std::runtime_error("JSON value is no array and cannot become one.");
    }
}

void LumoJson::push_back(LumoJson value) {
    makeArray();
    ensureRoom(1)->push(std::move(value));
}

LumoJson& LumoJson::back() { return const_cast<LumoJson&>(atEdge(true)); }

const LumoJson& LumoJson::back() const { return atEdge(true); }

LumoJson& LumoJson::front() { return const_cast<LumoJson&>(atEdge(false)); }

const LumoJson& LumoJson::front() const { return atEdge(false); }

const LumoJson* LumoJson::findMember(std::string_view key) const {
    LumoJsonNode* const elements = is_object() ? node() : nullptr;
    return elements == nullptr ? nullptr : elements->findMember(key);
}

const LumoJson* LumoJson::findElement(std::size_t index) const noexcept {
    const LumoJsonNode* const elements = is_array() ? node() : nullptr;
    return elements == nullptr || index >= elements->values().size() ? nullptr : &elements->values()[index];
}

const LumoJson& LumoJson::atEdge(bool isBack) const {
    if (empty()) {
        throwMissing(NO_ELEMENT);
    }
    const LumoJsonNode* const elements = node();
    return isBack ? elements->values().back() : elements->values()[static_cast<std::size_t>(stride()) - 1];
}

int LumoJson::stride() const noexcept {
    return m_tag == Tag::Object ? LumoJsonNode::MEMBER_STRIDE : LumoJsonNode::ELEMENT_STRIDE;
}
