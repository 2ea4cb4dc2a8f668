#include "tolvbase/LumoJsonNode.h"

#include <cstring>
#include <limits>
#include <new>
#include <utility>

// The values follow the head without a gap, and moving one is copying its bytes.
static_assert(sizeof(LumoJsonNode) % alignof(LumoJson) == 0 && alignof(LumoJsonNode) >= alignof(LumoJson));

LumoJsonNode::Owner LumoJsonNode::make(std::size_t capacity) {
    constexpr std::size_t MOST =
        (std::numeric_limits<std::size_t>::max() / 2 - sizeof(LumoJsonNode)) / sizeof(LumoJson);
    if (capacity > MOST) {
        throw std::bad_alloc();
    }
    void* const block = ::operator new(sizeof(LumoJsonNode) + capacity * sizeof(LumoJson));
    return Owner(new (block) LumoJsonNode(capacity));
}

LumoJsonNode::Owner LumoJsonNode::takeOver(std::span<LumoJson> values) {
    Owner node = make(values.size());
    std::memcpy(static_cast<void*>(node->place(0)), static_cast<const void*>(values.data()),
                values.size_bytes());
    node->m_size = values.size();
    return node;
}

LumoJsonNode* LumoJsonNode::withRoom(LumoJsonNode* node, std::size_t count) {
    if (node == nullptr) {
        return make(count).release();
    }
    if (node->m_capacity - node->m_size >= count) {
        return node;
    }
    Owner grown = make(2 * node->m_size + count);
    const std::span<LumoJson> values = node->values();
    std::memcpy(static_cast<void*>(grown->place(0)), static_cast<const void*>(values.data()),
                values.size_bytes());
    grown->m_size = std::exchange(node->m_size, 0);
    grown->m_index = std::move(node->m_index);
    release(node);
    return grown.release();
}

LumoJson* LumoJsonNode::findMember(std::string_view key) {
    if (m_index) {
        const std::size_t found = m_index->find(values(), key);
        return found == LumoJsonKeyIndex::NOT_FOUND ? nullptr : place(found);
    }
    for (std::size_t at = 1; at < m_size; at += MEMBER_STRIDE) {
        if (place(at - 1)->text() == key) {
            return place(at);
        }
    }
    return nullptr;
}

LumoJson& LumoJsonNode::push(LumoJson value) noexcept {
    return *new (place(m_size++)) LumoJson(std::move(value));
}

LumoJson& LumoJsonNode::append(LumoJson key) {
    if (!m_index && m_size / MEMBER_STRIDE == MEMBERS_WITHOUT_INDEX) {
        m_index = std::make_unique<LumoJsonKeyIndex>(values());
    }
    if (m_index) {
        m_index->add(values(), key.text(), m_size + 1);
    }
    push(std::move(key));
    return push(LumoJson());
}

void LumoJsonNode::adoptMembers(std::span<LumoJson> keysAndValues) {
    for (std::size_t at = 1; at < keysAndValues.size(); at += MEMBER_STRIDE) {
        LumoJson& key = keysAndValues[at - 1];
        LumoJson* const known = findMember(key.text());
        LumoJson& value = known == nullptr ? append(std::move(key)) : *known;
        value = std::move(keysAndValues[at]);
    }
}

LumoJsonNode::Owner LumoJsonNode::copy(const LumoJsonNode& source) {
    Owner root = make(source.m_size);
    std::vector<CopyStep> open{{&source, root.get()}};
    while (!open.empty()) {
        const CopyStep step = open.back();
        open.pop_back();
        step.to->copyValues(*step.from, open);
    }
    return root;
}

void LumoJsonNode::copyValues(const LumoJsonNode& source, std::vector<CopyStep>& open) {
    for (const LumoJson& value : source.values()) {
        if (const LumoJsonNode* const below = value.node()) {
            LumoJson& copied = push(LumoJson::emptyContainer(value.type()));
            open.push_back({below, copied.ensureRoom(below->m_size)});
        } else {
            push(value);
        }
    }
    if (source.m_index) {
        m_index = std::make_unique<LumoJsonKeyIndex>(*source.m_index);
    }
}

void LumoJsonNode::release(LumoJsonNode* node) noexcept {
    if (node != nullptr) {
        node->m_next = nullptr;
    }
    while (node != nullptr) {
        LumoJsonNode* const dying = node;
        node = dying->endValues(dying->m_next);
        dying->~LumoJsonNode();
        ::operator delete(dying);
    }
}

LumoJsonNode* LumoJsonNode::endValues(LumoJsonNode* waiting) noexcept {
    for (LumoJson& value : values()) {
        if (LumoJsonNode* const below = value.node()) {
            below->m_next = waiting;
            waiting = below;
        } else {
            value.~LumoJson();
        }
    }
    return waiting;
}
