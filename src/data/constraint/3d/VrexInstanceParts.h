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
/// their curve or surface. A part of the second may stand with null.
VrexGeometryPairs pairsOf(const std::shared_ptr<VrexGeometry3D>& first,
                          const std::shared_ptr<VrexGeometry3D>& second);

/// The parts of the second that stand with null in every one of these pairs and of those of control points:
/// axis lines and points that the first has none of.
std::vector<std::shared_ptr<VrexGeometry3D>> unpairedOf(VrexGeometryPairs pairs);

} // namespace nsInstanceParts
