#include "data/3d/VrexGeometryTransformation3DVisitor.h"

#include <stdexcept>

#include "data/3d/VrexUnitRotation.h"
#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexTorus3D.h"

namespace {

template <class Geometry>
void acceptIfThere(const std::shared_ptr<Geometry>& geometry, VrexVisitor3D& visitor) {
    if (geometry != nullptr) {
        geometry->accept(visitor);
    }
}

void visitControlPoints(const std::vector<VrexSpline3D::ControlPoint>& controlPoints,
                        VrexVisitor3D& visitor) {
    for (const VrexSpline3D::ControlPoint& controlPoint : controlPoints) {
        acceptIfThere(controlPoint.point, visitor);
    }
}

} // namespace

VrexGeometryTransformation3DVisitor::VrexGeometryTransformation3DVisitor(
    const VrexTransformation3DT<double>& transformation, bool skipRigidSetChildren)
    : m_transformation(transformation), m_skipRigidSetChildren(skipRigidSetChildren) {}

VrexGeometryTransformation3DVisitor::~VrexGeometryTransformation3DVisitor() = default;

void VrexGeometryTransformation3DVisitor::markGeometriesVisited(
    const std::vector<std::shared_ptr<VrexGeometry3D>>& geometries) {
    for (const auto& geometry : geometries) {
        if (geometry != nullptr) {
            m_visited.insert(geometry.get());
        }
    }
}

VrexVector3DT<double>
VrexGeometryTransformation3DVisitor::rotateVector(const VrexVector3DT<double>& v) const {
    return VrexQuaternionT<double>::rotate(v, m_transformation.getRotation(), true);
}

VrexVector3DT<double>
VrexGeometryTransformation3DVisitor::translateVector(const VrexVector3DT<double>& v) const {
    return v + m_transformation.getTranslation();
}

VrexVector3DT<double>
VrexGeometryTransformation3DVisitor::movePosition(const VrexVector3DT<double>& position) const {
    return translateVector(rotateVector(position));
}

bool VrexGeometryTransformation3DVisitor::isVisited(const VrexBaseObject& object) {
    return !m_visited.insert(&object).second;
}

template <class Geometry>
void VrexGeometryTransformation3DVisitor::moveOriginAndDirection(Geometry& geometry) {
    if (!isVisited(geometry)) {
        geometry.setOrigin(movePosition(geometry.getOrigin()));
        geometry.setDirection(rotateVector(geometry.getDirection()));
    }
}

template <class Geometry>
void VrexGeometryTransformation3DVisitor::moveCenterAndNormal(Geometry& geometry) {
    if (!isVisited(geometry)) {
        geometry.setCenter(movePosition(geometry.getCenter()));
        geometry.setNormal(rotateVector(geometry.getNormal()));
    }
}

template <class Geometry>
bool VrexGeometryTransformation3DVisitor::turn(Geometry& geometry) const {
    return nsUnitRotation::store(geometry, m_transformation.getRotation() * geometry.getRotation());
}

template <class Geometry>
void VrexGeometryTransformation3DVisitor::moveOriginAndRotation(Geometry& geometry) const {
    if (turn(geometry)) {
        geometry.setOrigin(movePosition(geometry.getOrigin()));
    }
}

void VrexGeometryTransformation3DVisitor::visitPoint3D(VrexPoint3D& point) {
    if (!isVisited(point)) {
        point.setPosition(movePosition(point.getPosition()));
    }
}

void VrexGeometryTransformation3DVisitor::visitLine3D(VrexLine3D& line) { moveOriginAndDirection(line); }

void VrexGeometryTransformation3DVisitor::visitPlane3D(VrexPlane3D& plane) {
    if (!isVisited(plane)) {
        plane.setOrigin(movePosition(plane.getOrigin()));
        plane.setNormal(rotateVector(plane.getNormal()));
    }
}

void VrexGeometryTransformation3DVisitor::visitCircle3D(VrexCircle3D& circle) { moveCenterAndNormal(circle); }

void VrexGeometryTransformation3DVisitor::visitCone3D(VrexCone3D& cone) { moveOriginAndDirection(cone); }

void VrexGeometryTransformation3DVisitor::visitCylinder3D(VrexCylinder3D& cylinder) {
    moveOriginAndDirection(cylinder);
}

void VrexGeometryTransformation3DVisitor::visitTorus3D(VrexTorus3D& torus) { moveCenterAndNormal(torus); }

void VrexGeometryTransformation3DVisitor::visitSphere3D(VrexSphere3D& sphere) {
    if (!isVisited(sphere)) {
        sphere.setCenter(movePosition(sphere.getCenter()));
    }
}

void VrexGeometryTransformation3DVisitor::visitEllipse3D(VrexEllipse3D& ellipse) {
    if (!isVisited(ellipse) && turn(ellipse)) {
        ellipse.setCenter(movePosition(ellipse.getCenter()));
    }
}

void VrexGeometryTransformation3DVisitor::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) {
    if (!isVisited(curve)) {
        moveOriginAndRotation(curve);
    }
}

void VrexGeometryTransformation3DVisitor::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    if (!isVisited(surface)) {
        moveOriginAndRotation(surface);
    }
}

void VrexGeometryTransformation3DVisitor::visitRigidSet3D(VrexRigidSet3D& set) {
    if (isVisited(set)) {
        return;
    }
    moveOriginAndRotation(set);
    if (m_skipRigidSetChildren) {
        return;
    }
    // Sets nest to any depth: the outermost one works off those that its members open.
    m_openSets.push_back({&set, 0});
    if (m_openSets.size() == 1) {
        visitOpenSets();
    }
}

void VrexGeometryTransformation3DVisitor::visitOpenSets() {
    try {
        while (!m_openSets.empty()) {
            visitNextMember();
        }
    } catch (...) {
        m_openSets.clear();
        throw;
    }
}

void VrexGeometryTransformation3DVisitor::visitNextMember() {
    OpenSet& open = m_openSets.back();
    const auto& members = open.set->geometries();
    if (open.next == members.size()) {
        m_openSets.pop_back();
    } else {
        acceptIfThere(members[open.next++], *this);
    }
}

void VrexGeometryTransformation3DVisitor::visitConnector3D(VrexConnector3D& connector) {
    if (!isVisited(connector) && connector.getRigidSet() == nullptr) {
        connector.setTransformation(
            {movePosition(connector.getOrigin()), m_transformation.getRotation() * connector.getRotation()});
    }
}

void VrexGeometryTransformation3DVisitor::visitSpline3D(VrexSpline3D& spline) {
    if (isVisited(spline)) {
        return;
    }
    visitControlPoints(spline.controlPoints(), *this);
    for (const auto& point : spline.getInterpolatedPoints()) {
        acceptIfThere(point, *this);
    }
}

void VrexGeometryTransformation3DVisitor::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    if (!isVisited(surface)) {
        for (const auto& row : surface.controlPoints()) {
            visitControlPoints(row, *this);
        }
    }
}

void VrexGeometryTransformation3DVisitor::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    if (!isVisited(surface)) {
        acceptIfThere(surface.getProfileCurve(), *this);
        acceptIfThere(surface.getAxisLine(), *this);
    }
}

void VrexGeometryTransformation3DVisitor::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    if (!isVisited(surface)) {
        acceptIfThere(surface.getProfileCurve(), *this);
        acceptIfThere(surface.getTrajectoryLine(), *this);
    }
}

void VrexGeometryTransformation3DVisitor::visitPattern3D(VrexPattern3D&) {}

void VrexGeometryTransformation3DVisitor::visitArrayPattern3D(VrexArrayPattern3D&) {}

void VrexGeometryTransformation3DVisitor::visitEqualDimensionElement3D(VrexEqualDimensionElement3D&) {}

void VrexGeometryTransformation3DVisitor::visitBaseObject(VrexBaseObject&) {
    VREX_RAISE(std::runtime_error, "VrexGeometryTransformation3DVisitor : Not implemented");
}
