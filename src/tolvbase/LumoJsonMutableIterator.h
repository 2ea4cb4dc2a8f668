#pragma once

#include "tolvbase/LumoJsonIteratorImpl.h"

/// The iterator of a container that may change: it also writes the elements. Becomes a reading one by itself.
class TOLV_EXPORT LumoJsonMutableIterator : public LumoJsonIteratorImpl {
public:
    using pointer = LumoJson*;
    using reference = LumoJson&;

    LumoJsonMutableIterator() = default;

    /// Throws `std::out_of_range` for a default iterator.
    reference operator*() const;
    pointer operator->() const;

    LumoJsonMutableIterator& operator++();
    LumoJsonMutableIterator operator++(int);
    LumoJsonMutableIterator operator+(int count) const;

private:
    friend class LumoJson;
    explicit LumoJsonMutableIterator(const LumoJsonIteratorImpl& place) : LumoJsonIteratorImpl(place) {}
};
