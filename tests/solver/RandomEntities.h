#pragma once

#include <array>
#include <memory>

#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "support/RandomShapes.h"

/// Entities of each kind that has a shape of its own, at random places and of random sizes.
namespace nsRandomEntities {

inline constexpr std::array KINDS{
    VrexGeometry3DType::POINT,   VrexGeometry3DType::LINE,  VrexGeometry3DType::CIRCLE,
    VrexGeometry3DType::ELLIPSE, VrexGeometry3DType::PLANE, VrexGeometry3DType::CYLINDER,
    VrexGeometry3DType::SPHERE,  VrexGeometry3DType::CONE,  VrexGeometry3DType::TORUS,
};

inline std::shared_ptr<VrexGeometry3D> make(VrexGeometry3DType kind, RandomShapes& random) {
    switch (kind) {
    case VrexGeometry3DType::POINT:
        return VrexPoint3D::create(random.number(-2.0, 2.0), random.number(-2.0, 2.0),
                                   random.number(-2.0, 2.0));
    case VrexGeometry3DType::LINE:
        return random.line();
    case VrexGeometry3DType::CIRCLE:
        return random.circle();
    case VrexGeometry3DType::ELLIPSE: {
        const auto direction = random.direction();
        const auto normal = direction.crossProduct(random.direction());
        return VrexEllipse3D::create(random.point(), direction, normal, random.number(1.5, 2.5),
                                     random.number(0.5, 1.2));
    }
    case VrexGeometry3DType::PLANE:
        return VrexPlane3D::create(random.point(), random.direction());
    case VrexGeometry3DType::CYLINDER:
        return VrexCylinder3D::create(random.point(), random.direction(), random.number(0.3, 1.0));
    case VrexGeometry3DType::SPHERE:
        return VrexSphere3D::create(random.point(), random.number(0.5, 1.5));
    case VrexGeometry3DType::CONE:
        return VrexCone3D::create(random.point(), random.direction(), random.number(0.2, 1.0));
    default:
        return VrexTorus3D::create(random.point(), random.direction(), random.number(1.5, 2.5),
                                   random.number(0.2, 0.6));
    }
}

} // namespace nsRandomEntities
