#pragma once

#include <cstdint>
#include <initializer_list>

#include "data/geometry/3d/VrexGeometry3DType.h"

/// Hidden: a set of entity kinds, known at compile time. A value that is no kind, `UNKNOWN` included, is in
/// no set and adds nothing to one.
class VrexGeometry3DTypeSet {
public:
    constexpr VrexGeometry3DTypeSet() = default;
    // Implicit, so that a table reads {LINE, {PLANE, CIRCLE}}.
    constexpr VrexGeometry3DTypeSet(std::initializer_list<VrexGeometry3DType> kinds) {
        for (const VrexGeometry3DType kind : kinds) {
            m_bits |= bit(kind);
        }
    }

    [[nodiscard]] constexpr bool contains(VrexGeometry3DType kind) const { return (m_bits & bit(kind)) != 0; }
    [[nodiscard]] constexpr VrexGeometry3DTypeSet operator|(VrexGeometry3DTypeSet other) const {
        VrexGeometry3DTypeSet both;
        both.m_bits = m_bits | other.m_bits;
        return both;
    }
    [[nodiscard]] constexpr bool operator==(const VrexGeometry3DTypeSet&) const = default;

private:
    static constexpr std::uint32_t bit(VrexGeometry3DType kind) {
        const auto index = static_cast<std::int32_t>(kind);
        const auto count = static_cast<std::int32_t>(VrexGeometry3DType::TYPES_COUNT);
        return index >= 0 && index < count ? std::uint32_t{1} << static_cast<unsigned>(index) : 0;
    }

    std::uint32_t m_bits = 0;
};
