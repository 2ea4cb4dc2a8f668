#include <algorithm>
#include <functional>
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
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonObject.h"

namespace keys = nsJsonKeys;

namespace {

/// The rotational axis of a shorter vector is the X axis.
constexpr double AXIS_TOLERANCE = 1e-06;

void putRange(VrexJsonObject& json, const VrexParametricCurve3D& curve) {
    json.putIfSet(keys::CURVE_RANGE, std::pair(curve.start(), curve.end()));
}

void putRange(VrexJsonObject& json, const VrexParametricSurface3D& surface) {
    json.putIfSet(keys::U_RANGE, std::pair(surface.startU(), surface.endU()));
    json.putIfSet(keys::V_RANGE, std::pair(surface.startV(), surface.endV()));
}

/// What the classes with radii have in common.
template <class Geometry>
void putSignChange(VrexJsonObject& json, const Geometry& geometry) {
    json.putIfSet(keys::ALLOW_RADIUS_SIGN_CHANGE, geometry.getAllowRadiusSignChange());
}

using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;

std::vector<std::shared_ptr<VrexPoint3D>> pointsOf(const ControlPoints& controlPoints) {
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    points.reserve(controlPoints.size());
    std::transform(controlPoints.begin(), controlPoints.end(), std::back_inserter(points),
                   [](const auto& controlPoint) { return controlPoint.point; });
    return points;
}

double weightOf(const VrexSpline3D::ControlPoint& controlPoint) { return controlPoint.weight; }

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
    VrexJsonObject json = typed(point);
    json.put(keys::LOC, point.getPosition());
    serializeGeometry(point, json);
}

void VrexObject3DSerializer::visitLine3D(VrexLine3D& line) {
    VrexJsonObject json = typed(line);
    json.put(keys::LOC, line.getOrigin());
    json.put(keys::DIR, line.getDirection());
    serializeGeometry(line, json);
}

void VrexObject3DSerializer::visitPlane3D(VrexPlane3D& plane) {
    VrexJsonObject json = typed(plane);
    json.put(keys::LOC, plane.getOrigin());
    json.put(keys::NORM, plane.getNormal());
    serializeGeometry(plane, json);
}

void VrexObject3DSerializer::visitCircle3D(VrexCircle3D& circle) {
    VrexJsonObject json = typed(circle);
    json.put(keys::CEN, circle.getCenter());
    json.put(keys::NORM, circle.getNormal());
    json.put(keys::RAD, circle.getRadius());
    putRange(json, circle);
    putSignChange(json, circle);
    serializeGeometry(circle, json);
}

void VrexObject3DSerializer::visitEllipse3D(VrexEllipse3D& ellipse) {
    VrexJsonObject json = typed(ellipse);
    json.put(keys::CEN, ellipse.getCenter());
    json.put(keys::NORM, ellipse.getNormal());
    json.put(keys::DIR, ellipse.getDirection());
    json.put(keys::MAJ, ellipse.getMajorRadius());
    json.put(keys::MIN, ellipse.getMinorRadius());
    putRange(json, ellipse);
    putSignChange(json, ellipse);
    serializeGeometry(ellipse, json);
}

// Kept: without its range, which a reader would take.
void VrexObject3DSerializer::visitCylinder3D(VrexCylinder3D& cylinder) {
    VrexJsonObject json = typed(cylinder);
    json.put(keys::LOC, cylinder.getOrigin());
    json.put(keys::DIR, cylinder.getDirection());
    json.put(keys::RAD, cylinder.getRadius());
    putSignChange(json, cylinder);
    serializeGeometry(cylinder, json);
}

void VrexObject3DSerializer::visitCone3D(VrexCone3D& cone) {
    VrexJsonObject json = typed(cone);
    json.put(keys::CEN, cone.getOrigin());
    json.put(keys::DIR, cone.getDirection());
    json.put(keys::AP, cone.getAperture());
    putRange(json, cone);
    serializeGeometry(cone, json);
}

void VrexObject3DSerializer::visitSphere3D(VrexSphere3D& sphere) {
    VrexJsonObject json = typed(sphere);
    json.put(keys::CEN, sphere.getCenter());
    json.put(keys::RAD, sphere.getRadius());
    putSignChange(json, sphere);
    serializeGeometry(sphere, json);
}

// Kept: with its range, which no reader takes.
void VrexObject3DSerializer::visitTorus3D(VrexTorus3D& torus) {
    VrexJsonObject json = typed(torus);
    json.put(keys::CEN, torus.getCenter());
    json.put(keys::NORM, torus.getNormal());
    json.put(keys::MAJ, torus.getMajorRadius());
    json.put(keys::MIN, torus.getMinorRadius());
    putRange(json, torus);
    putSignChange(json, torus);
    serializeGeometry(torus, json);
}

void VrexObject3DSerializer::visitRigidSet3D(VrexRigidSet3D& set) {
    VrexJsonObject json = typed(set);
    json.put(keys::CEN, set.getOrigin());
    json.put(keys::NORM, set.getNormal());
    json.put(keys::DIR, set.getDirection());
    json.putArray(keys::ARGUMENTS, set.geometries(), toGeometryIndex());
    serializeGeometry(set, json);
}

void VrexObject3DSerializer::visitConnector3D(VrexConnector3D& connector) {
    VrexJsonObject json = typed(connector);
    json.putArray(keys::ARGUMENTS, connector.getGeometries(), toGeometryIndex());
    json.put(keys::CEN, connector.getTransformation().getTranslation());
    json.put(keys::ROT, connector.getTransformation().getAngle());
    json.put(keys::NORM, connector.getTransformation().getAxis());
    serializeGeometry(connector, json);
}

void VrexObject3DSerializer::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    VrexJsonObject json = typed(surface);
    json.put(keys::U_DEGREE, surface.uDegree());
    json.put(keys::V_DEGREE, surface.vDegree());
    json.put(keys::U_KNOTS, surface.uKnots());
    json.put(keys::V_KNOTS, surface.vKnots());
    const auto net = flatten(surface);
    json.putArrayIfFilled(keys::CONTROL_POINTS, pointsOf(net), toGeometryIndex());
    json.putArrayIfFilled(keys::WEIGHTS, net, weightOf);
    putRange(json, surface);
    serializeGeometry(surface, json);
}

// Kept: without its range, which a reader would take.
void VrexObject3DSerializer::visitSpline3D(VrexSpline3D& spline) {
    VrexJsonObject json = typed(spline);
    json.put(keys::DEGREE, spline.degree());
    json.put(keys::PERIODIC, spline.periodic());
    json.put(keys::KNOTS, spline.knots());
    json.putArrayIfFilled(keys::POINTS, pointsOf(spline.controlPoints()), toGeometryIndex());
    json.putArrayIfFilled(keys::WEIGHTS, spline.controlPoints(), weightOf);
    json.putArrayIfFilled(keys::INTERPOLATED_POINTS, spline.getInterpolatedPoints(), toGeometryIndex());
    json.putArrayIfFilled(keys::INTERPOLATED_PARAMETERS, spline.getInterpolatedParameters(), std::identity());
    serializeGeometry(spline, json);
}

void VrexObject3DSerializer::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    VrexJsonObject json = typed(surface);
    json.put(keys::PROFILE_SURFACE, geometryIndex(surface.getProfileCurve()));
    json.put(keys::AXIS, geometryIndex(surface.getAxisLine()));
    putRange(json, surface);
    serializeGeometry(surface, json);
}

void VrexObject3DSerializer::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    VrexJsonObject json = typed(surface);
    json.put(keys::PROFILE_CURVE, geometryIndex(surface.getProfileCurve()));
    json.put(keys::TRAJECTORY_LINE, geometryIndex(surface.getTrajectoryLine()));
    putRange(json, surface);
    serializeGeometry(surface, json);
}

void VrexObject3DSerializer::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) { serializeEvaluated(curve); }

void VrexObject3DSerializer::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    serializeEvaluated(surface);
}

void VrexObject3DSerializer::visitPattern3D(VrexPattern3D& pattern) {
    VrexJsonObject json = typed(pattern);
    json.put(keys::AXIS, geometryIndex(pattern.getAxisLine()));
    json.put(keys::PATTERN_TYPE, pattern.getPatternType());
    json.put(keys::VALUE, pattern.getValue());
    serializeGeometry(pattern, json);
}

void VrexObject3DSerializer::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    VrexJsonObject json = typed(pattern);
    json.putArray(keys::ARGUMENTS, pattern.getPatterns(), toGeometryIndex());
    serializeGeometry(pattern, json);
}

void VrexObject3DSerializer::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    VrexJsonObject json = typed(element);
    json.put(keys::VALUE, element.getValue());
    serializeGeometry(element, json);
}

VrexJsonObject VrexObject3DSerializer::typed(const VrexGeometry3D& geometry) {
    return {lines().nextLine(VrexJsonLines::OBJECTS),
            [&](VrexJsonObject& json) { json.put(keys::TYPE, geometry.type()); }};
}

template <class Shape>
void VrexObject3DSerializer::serializeEvaluated(Shape& shape) {
    VrexJsonObject json = typed(shape);
    json.put(keys::CEN, shape.getOrigin());
    json.put(keys::ROT, shape.getRotation().rotationalAngle());
    json.put(keys::AXIS, shape.getRotation().rotationalAxis(AXIS_TOLERANCE));
    json.put(keys::X, shape.getX());
    json.put(keys::Y, shape.getY());
    json.put(keys::Z, shape.getZ());
    putDescriptors(shape, Names::Written, json);
    putRange(json, shape);
    serializeGeometry(shape, json);
}
