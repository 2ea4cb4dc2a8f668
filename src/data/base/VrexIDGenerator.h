#pragma once

#include <cstdint>

#include "data/VrexExport.h"

/// Hands out identifiers, rising by one; never 0, which means none.
class VREX_DATA_EXPORT VrexIDGenerator {
public:
    /// `next` is the first identifier; 0 stands for 1.
    explicit VrexIDGenerator(std::uint64_t next = 1) : m_next(next) {}

    /// The next identifier; moves on by one, and past 0.
    std::uint64_t next() {
        const std::uint64_t id = getNext();
        m_next = id + 1;
        return id;
    }
    std::uint64_t getNext() const { return m_next != 0 ? m_next : 1; }
    void setNext(std::uint64_t next) { m_next = next; }

private:
    std::uint64_t m_next;
};
