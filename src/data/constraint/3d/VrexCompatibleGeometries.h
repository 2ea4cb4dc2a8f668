#pragma once

#include <memory>

class VrexGeometry3D;

/// Hidden: whether one of two geometries can be laid onto the other. Both are null, or both are of one kind
/// and
///   - sets of as many members, compatible pair by pair;
///   - NURBS surfaces of as many rows of control points and with the same knots within 2.220446049250313e-15;
///   - splines of as many control points and with the same knots within 1e-12;
///   - spin or sweep surfaces of compatible profiles;
///   - evaluated, with equal texts over the same parameters of the same objects by the same names;
///   - of any other kind.
bool areCompatible(const std::shared_ptr<VrexGeometry3D>& first,
                   const std::shared_ptr<VrexGeometry3D>& second);
