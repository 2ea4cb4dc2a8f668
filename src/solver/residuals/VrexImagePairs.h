#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "data/geometry/3d/VrexGeometry3D.h"

/// Two entities of the same make, taken apart: which simple one stands for which. Sets by their members,
/// splines and NURBS surfaces by their control points, drawn surfaces by their profile and line. Evaluated
/// shapes, and sets without members, stand for themselves.
namespace nsImagePairs {

using Pair = std::pair<std::shared_ptr<VrexGeometry3D>, std::shared_ptr<VrexGeometry3D>>;

/// Empty for entities of different kinds, and where counts, degrees, knots, weights or expressions differ.
std::optional<std::vector<Pair>> of(const std::shared_ptr<VrexGeometry3D>& first,
                                    const std::shared_ptr<VrexGeometry3D>& second);

} // namespace nsImagePairs
