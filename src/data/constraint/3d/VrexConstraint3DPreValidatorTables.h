#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "data/constraint/3d/VrexConstraint3DType.h"
#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/constraint/3d/VrexGeometryCombination3D.h"
#include "data/constraint/3d/VrexGeometryPairTable3D.h"
#include "data/geometry/3d/VrexGeometry3DType.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"
#include "data/geometry/VrexGeometryComponentType.h"

/// Hidden: what the validator of constraint requests admits. All of it is constant, in place before any code
/// runs. The `canCreate` operations of the constraints have rules of their own, which differ widely.
namespace nsPreValidation {

/// How the geometries of a request are held against the combinations of its kind.
enum class Matching {
    AnyOrder,
    AnyOrderRepeatable, ///< The same geometry may stand there twice.
    ByPosition,
    Components,      ///< In any order, each geometry reduced to its component; none has radii.
    RadiusComponents ///< As `Components`, but of a geometry with two radii one must be chosen.
};

/// What one kind of constraint admits.
struct Rule {
    VrexConstraint3DType kind;
    Matching matching;
    /// All of one size.
    std::span<const VrexGeometryCombination3D> combinations;
    /// Of a list of pairs that ignores their order, or null.
    const VrexGeometryPairTable3D* pairs = nullptr;
};

/// The rule of each kind, null where it has no combinations.
extern const std::array<const Rule*, static_cast<std::size_t>(VrexConstraint3DType::MateRelation3D) + 1>
    RULE_OF_KIND;

/// The kinds that a planar angle takes, in all three places.
extern const VrexGeometry3DTypeSet PLANAR_ANGLE;

/// What is asked about one component.
struct ComponentRow {
    VrexGeometryComponentType component;
    const char* enumerator; ///< The enumerator's own spelling, such as "CENTER", for messages.
    VrexGeometry3DTypeSet owners;
    bool hasOwners = true; ///< False: the component has no row, not even an empty one.
    /// The kind as which it is matched; `UNKNOWN` for one that keeps the kind of its owner.
    VrexGeometry3DType convertedType = VrexGeometry3DType::UNKNOWN;
};

/// Indexed by component.
extern const std::array<ComponentRow, static_cast<std::size_t>(VrexGeometryComponentType::EXTERIOR) + 1>
    COMPONENTS;

/// Null for a kind without combinations, and for a value that is no kind.
inline const Rule* findRule(VrexConstraint3DType kind) {
    const auto index = static_cast<std::size_t>(kind);
    return index < RULE_OF_KIND.size() ? RULE_OF_KIND[index] : nullptr;
}

/// Null for a value that is no component.
inline const ComponentRow* findComponent(VrexGeometryComponentType component) {
    const auto index = static_cast<std::size_t>(component);
    return index < COMPONENTS.size() ? &COMPONENTS[index] : nullptr;
}

/// Which kinds have the component, `UNKNOWN` for the geometry itself; null for a component without a row.
inline const VrexGeometry3DTypeSet* findComponentOwners(VrexGeometryComponentType component) {
    const ComponentRow* const row = findComponent(component);
    return row != nullptr && row->hasOwners ? &row->owners : nullptr;
}

/// The kind as which the component of a geometry of kind `type` is matched; `UNKNOWN` for a component that
/// cannot be.
inline VrexGeometry3DType typeOfComponent(VrexGeometry3DType type, VrexGeometryComponentType component) {
    const ComponentRow* const row = findComponent(component);
    if (row == nullptr || !row->hasOwners) {
        return VrexGeometry3DType::UNKNOWN;
    }
    return row->convertedType == VrexGeometry3DType::UNKNOWN ? type : row->convertedType;
}

/// Empty for a value that is no component.
inline const char* enumeratorOf(VrexGeometryComponentType component) {
    const ComponentRow* const row = findComponent(component);
    return row != nullptr ? row->enumerator : "";
}

/// What one kind of fixation admits.
struct FixationRule {
    VrexFixation3DType kind;
    VrexGeometry3DTypeSet listed;
    bool admitsListed = true; ///< False: the listed kinds are the refused ones.

    [[nodiscard]] constexpr bool admits(VrexGeometry3DType type) const {
        return listed.contains(type) == admitsListed;
    }
};

/// Null for a fixation that is never admitted, and for a value that is none.
const FixationRule* findFixationRule(VrexFixation3DType kind);

} // namespace nsPreValidation
