#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Addresses of values kept elsewhere, by identifier, for a look-up in one step. Only an aid: it knows the
/// identifiers that are small beside the number of values, as those drawn from a generator are, and for
/// every other one, or one that came before there was room for it, the owner of the values is to be asked.
template <class Value>
class VrexIDShortcuts {
public:
    /// Makes room for `id` where it is small enough for a system of `count` values; to be called before the
    /// value is stored, since it may run out of memory.
    void prepare(std::uint64_t id, std::size_t count) {
        if (id >= m_values.size() && id / 2 <= count) {
            m_values.resize(static_cast<std::size_t>(id) + 1);
        }
    }
    /// Null takes the shortcut away. Without effect where there is no room.
    void set(std::uint64_t id, const Value* value) noexcept {
        if (id < m_values.size()) {
            m_values[static_cast<std::size_t>(id)] = value;
        }
    }
    /// Null where there is no shortcut, which does not mean that there is no value.
    const Value* find(std::uint64_t id) const noexcept {
        return id < m_values.size() ? m_values[static_cast<std::size_t>(id)] : nullptr;
    }
    void clear() noexcept { m_values.clear(); }
    void swap(VrexIDShortcuts& other) noexcept { m_values.swap(other.m_values); }

private:
    std::vector<const Value*> m_values;
};
