#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "data/VrexLog.h"
#include "data/VrexVariableDescriptor.h"
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
#include "data/serialization/3d/VrexObject3DDeserializer.h"
#include "data/serialization/VrexJsonReading.h"
#include "data/serialization/VrexReplay.h"
#include "data/serialization/VrexSystemDeserializer.h"

namespace keys = nsJsonKeys;
using nsJsonReading::find;
using nsJsonReading::findArray;
using nsJsonReading::findBoolean;
using nsJsonReading::findNumber;
using nsJsonReading::readArray;
using nsJsonReading::readBoolean;
using nsJsonReading::readEnum;
using nsJsonReading::readInteger;
using nsJsonReading::readNumber;
using nsJsonReading::readNumbers;
using nsJsonReading::toNumbers;

namespace {

using ControlPoints = std::vector<VrexSpline3D::ControlPoint>;
using Points = std::vector<std::shared_ptr<VrexPoint3D>>;

/// A rotation about a shorter axis is none.
constexpr double AXIS_TOLERANCE = 1e-06;

constexpr const char* SPLINE_POINTS = "Invalid data: spline points.";
constexpr const char* SURFACE_POINTS = "Invalid data: NURBS surface points.";

void readRange(VrexParametricCurve3D& curve, const LumoJson& json) {
    curve.start() = findNumber(json, keys::CURVE_RANGE.lower);
    curve.end() = findNumber(json, keys::CURVE_RANGE.upper);
}

void readRange(VrexParametricSurface3D& surface, const LumoJson& json) {
    surface.startU() = findNumber(json, keys::U_RANGE.lower);
    surface.endU() = findNumber(json, keys::U_RANGE.upper);
    surface.startV() = findNumber(json, keys::V_RANGE.lower);
    surface.endV() = findNumber(json, keys::V_RANGE.upper);
}

/// What the classes with radii have in common.
template <class Geometry>
void readSignChange(Geometry& geometry, const LumoJson& json) {
    geometry.setAllowRadiusSignChange(findBoolean(json, keys::ALLOW_RADIUS_SIGN_CHANGE));
}

ControlPoints joined(Points points, const std::vector<double>& weights) {
    ControlPoints controlPoints;
    controlPoints.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        controlPoints.push_back({std::move(points[i]), weights[i]});
    }
    return controlPoints;
}

/// How many control points a knot vector is made for; 0 where it is made for none.
std::size_t countAlong(const std::vector<double>& knots, int degree) {
    const std::int64_t count = static_cast<std::int64_t>(knots.size()) - degree - 1;
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

/// The length of the rows of a net of `count` control points: as the knots of both ways ask; or else as those
/// of V do, or those of U, where that makes whole rows.
std::size_t countColumns(const VrexNURBSSurface3D& surface, std::size_t count) {
    const std::size_t rows = countAlong(surface.uKnots(), surface.uDegree());
    const std::size_t columns = countAlong(surface.vKnots(), surface.vDegree());
    if (columns != 0 && count % columns == 0) {
        return columns; // Whether or not the rows are then as many as U asks for.
    }
    if (rows == 0 || count % rows != 0) {
        VREX_RAISE(std::runtime_error, SURFACE_POINTS);
    }
    return count / rows;
}

/// Cuts a list into rows.
std::vector<ControlPoints> toNet(const ControlPoints& controlPoints, std::size_t columns) {
    std::vector<ControlPoints> net;
    for (auto row = controlPoints.begin(); row != controlPoints.end();) {
        const auto end = row + static_cast<std::ptrdiff_t>(columns);
        net.emplace_back(row, end);
        row = end;
    }
    return net;
}

} // namespace

Points VrexObject3DDeserializer::readPoints(const LumoJson& json, std::string_view key) const {
    Points points;
    for (const LumoJson& place : readArray(json, key)) {
        const auto& geometry = system().geometry(nsJsonReading::toInteger<std::uint64_t>(place, key));
        points.push_back(
            nsReplay::created(std::dynamic_pointer_cast<VrexPoint3D>(geometry), nsReplay::NO_GEOMETRY));
    }
    return points;
}

void VrexObject3DDeserializer::visitPoint3D(VrexPoint3D& point) {
    const LumoJson& json = deserializeGeometry(point);
    point.setPosition(getVector3D(json, keys::LOC));
}

void VrexObject3DDeserializer::visitLine3D(VrexLine3D& line) {
    const LumoJson& json = deserializeGeometry(line);
    line.setOrigin(getVector3D(json, keys::LOC));
    line.setDirection(getNormalizedVector3D(json, keys::DIR));
}

void VrexObject3DDeserializer::visitPlane3D(VrexPlane3D& plane) {
    const LumoJson& json = deserializeGeometry(plane);
    plane.setOrigin(getVector3D(json, keys::LOC));
    plane.setNormal(getNormalizedVector3D(json, keys::NORM));
}

void VrexObject3DDeserializer::visitCircle3D(VrexCircle3D& circle) {
    const LumoJson& json = deserializeGeometry(circle);
    circle.setCenter(getVector3D(json, keys::CEN));
    circle.setNormal(getVector3D(json, keys::NORM));
    circle.setRadius(readNumber(json, keys::RAD));
    readRange(circle, json);
    readSignChange(circle, json);
}

void VrexObject3DDeserializer::visitEllipse3D(VrexEllipse3D& ellipse) {
    const LumoJson& json = deserializeGeometry(ellipse);
    ellipse.setCenter(getVector3D(json, keys::CEN));
    const auto normal = getVector3D(json, keys::NORM);
    if (!ellipse.setRotation(getVector3D(json, keys::DIR), normal)) {
        VREX_RAISE(std::runtime_error, "Invalid data: Ellipse normal and direction are not perpendicular.");
    }
    ellipse.setMajorRadius(readNumber(json, keys::MAJ));
    ellipse.setMinorRadius(readNumber(json, keys::MIN));
    readRange(ellipse, json);
    readSignChange(ellipse, json);
}

// Kept: with a range, which no writer gives.
void VrexObject3DDeserializer::visitCylinder3D(VrexCylinder3D& cylinder) {
    const LumoJson& json = deserializeGeometry(cylinder);
    cylinder.setOrigin(getVector3D(json, keys::LOC));
    cylinder.setDirection(getVector3D(json, keys::DIR));
    cylinder.setRadius(readNumber(json, keys::RAD));
    readRange(cylinder, json);
    readSignChange(cylinder, json);
}

void VrexObject3DDeserializer::visitCone3D(VrexCone3D& cone) {
    const LumoJson& json = deserializeGeometry(cone);
    cone.setOrigin(getVector3D(json, keys::CEN));
    cone.setDirection(getVector3D(json, keys::DIR));
    cone.setAperture(readNumber(json, keys::AP));
    readRange(cone, json);
}

void VrexObject3DDeserializer::visitSphere3D(VrexSphere3D& sphere) {
    const LumoJson& json = deserializeGeometry(sphere);
    sphere.setCenter(getVector3D(json, keys::CEN));
    sphere.setRadius(readNumber(json, keys::RAD));
    readSignChange(sphere, json);
}

// Kept: without its range, which a writer gives.
void VrexObject3DDeserializer::visitTorus3D(VrexTorus3D& torus) {
    const LumoJson& json = deserializeGeometry(torus);
    torus.setCenter(getVector3D(json, keys::CEN));
    torus.setNormal(getVector3D(json, keys::NORM));
    torus.setMajorRadius(readNumber(json, keys::MAJ));
    torus.setMinorRadius(readNumber(json, keys::MIN));
    readSignChange(torus, json);
}

void VrexObject3DDeserializer::visitRigidSet3D(VrexRigidSet3D& set) {
    const LumoJson& json = deserializeGeometry(set);
    set.setOrigin(getVector3D(json, keys::CEN));
    const auto normal = getVector3D(json, keys::NORM);
    // Kept: older documents have an angle in place of the direction, and its axis in place of the normal.
    const bool isTurned = find(json, keys::DIR) != nullptr
                              ? set.setRotation(getVector3D(json, keys::DIR), normal)
                              : set.setRotation(readNumber(json, keys::ROT), normal);
    if (!isTurned) {
        VREX_RAISE(std::runtime_error, "Invalid data: RigidSet rotation incorrect.");
    }
}

void VrexObject3DDeserializer::visitConnector3D(VrexConnector3D& connector) {
    const LumoJson& json = deserializeGeometry(connector);
    const auto translation = getVector3D(json, keys::CEN);
    const double angle = readNumber(json, keys::ROT);
    connector.setTransformation({translation, angle, getVector3D(json, keys::NORM)});
}

void VrexObject3DDeserializer::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    const LumoJson& json = deserializeGeometry(surface);
    surface.uDegree() = readInteger<std::int32_t>(json, keys::U_DEGREE);
    surface.vDegree() = readInteger<std::int32_t>(json, keys::V_DEGREE);
    surface.uKnots() = readNumbers(json, keys::U_KNOTS);
    surface.vKnots() = readNumbers(json, keys::V_KNOTS);
    if (find(json, keys::CONTROL_POINTS) == nullptr || find(json, keys::WEIGHTS) == nullptr) {
        VREX_RAISE(std::runtime_error, "Invalid data: NURBS surface control points are missing.");
    }
    Points points = readPoints(json, keys::CONTROL_POINTS);
    const auto weights = readNumbers(json, keys::WEIGHTS);
    if (points.size() != weights.size()) {
        VREX_RAISE(std::runtime_error, SURFACE_POINTS);
    }
    surface.controlPoints().clear();
    if (!points.empty()) {
        const std::size_t columns = countColumns(surface, points.size());
        surface.controlPoints() = toNet(joined(std::move(points), weights), columns);
    }
    readRange(surface, json);
}

void VrexObject3DDeserializer::visitSpline3D(VrexSpline3D& spline) {
    const LumoJson& json = deserializeGeometry(spline);
    spline.degree() = readInteger<std::int32_t>(json, keys::DEGREE);
    spline.periodic() = readBoolean(json, keys::PERIODIC);
    spline.knots() = readNumbers(json, keys::KNOTS);
    if (find(json, keys::POINTS) == nullptr || find(json, keys::WEIGHTS) == nullptr) {
        VREX_RAISE(std::runtime_error, "Invalid data: spline control points are missing.");
    }
    Points points = readPoints(json, keys::POINTS);
    const auto weights = readNumbers(json, keys::WEIGHTS);
    if (points.size() != weights.size()) {
        VREX_RAISE(std::runtime_error, SPLINE_POINTS);
    }
    spline.controlPoints() = joined(std::move(points), weights);
    readInterpolation(spline, json);
    readRange(spline, json); // Kept: no writer gives one.
}

void VrexObject3DDeserializer::readInterpolation(VrexSpline3D& spline, const LumoJson& json) const {
    const bool hasPoints = find(json, keys::INTERPOLATED_POINTS) != nullptr;
    const LumoJson* const parameters = findArray(json, keys::INTERPOLATED_PARAMETERS);
    if (hasPoints) {
        spline.setInterpolatedPoints(readPoints(json, keys::INTERPOLATED_POINTS));
    }
    if (parameters != nullptr) {
        spline.setInterpolatedParameters(toNumbers(*parameters, keys::INTERPOLATED_PARAMETERS));
    }
    const std::size_t count = spline.getInterpolatedPoints().size();
    const std::size_t parameterCount = spline.getInterpolatedParameters().size();
    const bool isClosed = spline.periodic() && parameterCount == count + 1;
    if (hasPoints && parameters != nullptr && parameterCount != count && !isClosed) {
        VREX_RAISE(std::runtime_error, SPLINE_POINTS);
    }
}

void VrexObject3DDeserializer::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    readRange(surface, deserializeGeometry(surface));
}

void VrexObject3DDeserializer::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    readRange(surface, deserializeGeometry(surface));
}

template <class Evaluated>
void VrexObject3DDeserializer::readEvaluated(Evaluated& evaluated) {
    const LumoJson& json = deserializeGeometry(evaluated);
    evaluated.setOrigin(getVector3D(json, keys::CEN));
    const double angle = readNumber(json, keys::ROT);
    const auto axis = getVector3D(json, keys::AXIS);
    if (!evaluated.setRotation(VrexQuaternionT<double>::makeFromAngleAndAxis(angle, axis, AXIS_TOLERANCE))) {
        VREX_RAISE(std::runtime_error, "Invalid data: rotation incorrect.");
    }
    // Before the expressions, which name them.
    if (const LumoJson* const descriptors = findArray(json, keys::DESCRIPTORS)) {
        evaluated.setDescriptors(createDescriptors(*descriptors));
    }
    // Kept: a text that is refused is stored all the same; the log tells.
    evaluated.setX(std::string(getString(json, keys::X)));
    evaluated.setY(std::string(getString(json, keys::Y)));
    evaluated.setZ(std::string(getString(json, keys::Z)));
    readRange(evaluated, json);
}

void VrexObject3DDeserializer::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) { readEvaluated(curve); }

void VrexObject3DDeserializer::visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) {
    readEvaluated(surface);
}

void VrexObject3DDeserializer::visitPattern3D(VrexPattern3D& pattern) {
    const LumoJson& json = deserializeGeometry(pattern);
    pattern.setPatternType(readEnum<VrexPattern3DType>(json, keys::PATTERN_TYPE));
    pattern.setValue(readNumber(json, keys::VALUE));
}

void VrexObject3DDeserializer::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    deserializeGeometry(pattern);
    pattern.updateCircularPatternIdx(); // Its patterns are read by now.
}

void VrexObject3DDeserializer::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    const LumoJson& json = deserializeGeometry(element);
    element.setValue(readNumber(json, keys::VALUE));
}
