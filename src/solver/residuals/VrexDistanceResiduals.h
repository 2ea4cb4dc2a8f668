#pragma once

class VrexDirectionDistance3D;
class VrexDistance3D;
class VrexParallelDistance3D;
class VrexSolverBuilder;

/// Lengths between entities. All count from zero up on the side where the entities stand, or on the one that
/// the orientation asks for; a negative value means the other side, where there is one.
namespace nsDistanceResiduals {

/// Between where the two are nearest: see `VrexContactGap`.
void add(VrexSolverBuilder& builder, VrexDistance3D& distance);

/// (p2 - p1) . d, with d the direction of unit length. Throws `std::invalid_argument` that names the distance
/// for a direction without length.
void add(VrexSolverBuilder& builder, VrexDirectionDistance3D& distance);

/// The same along the axis of an entity, the normal of a plane.
void add(VrexSolverBuilder& builder, VrexParallelDistance3D& distance);

} // namespace nsDistanceResiduals
