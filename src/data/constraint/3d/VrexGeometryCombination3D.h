#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "data/geometry/3d/VrexGeometry3DType.h"

/// Hidden: one combination of entity kinds, at most three, that a constraint admits.
class VrexGeometryCombination3D {
public:
    using Type = VrexGeometry3DType;

    static constexpr std::size_t MAX_SIZE = 3;
    /// Stands in a combination for every kind.
    static constexpr Type ANY = Type::UNKNOWN;

    // Implicit, so that a table reads {POINT, POINT, LINE}.
    constexpr VrexGeometryCombination3D(std::initializer_list<Type> types) {
        for (const Type type : types) {
            m_types.at(m_size++) = type;
        }
    }
    /// So that lists can be filled while compiling.
    constexpr VrexGeometryCombination3D() = default;

    [[nodiscard]] constexpr std::size_t size() const { return m_size; }
    [[nodiscard]] constexpr Type operator[](std::size_t position) const { return m_types[position]; }

    /// Whether each position is taken when every type in turn takes the first free position that holds it.
    /// Kept: nothing is taken back, so that a type which meets the wildcard first keeps it from later ones.
    [[nodiscard]] constexpr bool fitsInAnyOrder(std::span<const Type> types) const {
        std::uint32_t used = 0;
        for (const Type type : types) {
            used |= firstFree(used, type);
        }
        return used == (std::uint32_t{1} << m_size) - 1;
    }

    /// Whether each type stands at its own position; there are as many types as positions.
    [[nodiscard]] constexpr bool fitsByPosition(std::span<const Type> types) const {
        for (std::size_t position = 0; position < m_size; ++position) {
            if (!holds(position, types[position])) {
                return false;
            }
        }
        return true;
    }

private:
    [[nodiscard]] constexpr bool holds(std::size_t position, Type type) const {
        return m_types[position] == type || m_types[position] == ANY;
    }
    /// The bit of that position, 0 where there is none.
    [[nodiscard]] constexpr std::uint32_t firstFree(std::uint32_t used, Type type) const {
        for (std::size_t position = 0; position < m_size; ++position) {
            const std::uint32_t bit = std::uint32_t{1} << position;
            if ((used & bit) == 0 && holds(position, type)) {
                return bit;
            }
        }
        return 0;
    }

    std::array<Type, MAX_SIZE> m_types{};
    std::size_t m_size = 0;
};
