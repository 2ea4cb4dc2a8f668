#pragma once

#include <cstddef>
#include <span>

#include "tolvbase/LumoJson.h"

/// Hidden: the values of all containers that are being read, side by side. Moving a value is copying its
/// bytes, so that whole containers leave at once.
class LumoJsonStack {
public:
    LumoJsonStack() = default;
    LumoJsonStack(const LumoJsonStack&) = delete;
    LumoJsonStack& operator=(const LumoJsonStack&) = delete;
    ~LumoJsonStack();

    [[nodiscard]] std::size_t size() const noexcept { return m_size; }
    [[nodiscard]] LumoJson& top() noexcept { return m_values[m_size - 1]; }
    [[nodiscard]] std::span<LumoJson> from(std::size_t first) noexcept {
        return {m_values + first, m_size - first};
    }

    /// Adds a null value. Ends the life of references into the stack.
    LumoJson& push() {
        if (m_size == m_capacity) {
            grow();
        }
        return *new (m_values + m_size++) LumoJson();
    }
    /// Destroys the values from there on.
    void shrink(std::size_t size) noexcept;
    /// Leaves the values from there on to somebody who has taken them over.
    void forget(std::size_t size) noexcept { m_size = size; }

private:
    void grow();

    LumoJson* m_values = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};
