#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <unordered_map>

#include "data/VrexBaseObject.h"

/// Hidden: one pointer for each of many objects, found by the object's address.
///
/// Memory is divided into blocks, each with a place for every object that may begin in it. Objects that were
/// made one after the other are mostly in one block, so that the next look-up needs no search.
class VrexCloneTable {
public:
    /// Room for this many objects that lie as close as objects do.
    void reserve(std::size_t count) { m_blocks.reserve(count / OBJECTS_PER_BLOCK); }

    /// What belongs to `object`, null at first. The place stays where it is.
    VrexBaseObject*& operator[](const VrexBaseObject& object) {
        const std::uintptr_t address = addressOf(object);
        if (address / BLOCK != m_latest || m_latestBlock == nullptr) {
            m_latest = address / BLOCK;
            m_latestBlock = &m_blocks[m_latest];
        }
        return (*m_latestBlock)[address % BLOCK / PLACE];
    }
    /// The same, null also for an object that was never entered.
    VrexBaseObject* find(const VrexBaseObject& object) const {
        const std::uintptr_t address = addressOf(object);
        const auto block = m_blocks.find(address / BLOCK);
        return block != m_blocks.end() ? block->second[address % BLOCK / PLACE] : nullptr;
    }

private:
    static constexpr std::size_t PLACE = 128, BLOCK = 4096;
    static constexpr std::size_t OBJECTS_PER_BLOCK = 8; ///< At least, where objects follow each other.
    static_assert(sizeof(VrexBaseObject) >= PLACE, "two objects would share a place");
    using Block = std::array<VrexBaseObject*, BLOCK / PLACE>;

    static std::uintptr_t addressOf(const VrexBaseObject& object) {
        return reinterpret_cast<std::uintptr_t>(&object);
    }

    std::pmr::monotonic_buffer_resource m_memory; ///< Given back at once.
    std::pmr::unordered_map<std::uintptr_t, Block> m_blocks{&m_memory};
    std::uintptr_t m_latest = 0;
    Block* m_latestBlock = nullptr;
};
