#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "data/VrexLog.h"
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
#include "data/serialization/3d/VrexObject3DSerializer.h"
#include "data/serialization/VrexJsonWriting.h"

namespace keys = nsJsonKeys;
using nsJsonWriting::putIfFilled;
using nsJsonWriting::putIfSet;
using nsJsonWriting::putText;
using nsJsonWriting::toArray;
using nsJsonWriting::toJson;

namespace {

/// The rotational axis of a shorter vector is the X axis.
constexpr double AXIS_TOLERANCE = 1e-06;

LumoJson typed(const VrexGeometry3D& geometry) {
    LumoJson json;
    putText(json, keys::TYPE, geometry.type());
    return json;
}

void putRange(LumoJson& json, const VrexParametricCurve3D& curve) {
    putIfSet(json, keys::CURVE_RANGE, std::pair(curve.start(), curve.end()));
}

void putRange(LumoJson& json, const VrexParametricSurface3D& surface) {
    putIfSet(json, keys::U_RANGE, std::pair(surface.startU(), surface.endU()));
    putIfSet(json, keys::V_RANGE, std::pair(surface.startV(), surface.endV()));
}

/// What the classes with radii have in common.
template <class Geometry>
void putSignChange(LumoJson& json, const Geometry& geometry) {
    putIfSet(json, keys::ALLOW_RADIUS_SIGN_CHANGE, geometry.getAllowRadiusSignChange());
}

using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

std::vector<std::shared_ptr<VrexPoint3D>> pointsOf(const ControlPoints& controlPoints) {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    points.reserve(controlPoints.size());
    std::transform(controlPoints.begin(), controlPoints.end(), std::back_inserter(points),
                   [](const auto& controlPoint) { return controlPoint.point; });
    return points;
}

LumoJson weightsOf(const ControlPoints& controlPoints) {
    return toArray(controlPoints, [](const auto& controlPoint) { return controlPoint.weight; });
}

/// The net row by row. Throws `std::runtime_error` when the rows are not of one length: no reader could tell
/// them apart.
ControlPoints flatten(const VrexNURBSSurface3D& surface) {
    ControlPoints net;
    for (const auto& row : surface.controlPoints()) {
        if (row.size() != surface.controlPoints().front().size()) {
            VREX_RAISE(std::runtime_error, "Invalid data: NURBS surface points.");
        }
        net.insert(net.end(), row.begin(), row.end());
    }
    return net;
}

} // namespace

void VrexObject3DSerializer::visitPoint3D(VrexPoint3D& point) {
    LumoJson json = typed(point);
    json[keys::LOC] = toJson(point.getPosition());
    serializeGeometry(point, json);
}

void VrexObject3DSerializer::visitLine3D(VrexLine3D& line) {
    LumoJson json = typed(line);
    json[keys::LOC] = toJson(line.getOrigin());
    json[keys::DIR] = toJson(line.getDirection());
    serializeGeometry(line, json);
}

void VrexObject3DSerializer::visitPlane3D(VrexPlane3D& plane) {
    LumoJson json = typed(plane);
    json[keys::LOC] = toJson(plane.getOrigin());
    json[keys::NORM] = toJson(plane.getNormal());
    serializeGeometry(plane, json);
}

void VrexObject3DSerializer::visitCircle3D(VrexCircle3D& circle) {
    LumoJson json = typed(circle);
    json[keys::CEN] = toJson(circle.getCenter());
    json[keys::NORM] = toJson(circle.getNormal());
    json[keys::RAD] = circle.getRadius();
    putRange(json, circle);
    putSignChange(json, circle);
    serializeGeometry(circle, json);
}

void VrexObject3DSerializer::visitEllipse3D(VrexEllipse3D& ellipse) {
    LumoJson json = typed(ellipse);
    json[keys::CEN] = toJson(ellipse.getCenter());
    json[keys::NORM] = toJson(ellipse.getNormal());
    json[keys::DIR] = toJson(ellipse.getDirection());
    json[keys::MAJ] = ellipse.getMajorRadius();
    json[keys::MIN] = ellipse.getMinorRadius();
    putRange(json, ellipse);
    putSignChange(json, ellipse);
    serializeGeometry(ellipse, json);
}

// Kept: without its range, which a reader would take.
void VrexObject3DSerializer::visitCylinder3D(VrexCylinder3D& cylinder) {
    LumoJson json = typed(cylinder);
    json[keys::LOC] = toJson(cylinder.getOrigin());
    json[keys::DIR] = toJson(cylinder.getDirection());
    json[keys::RAD] = cylinder.getRadius();
    putSignChange(json, cylinder);
    serializeGeometry(cylinder, json);
}

void VrexObject3DSerializer::visitCone3D(VrexCone3D& cone) {
    LumoJson json = typed(cone);
    json[keys::CEN] = toJson(cone.getOrigin());
    json[keys::DIR] = toJson(cone.getDirection());
    json[keys::AP] = cone.getAperture();
    putRange(json, cone);
    serializeGeometry(cone, json);
}

void VrexObject3DSerializer::visitSphere3D(VrexSphere3D& sphere) {
    LumoJson json = typed(sphere);
    json[keys::CEN] = toJson(sphere.getCenter());
    json[keys::RAD] = sphere.getRadius();
    putSignChange(json, sphere);
    serializeGeometry(sphere, json);
}

// Kept: with its range, which no reader takes.
void VrexObject3DSerializer::visitTorus3D(VrexTorus3D& torus) {
    LumoJson json = typed(torus);
    json[keys::CEN] = toJson(torus.getCenter());
    json[keys::NORM] = toJson(torus.getNormal());
    json[keys::MAJ] = torus.getMajorRadius();
    json[keys::MIN] = torus.getMinorRadius();
    putRange(json, torus);
    putSignChange(json, torus);
    serializeGeometry(torus, json);
}

void VrexObject3DSerializer::visitRigidSet3D(VrexRigidSet3D& set) {
    LumoJson json = typed(set);
    json[keys::CEN] = toJson(set.getOrigin());
    json[keys::NORM] = toJson(set.getNormal());
    json[keys::DIR] = toJson(set.getDirection());
    json[keys::ARGUMENTS] = toArray(set.geometries(), toGeometryIndex());
    serializeGeometry(set, json);
}

void VrexObject3DSerializer::visitConnector3D(VrexConnector3D& connector) {
    LumoJson json = typed(connector);
    json[keys::ARGUMENTS] = toArray(connector.getGeometries(), toGeometryIndex());
    json[keys::CEN] = toJson(connector.getTransformation().getTranslation());
    json[keys::ROT] = connector.getTransformation().getAngle();
    json[keys::NORM] = toJson(connector.getTransformation().getAxis());
    serializeGeometry(connector, json);
}

void VrexObject3DSerializer::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    LumoJson json = typed(surface);
    json[keys::U_DEGREE] = surface.uDegree();
    json[keys::V_DEGREE] = surface.vDegree();
    json[keys::U_KNOTS] = toJson(surface.uKnots());
    json[keys::V_KNOTS] = toJson(surface.vKnots());
    const auto net = flatten(surface);
    putIfFilled(json, keys::CONTROL_POINTS, toArray(pointsOf(net), toGeometryIndex()));
    putIfFilled(json, keys::WEIGHTS, weightsOf(net));
    putRange(json, surface);
    serializeGeometry(surface, json);
}

// Kept: without its range, which a reader would take.
void VrexObject3DSerializer::visitSpline3D(VrexSpline3D& spline) {
    LumoJson json = typed(spline);
    json[keys::DEGREE] = spline.degree();
    json[keys::PERIODIC] = spline.periodic();
    json[keys::KNOTS] = toJson(spline.knots());
    putIfFilled(json, keys::POINTS, toArray(pointsOf(spline.controlPoints()), toGeometryIndex()));
    putIfFilled(json, keys::WEIGHTS, weightsOf(spline.controlPoints()));
    putIfFilled(json, keys::INTERPOLATED_POINTS, toArray(spline.getInterpolatedPoints(), toGeometryIndex()));
    putIfFilled(json, keys::INTERPOLATED_PARAMETERS, toJson(spline.getInterpolatedParameters()));
    serializeGeometry(spline, json);
}

void VrexObject3DSerializer::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    LumoJson json = typed(surface);
    json[keys::PROFILE_SURFACE] = geometryIndex(surface.getProfileCurve());
    json[keys::AXIS] = geometryIndex(surface.getAxisLine());
    putRange(json, surface);
    serializeGeometry(surface, json);
}

void VrexObject3DSerializer::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    LumoJson json = typed(surface);
    json[keys::PROFILE_CURVE] = geometryIndex(surface.getProfileCurve());
    json[keys::TRAJECTORY_LINE] = geometryIndex(surface.getTrajectoryLine());
    putRange(json, surface);
    serializeGeometry(surface, json);
}

void VrexObject3DSerializer::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) { serializeEvaluated(curve); }

void VrexObject3DSerializer::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    serializeEvaluated(surface);
}

void VrexObject3DSerializer::visitPattern3D(VrexPattern3D& pattern) {
    LumoJson json = typed(pattern);
    json[keys::AXIS] = geometryIndex(pattern.getAxisLine());
    putText(json, keys::PATTERN_TYPE, pattern.getPatternType());
    json[keys::VALUE] = pattern.getValue();
    serializeGeometry(pattern, json);
}

void VrexObject3DSerializer::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    LumoJson json = typed(pattern);
    json[keys::ARGUMENTS] = toArray(pattern.getPatterns(), toGeometryIndex());
    serializeGeometry(pattern, json);
}

void VrexObject3DSerializer::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    LumoJson json = typed(element);
    json[keys::VALUE] = element.getValue();
    serializeGeometry(element, json);
}

template <class Shape>
void VrexObject3DSerializer::serializeEvaluated(Shape& shape) {
    LumoJson json = typed(shape);
    json[keys::CEN] = toJson(shape.getOrigin());
    json[keys::ROT] = shape.getRotation().rotationalAngle();
    json[keys::AXIS] = toJson(shape.getRotation().rotationalAxis(AXIS_TOLERANCE));
    json[keys::X] = shape.getX();
    json[keys::Y] = shape.getY();
    json[keys::Z] = shape.getZ();
    json[keys::DESCRIPTORS] = descriptorsOf(shape, Names::Written);
    putRange(json, shape);
    serializeGeometry(shape, json);
}
