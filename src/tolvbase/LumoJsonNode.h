#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonKeyIndex.h"

/// The elements of one array or object, on the heap: this head and behind it, in the same block, the values.
///
/// An array holds its elements side by side; an object holds key, value, key, value... in the order in which
/// the keys came. Deep trees are copied and released by loops over nodes, never by recursion.
class LumoJsonNode {
public:
    static constexpr int ELEMENT_STRIDE = 1;
    static constexpr int MEMBER_STRIDE = 2;
    /// Up to this many members a look-up walks the keys; beyond it an index is kept.
    static constexpr std::size_t MEMBERS_WITHOUT_INDEX = 16;

    struct Releaser {
        void operator()(LumoJsonNode* node) const noexcept { release(node); }
    };
    using Owner = std::unique_ptr<LumoJsonNode, Releaser>;

    /// A node without values, with room for `capacity` of them.
    [[nodiscard]] static Owner make(std::size_t capacity);
    /// A node that has taken the values over: their places hold no values any more, and nothing may destroy
    /// what stands there. Without effect on them where it throws.
    [[nodiscard]] static Owner takeOver(std::span<LumoJson> values);
    /// The node, or the one that replaces it, with room for `count` values more; the values keep their order
    /// but not their addresses. A null node is one without values. Without effect where it throws.
    [[nodiscard]] static LumoJsonNode* withRoom(LumoJsonNode* node, std::size_t count);
    /// A deep copy.
    [[nodiscard]] static Owner copy(const LumoJsonNode& source);
    /// Releases the node and everything below it, without recursion and without taking memory.
    static void release(LumoJsonNode* node) noexcept;

    LumoJsonNode(const LumoJsonNode&) = delete;
    LumoJsonNode& operator=(const LumoJsonNode&) = delete;

    [[nodiscard]] std::span<LumoJson> values() noexcept { return {place(0), m_size}; }
    [[nodiscard]] std::span<const LumoJson> values() const noexcept {
        return const_cast<LumoJsonNode*>(this)->values();
    }

    /// The value of the member, or null.
    [[nodiscard]] LumoJson* findMember(std::string_view key);
    /// Adds a value; there must be room.
    LumoJson& push(LumoJson value) noexcept;
    /// Adds a key that is not there yet; its value is null. There must be room for both.
    LumoJson& append(LumoJson key);
    /// Fills an object that has room for key, value, key, value...; the last of equal keys wins.
    void adoptMembers(std::span<LumoJson> keysAndValues);

private:
    struct CopyStep {
        const LumoJsonNode* from;
        LumoJsonNode* to;
    };

    explicit LumoJsonNode(std::size_t capacity) : m_capacity(capacity) {}
    ~LumoJsonNode() = default;

    [[nodiscard]] LumoJson* place(std::size_t at) noexcept {
        return reinterpret_cast<LumoJson*>(this + 1) + at;
    }
    /// Copies the values into this empty node; of containers only the shell, with a step for what they hold.
    void copyValues(const LumoJsonNode& source, std::vector<CopyStep>& open);
    /// Ends the values, but puts the nodes of all containers before `waiting`; returns the first that waits.
    LumoJsonNode* endValues(LumoJsonNode* waiting) noexcept;

    std::size_t m_size = 0;
    union {
        std::size_t m_capacity;
        LumoJsonNode* m_next; ///< Links the nodes that wait to be released, which do not grow any more.
    };
    std::unique_ptr<LumoJsonKeyIndex> m_index;
};
