#pragma once

#include "data/VrexExport.h"

class VrexConstraint3D;
class VrexGeometry3D;
class VrexGeometryVariable;

/// Copies the solved state of an object onto another of its kind: numbers and status, never identity, label,
/// snapshots, links or the dirty flag. So what was solved on a copy of a system comes back.
///
/// Geometries and constraints of different kinds are left as they are, with a line in the log. Throws
/// `std::runtime_error` "VrexAssigner3DImpl : Not implemented" for an evaluated surface and for classes of
/// others. The target may not be in use by another thread.
class VREX_DATA_EXPORT VrexAssigner3D {
public:
    /// Components, help values and statuses. A dimension keeps its value. Of a mate, its dimensions alone;
    /// of a fastened one, which has none, the status alone.
    /// Kept: a pin-slot mate is treated as a constraint without dimensions.
    void operator()(const VrexConstraint3D& source, VrexConstraint3D& target) const;

    /// Position, orientation, sizes and status of the entity itself: members of a set, profile and line of a
    /// surface and interpolated points are not visited, and ranges stay. Of control points, matched by their
    /// place, positions and weights; throws `std::out_of_range`, with nothing changed, when `source` has
    /// fewer than `target`. An evaluated curve takes over texts and descriptors, and so names the objects
    /// that the source names. Throws `std::runtime_error` for an ellipse whose rotation gives no right angle,
    /// when the center has been taken over and nothing else.
    /// Kept: shared values take over the status, not the value.
    void operator()(const VrexGeometry3D& source, VrexGeometry3D& target) const;

    /// Value and status.
    void operator()(const VrexGeometryVariable& source, VrexGeometryVariable& target) const;
};
