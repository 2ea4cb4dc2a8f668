#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

#include "tolvbase/TolvExport.h"

class LumoJson;

/// Reads the elements of an array, or the values of an object's members in the order of their keys.
///
/// Valid until the container changes its number of elements, moves or dies. Two iterators of one container
/// compare by place; a default one stands nowhere and equals every other default one.
class TOLV_EXPORT LumoJsonIteratorImpl {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = LumoJson;
    using difference_type = std::ptrdiff_t;
    using pointer = const LumoJson*;
    using reference = const LumoJson&;

    LumoJsonIteratorImpl() = default;

    /// Throws `std::out_of_range` for a default iterator.
    reference operator*() const;
    pointer operator->() const;

    LumoJsonIteratorImpl& operator++();
    LumoJsonIteratorImpl operator++(int);
    /// The iterator `count` elements further on, or back for a negative count; must stay within the
    /// container.
    LumoJsonIteratorImpl operator+(int count) const;

    bool operator==(const LumoJsonIteratorImpl& other) const { return m_entry == other.m_entry; }
    bool operator!=(const LumoJsonIteratorImpl& other) const { return m_entry != other.m_entry; }

    /// The key of the member; throws `std::runtime_error` at an array element and for a default iterator.
    [[nodiscard]] std::string_view key() const;

private:
    friend class LumoJson;
    LumoJsonIteratorImpl(const LumoJson* entry, int stride) : m_entry(entry), m_stride(stride) {}

    /// An array's element, or the key that stands before a member's value.
    const LumoJson* m_entry = nullptr;
    int m_stride = 1;
};
