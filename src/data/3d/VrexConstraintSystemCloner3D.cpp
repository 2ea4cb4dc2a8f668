#include "data/3d/VrexConstraintSystemCloner3D.h"

#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"

VrexConstraintSystemCloner3D::VrexConstraintSystemCloner3D(
    const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
    const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints) {
    cloneAll(geometries, constraints);
}

void VrexConstraintSystemCloner3D::visitCylinder3D(VrexCylinder3D& cylinder) { cloneLeaf(cylinder); }

void VrexConstraintSystemCloner3D::visitSphere3D(VrexSphere3D& sphere) { cloneLeaf(sphere); }

void VrexConstraintSystemCloner3D::visitPoint3D(VrexPoint3D& point) { cloneLeaf(point); }

void VrexConstraintSystemCloner3D::visitLine3D(VrexLine3D& line) { cloneLeaf(line); }

void VrexConstraintSystemCloner3D::visitPlane3D(VrexPlane3D& plane) { cloneLeaf(plane); }

void VrexConstraintSystemCloner3D::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    if (!isDue(surface)) {
        return;
    }
    const auto clone = copyOf(surface);
    for (auto& row : clone->controlPoints()) {
        for (VrexNURBSSurface3D::ControlPoint& controlPoint : row) {
            controlPoint.point = cloneOf(controlPoint.point);
        }
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitCircle3D(VrexCircle3D& circle) { cloneLeaf(circle); }

void VrexConstraintSystemCloner3D::visitEllipse3D(VrexEllipse3D& ellipse) { cloneLeaf(ellipse); }

void VrexConstraintSystemCloner3D::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) {
    cloneDescribed(curve);
}

void VrexConstraintSystemCloner3D::visitPattern3D(VrexPattern3D& pattern) {
    if (!isDue(pattern)) {
        return;
    }
    const auto clone = copyOf(pattern);
    clone->setAxisLine(cloneOf(pattern.getAxisLine()));
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    if (!isDue(pattern)) {
        return;
    }
    const auto clone = copyOf(pattern);
    for (auto& part : clone->getPatterns()) {
        part = cloneOf(part);
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitRigidSet3D(VrexRigidSet3D& set) {
    if (!isDue(set)) {
        return;
    }
    const auto clone = copyOf(set);
    for (auto& member : clone->geometries()) {
        member = cloneOf(member);
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitConnector3D(VrexConnector3D& connector) {
    if (!isDue(connector)) {
        return;
    }
    const auto clone = copyOf(connector);
    clone->setRigidSet(cloneOf(connector.getRigidSet()));
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitSpline3D(VrexSpline3D& spline) {
    if (!isDue(spline)) {
        return;
    }
    const auto clone = copyOf(spline);
    for (VrexSpline3D::ControlPoint& controlPoint : clone->controlPoints()) {
        controlPoint.point = cloneOf(controlPoint.point);
    }
    auto points = spline.getInterpolatedPoints();
    for (auto& point : points) {
        point = cloneOf(point);
    }
    clone->setInterpolatedPoints(std::move(points));
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitCone3D(VrexCone3D& cone) { cloneLeaf(cone); }

void VrexConstraintSystemCloner3D::visitTorus3D(VrexTorus3D& torus) { cloneLeaf(torus); }

void VrexConstraintSystemCloner3D::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    if (!isDue(surface)) {
        return;
    }
    const auto clone = copyOf(surface);
    clone->setProfileCurve(cloneOf(surface.getProfileCurve()));
    clone->setAxisLine(cloneOf(surface.getAxisLine()));
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    cloneDescribed(surface);
}

void VrexConstraintSystemCloner3D::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    if (!isDue(surface)) {
        return;
    }
    const auto clone = copyOf(surface);
    clone->setProfileCurve(cloneOf(surface.getProfileCurve()));
    clone->setTrajectoryLine(cloneOf(surface.getTrajectoryLine()));
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    cloneLeaf(element);
}
