#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "tolvbase/LumoJson.h"
#include "tolvbase/LumoJsonKeyIndex.h"

/// The elements of one array or object, on the heap.
///
/// An array holds its elements side by side; an object holds key, value, key, value... in the order in which
/// the keys came. Deep trees are copied and released by loops over nodes, never by recursion.
struct LumoJsonNode {
    static constexpr int ELEMENT_STRIDE = 1;
    static constexpr int MEMBER_STRIDE = 2;
    /// Up to this many members a look-up walks the keys; beyond it an index is kept.
    static constexpr std::size_t MEMBERS_WITHOUT_INDEX = 16;

    std::vector<LumoJson> values;
    std::unique_ptr<LumoJsonKeyIndex> index;
    /// Links the nodes that wait to be released; null otherwise.
    LumoJsonNode* next = nullptr;

    /// The value of the member, or null.
    [[nodiscard]] LumoJson* findMember(std::string_view key);
    /// The value of the member, which is appended as null if it is missing.
    LumoJson& member(std::string_view key);
    /// Fills an object that has no members yet with key, value, key, value...; the last of equal keys wins.
    void adoptMembers(std::span<LumoJson> keysAndValues);

    /// A deep copy; the caller owns it.
    [[nodiscard]] static std::unique_ptr<LumoJsonNode, void (*)(LumoJsonNode*)>
    copy(const LumoJsonNode& source);
    /// Releases the node and everything below it, without recursion and without taking memory.
    static void release(LumoJsonNode* node) noexcept;

private:
    struct CopyStep {
        const LumoJsonNode* from;
        LumoJsonNode* to;
    };

    /// Adds a key that is not there yet; its value is null.
    LumoJson& append(LumoJson key);
    /// Copies the values into this empty node; of containers only the shell, with a step for what they hold.
    void copyValues(const LumoJsonNode& source, std::vector<CopyStep>& open);
    /// Puts the nodes of all values before `waiting` and returns the first that waits.
    LumoJsonNode* detachContainers(LumoJsonNode* waiting) noexcept;
};
