#pragma once

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

/// Null for a kind without combinations, and for a value that is no kind.
const Rule* findRule(VrexConstraint3DType kind);

/// The kinds that a planar angle takes, in all three places.
const VrexGeometry3DTypeSet& planarAngleTypes();

/// Which kinds have the component, `UNKNOWN` for the geometry itself; null for a component without a row.
const VrexGeometry3DTypeSet* findComponentOwners(VrexGeometryComponentType component);

/// The kind as which the component of a geometry of kind `type` is matched; `UNKNOWN` for a component that
/// cannot be.
VrexGeometry3DType typeOfComponent(VrexGeometry3DType type, VrexGeometryComponentType component);

/// The enumerator's own spelling, such as "CENTER", for messages; empty for a value that is none.
const char* enumeratorOf(VrexGeometryComponentType component);

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
