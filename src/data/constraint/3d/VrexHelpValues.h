#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"

/// Hidden: which of the two help values of a constraint is meant, and how refusals name objects.
namespace nsHelpValues {

inline long long printed(std::uint64_t number) { return static_cast<long long>(number); }

/// The identifier, 0 for null.
template <class Object>
long long printedId(const std::shared_ptr<Object>& object) {
    return object != nullptr ? printed(object->getID()) : 0;
}

/// 1 or 2, the place of the geometry among the constraint's first two; 0 for no place.
inline int findPlace(const VrexConstraint3D& constraint, const std::shared_ptr<VrexGeometry3D>& geometry) {
    const auto& list = constraint.getGeometries();
    const std::size_t count = std::min<std::size_t>(list.size(), 2);
    for (std::size_t i = 0; i < count && geometry != nullptr; ++i) {
        if (list[i] == geometry) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

/// Whether there is a value; `out` stays where there is none.
template <class Value>
bool read(const std::optional<Value>& source, Value& out) {
    if (source) {
        out = *source;
    }
    return source.has_value();
}

} // namespace nsHelpValues
