#pragma once

#include <array>

#include "data/constraint/3d/VrexConstraint3D.h"

/// Hidden: how readers give a constraint the components that it was written with, those included that its
/// setter refuses for the kind of the geometry.
struct VrexGeomComponentsAccess {
    static void set(VrexConstraint3D& constraint,
                    const std::array<VrexGeometryComponentType, 2>& components) {
        constraint.m_geomComponents = components;
    }
};
