#include "tolvbase/LumoJsonNode.h"

#include <utility>

LumoJson* LumoJsonNode::findMember(std::string_view key) {
    if (index) {
        const std::size_t place = index->find(values, key);
        return place == LumoJsonKeyIndex::NOT_FOUND ? nullptr : &values[place];
    }
    for (std::size_t place = 1; place < values.size(); place += MEMBER_STRIDE) {
        if (values[place - 1].text() == key) {
            return &values[place];
        }
    }
    return nullptr;
}

LumoJson& LumoJsonNode::member(std::string_view key) {
    if (LumoJson* const found = findMember(key)) {
        return *found;
    }
    return append(LumoJson(key)); // The key may be a view into this very object: it is copied first.
}

LumoJson& LumoJsonNode::append(LumoJson key) {
    if (values.size() == values.capacity()) {
        values.reserve(2 * values.size() + MEMBER_STRIDE);
    }
    if (!index && values.size() / MEMBER_STRIDE == MEMBERS_WITHOUT_INDEX) {
        index = std::make_unique<LumoJsonKeyIndex>(values);
    }
    if (index) {
        index->add(values, key.text(), values.size() + 1);
    }
    values.push_back(std::move(key));
    return values.emplace_back();
}

void LumoJsonNode::adoptMembers(std::span<LumoJson> keysAndValues) {
    values.reserve(keysAndValues.size());
    for (std::size_t place = 1; place < keysAndValues.size(); place += MEMBER_STRIDE) {
        LumoJson& key = keysAndValues[place - 1];
        LumoJson* const known = findMember(key.text());
        LumoJson& value = known == nullptr ? append(std::move(key)) : *known;
        value = std::move(keysAndValues[place]);
    }
}

std::unique_ptr<LumoJsonNode, void (*)(LumoJsonNode*)> LumoJsonNode::copy(const LumoJsonNode& source) {
    std::unique_ptr<LumoJsonNode, void (*)(LumoJsonNode*)> root(new LumoJsonNode, &LumoJsonNode::release);
    std::vector<CopyStep> open{{&source, root.get()}};
    while (!open.empty()) {
        const CopyStep step = open.back();
        open.pop_back();
        step.to->copyValues(*step.from, open);
    }
    return root;
}

void LumoJsonNode::copyValues(const LumoJsonNode& source, std::vector<CopyStep>& open) {
    values.reserve(source.values.size());
    for (const LumoJson& value : source.values) {
        LumoJson& copied = values.emplace_back();
        if (const LumoJsonNode* const below = value.node()) {
            copied = LumoJson::emptyContainer(value.type());
            open.push_back({below, copied.ensureNode()});
        } else {
            copied = value;
        }
    }
    if (source.index) {
        index = std::make_unique<LumoJsonKeyIndex>(*source.index);
    }
}

void LumoJsonNode::release(LumoJsonNode* node) noexcept {
    while (node != nullptr) {
        const std::unique_ptr<LumoJsonNode> dying(node);
        node = dying->detachContainers(dying->next);
    }
}

LumoJsonNode* LumoJsonNode::detachContainers(LumoJsonNode* waiting) noexcept {
    for (LumoJson& value : values) {
        if (LumoJsonNode* const below = value.detachNode()) {
            below->next = waiting;
            waiting = below;
        }
    }
    return waiting;
}
