#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/VrexEnumTable.h"
#include "data/VrexVisitor3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "solver/RandomEntities.h"
#include "support/RandomShapes.h"

/// An entity of this kind anywhere, surfaces that are made of others included.
inline std::shared_ptr<VrexGeometry3D> makeRandom(VrexGeometry3DType type, RandomShapes& random) {
    if (type == VrexGeometry3DType::SPIN_SURFACE) {
        return VrexSpinSurface3D::create(random.circle(), random.line());
    }
    if (type == VrexGeometry3DType::SWEEP_SURFACE) {
        return VrexSweepSurface3D::create(random.circle(), random.line(), {});
    }
    return nsRandomEntities::make(type, random);
}

/// Reads with the entities' own accessors where they stand and which way they point.
class EntityReader final : public VrexVisitor3D {
public:
    using Vector = VrexVector3DT<double>;

    explicit EntityReader(const std::shared_ptr<VrexGeometry3D>& entity) { entity->accept(*this); }

    Vector center;
    Vector direction;
    std::vector<double> sizes;

    void visitPoint3D(VrexPoint3D& point) override { center = point.getPosition(); }
    void visitLine3D(VrexLine3D& line) override {
        center = line.getOrigin();
        direction = line.getDirection();
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        center = plane.getOrigin();
        direction = plane.getNormal();
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        center = sphere.getCenter();
        sizes = {sphere.getRadius()};
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        center = cylinder.getOrigin();
        direction = cylinder.getDirection();
        sizes = {cylinder.getRadius()};
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        center = circle.getCenter();
        direction = circle.getNormal();
        sizes = {circle.getRadius()};
    }
    void visitCone3D(VrexCone3D& cone) override {
        center = cone.getOrigin();
        direction = cone.getDirection();
        sizes = {cone.getAperture()};
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        center = torus.getCenter();
        direction = torus.getNormal();
        sizes = {torus.getMajorRadius(), torus.getMinorRadius()};
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        center = ellipse.getCenter();
        direction = ellipse.getNormal();
        sizes = {ellipse.getMajorRadius(), ellipse.getMinorRadius()};
    }
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override { visitLine3D(*surface.getAxisLine()); }
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override {
        visitLine3D(*surface.getTrajectoryLine());
    }
};

inline VrexVector3DT<double> centerOf(const std::shared_ptr<VrexGeometry3D>& entity) {
    return EntityReader(entity).center;
}
inline VrexVector3DT<double> directionOf(const std::shared_ptr<VrexGeometry3D>& entity) {
    return EntityReader(entity).direction;
}

/// The entity and all that it is built on.
inline std::vector<std::shared_ptr<VrexGeometry3D>>
withParts(const std::vector<std::shared_ptr<VrexGeometry3D>>& entities) {
    std::vector<std::shared_ptr<VrexGeometry3D>> result;
    for (const auto& entity : entities) {
        result.push_back(entity);
        for (const auto& part : entity->getGeometries()) {
            result.push_back(std::dynamic_pointer_cast<VrexGeometry3D>(part));
        }
    }
    return result;
}

/// "LINE with PLANE", for traces.
inline std::string namesOf(const std::vector<VrexGeometry3DType>& types) {
    std::string names;
    for (const VrexGeometry3DType type : types) {
        names.append(names.empty() ? "" : " with ").append(nsEnum::toText(type));
    }
    return names;
}
