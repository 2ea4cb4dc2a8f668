#include "tolvbase/LumoJsonStack.h"

#include <cstring>
#include <memory>
#include <new>

LumoJsonStack::~LumoJsonStack() {
    shrink(0);
    ::operator delete(m_values);
}

void LumoJsonStack::shrink(std::size_t size) noexcept {
    std::destroy(m_values + size, m_values + m_size);
    m_size = size;
}

void LumoJsonStack::grow() {
    constexpr std::size_t SMALLEST = 64;
    const std::size_t capacity = m_capacity == 0 ? SMALLEST : 2 * m_capacity;
    void* const grown = ::operator new(capacity * sizeof(LumoJson));
    if (m_size != 0) {
        std::memcpy(grown, static_cast<const void*>(m_values), m_size * sizeof(LumoJson));
    }
    ::operator delete(m_values);
    m_values = static_cast<LumoJson*>(grown);
    m_capacity = capacity;
}
