#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "data/constraint/3d/VrexGeometryCombination3D.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

/// Hidden: the answers of a list of pairs for all pairs of kinds, taken from the list while compiling, so
/// that a check is one look instead of a walk.
class VrexGeometryPairTable3D {
public:
    using Type = VrexGeometry3DType;

    explicit consteval VrexGeometryPairTable3D(std::span<const VrexGeometryCombination3D> list) {
        for (const VrexGeometryCombination3D& combination : list) {
            add(combination);
        }
    }

    /// False also for a value that is no kind.
    [[nodiscard]] constexpr bool contains(Type first, Type second) const {
        const auto row = static_cast<std::size_t>(first);
        return row < m_partners.size() && m_partners[row].contains(second);
    }

private:
    static constexpr auto COUNT = static_cast<std::size_t>(Type::TYPES_COUNT);

    consteval void add(const VrexGeometryCombination3D& combination) {
        if (combination.size() != 2 || combination[0] == VrexGeometryCombination3D::ANY ||
            combination[1] == VrexGeometryCombination3D::ANY) {
            throw "only a list of pairs of kinds has a table";
        }
        for (const Type first : {combination[0], combination[1]}) {
            addPartners(combination, first);
        }
    }
    consteval void addPartners(const VrexGeometryCombination3D& combination, Type first) {
        for (std::size_t index = 0; index < COUNT; ++index) {
            const std::array types{first, static_cast<Type>(index)};
            if (combination.fitsInAnyOrder(types)) {
                auto& partners = m_partners[static_cast<std::size_t>(first)];
                partners = partners | VrexGeometry3DTypeSet{types[1]};
            }
        }
    }

    std::array<VrexGeometry3DTypeSet, COUNT> m_partners;
};
