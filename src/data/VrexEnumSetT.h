#pragma once

#include <cstdint>
#include <initializer_list>
#include <iterator>

#include "data/VrexEnumTable.h"

/// Hidden: a set of values of an enumeration, known at compile time. A negative value, and one without a row
/// in the enumeration's table, is in no set and adds nothing to one.
template <class E>
class VrexEnumSetT {
public:
    constexpr VrexEnumSetT() = default;
    // Implicit, so that a table reads {LINE, {PLANE, CIRCLE}}.
    constexpr VrexEnumSetT(std::initializer_list<E> values) {
        for (const E value : values) {
            m_bits |= bit(value);
        }
    }

    [[nodiscard]] constexpr bool contains(E value) const { return (m_bits & bit(value)) != 0; }
    [[nodiscard]] constexpr VrexEnumSetT operator|(VrexEnumSetT other) const {
        VrexEnumSetT both;
        both.m_bits = m_bits | other.m_bits;
        return both;
    }
    [[nodiscard]] constexpr bool operator==(const VrexEnumSetT&) const = default;

private:
    static constexpr std::uint32_t bit(E value) {
        constexpr auto highest = static_cast<std::int64_t>(std::rbegin(VrexEnumTable<E>::ROWS)->value);
        static_assert(highest < 32, "a set has 32 bits");
        const auto index = static_cast<std::int64_t>(value);
        return index >= 0 && index <= highest ? std::uint32_t{1} << static_cast<unsigned>(index) : 0;
    }

    std::uint32_t m_bits = 0;
};
