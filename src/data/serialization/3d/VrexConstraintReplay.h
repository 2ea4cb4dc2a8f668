#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexReplayArguments.h"

/// Hidden: the first of the two steps of reading a constraint.
namespace nsConstraintReplay {

/// What a document says a constraint is made of.
struct Arguments {
    nsReplayArguments::Geometries geometries;
    std::vector<std::shared_ptr<VrexGeometryVariable>> variables;
    std::vector<std::shared_ptr<VrexBaseConstraint>> constraints;
    std::vector<std::pair<int, int>> helpParameters;
    std::array<VrexGeometryComponentType, 2> components;
    std::uint64_t dimensionIndex;

    /// Keeps what memory there is.
    void clear();
};

/// Whether the arguments are variables.
bool bindsVariable(VrexConstraint3DType type);

/// A constraint of the type, made of `arguments`, with default values. Null for arguments that do not fit the
/// type; those that are too many play no part. Throws `std::runtime_error` for a type that is no kind.
std::shared_ptr<VrexConstraint3D> create(VrexConstraint3DType type, const Arguments& arguments);

} // namespace nsConstraintReplay
