#pragma once

#include <memory>

#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/serialization/3d/VrexReplayArguments.h"

/// Hidden: the first of the two steps of reading a geometry.
namespace nsGeometryReplay {

/// An entity of the type, built on `arguments`, with default values. Null for arguments that do not fit the
/// type; those that are too many play no part. Throws `std::runtime_error` for a type that is no kind.
std::shared_ptr<VrexGeometry3D> create(VrexGeometry3DType type,
                                       const nsReplayArguments::Geometries& arguments);

} // namespace nsGeometryReplay
