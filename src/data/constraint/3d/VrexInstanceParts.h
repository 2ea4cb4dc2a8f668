#pragma once

#include <memory>
#include <vector>

#include "data/constraint/3d/VrexGeometryPairs.h"

class VrexGeometry3D;

/// Hidden: what an instance writes and what it has to leave alone.
namespace nsInstanceParts {

/// The geometry and all that it is built on, each once.
std::vector<std::shared_ptr<VrexGeometry3D>> reachableFrom(const std::shared_ptr<VrexGeometry3D>& geometry);

/// The two and their parts that move with them and have values of their own, pair by pair: members of sets,
/// profile and line, interpolated points. Control points are not among them: they belong to the values of
/// their curve or surface. A part whose counterpart is missing is left out.
VrexGeometryPairs pairsOf(const std::shared_ptr<VrexGeometry3D>& first,
                          const std::shared_ptr<VrexGeometry3D>& second);

} // namespace nsInstanceParts
