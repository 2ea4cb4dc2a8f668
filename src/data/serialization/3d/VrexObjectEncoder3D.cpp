#include "data/serialization/3d/VrexObjectEncoder3D.h"

#include <memory>
#include <vector>

#include "data/VrexBaseObject.h"
#include "data/VrexInvalidArgumentException.h"
#include "data/VrexLog.h"
#include "data/VrexObjectType.h"
#include "data/VrexTransformation3DT.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/3d/VrexArrayPattern3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
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
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexPackedBytes.h"

using nsPacked::number;
using nsPacked::pack;

namespace {

template <class Fields>
void putRange(Fields& fields, const VrexParametricCurve3D& curve) {
    fields.optional(curve.start());
    fields.optional(curve.end());
}

/// The identifier of an object that has to be there.
template <class Fields, class Object>
void putLink(Fields& fields, const std::shared_ptr<Object>& object) {
    fields.require([&] { return object != nullptr; });
    fields.packed([&] { return pack(object->getID()); });
}

/// Identifiers of the points with their weights.
template <class Fields>
void putControlPoints(Fields& fields, const std::vector<VrexSpline3D::ControlPoint>& points) {
    fields.list(points, [&](const VrexSpline3D::ControlPoint& point) {
        putLink(fields, point.point);
        fields.values(point.weight);
    });
}

} // namespace

VrexObjectEncoder3D::~VrexObjectEncoder3D() = default;

void VrexObjectEncoder3D::visitBaseObject(VrexBaseObject& /*object*/) {
    VREX_RAISE(VrexInvalidArgumentException, "Not supported object type.");
}

void VrexObjectEncoder3D::visitGeometryVariable(VrexGeometryVariable& variable) { encodeVariable(variable); }

void VrexObjectEncoder3D::visitCallbackEquation(VrexCallbackEquation& equation) {
    encodeCallbackEquation(equation);
}

void VrexObjectEncoder3D::visitExpressionEquation(VrexExpressionEquation& equation) {
    encodeExpressionEquation(equation);
}

/// The fields of the kind are what `put` puts.
template <class Put>
void VrexObjectEncoder3D::encodeGeometry(const VrexGeometry3D& geometry, Put put) {
    encode([&](auto& fields) {
        fields.values(number(geometry.baseType()), number(geometry.type()));
        put(fields);
        putCommon(fields, geometry);
    });
}

void VrexObjectEncoder3D::visitPoint3D(VrexPoint3D& point) {
    encodeGeometry(point, [&](auto& fields) { fields.values(point.getPosition()); });
}

void VrexObjectEncoder3D::visitLine3D(VrexLine3D& line) {
    encodeGeometry(line, [&](auto& fields) {
        fields.packed([&] { return pack(line.getOrigin(), line.getDirection()); });
    });
}

void VrexObjectEncoder3D::visitPlane3D(VrexPlane3D& plane) {
    encodeGeometry(plane, [&](auto& fields) {
        fields.packed([&] { return pack(plane.getOrigin(), plane.getNormal()); });
    });
}

void VrexObjectEncoder3D::visitCircle3D(VrexCircle3D& circle) {
    encodeGeometry(circle, [&](auto& fields) {
        fields.packed([&] { return pack(circle.getCenter(), circle.getNormal(), circle.getRadius()); });
        putRange(fields, circle);
    });
}

void VrexObjectEncoder3D::visitEllipse3D(VrexEllipse3D& ellipse) {
    encodeGeometry(ellipse, [&](auto& fields) {
        fields.packed([&] {
            return pack(ellipse.getCenter(), ellipse.getNormal(), ellipse.getDirection(),
                        ellipse.getMajorRadius(), ellipse.getMinorRadius());
        });
        putRange(fields, ellipse);
    });
}

void VrexObjectEncoder3D::visitCylinder3D(VrexCylinder3D& cylinder) {
    encodeGeometry(cylinder, [&](auto& fields) {
        fields.packed(
            [&] { return pack(cylinder.getOrigin(), cylinder.getDirection(), cylinder.getRadius()); });
    });
}

void VrexObjectEncoder3D::visitCone3D(VrexCone3D& cone) {
    encodeGeometry(cone, [&](auto& fields) {
        fields.packed([&] { return pack(cone.getOrigin(), cone.getDirection(), cone.getAperture()); });
    });
}

void VrexObjectEncoder3D::visitSphere3D(VrexSphere3D& sphere) {
    encodeGeometry(sphere, [&](auto& fields) { fields.values(sphere.getCenter(), sphere.getRadius()); });
}

void VrexObjectEncoder3D::visitTorus3D(VrexTorus3D& torus) {
    encodeGeometry(torus, [&](auto& fields) {
        fields.packed([&] {
            return pack(torus.getCenter(), torus.getNormal(), torus.getMajorRadius(), torus.getMinorRadius());
        });
    });
}

void VrexObjectEncoder3D::visitRigidSet3D(VrexRigidSet3D& set) {
    encodeGeometry(set, [&](auto& fields) {
        fields.packed([&] { return pack(set.getOrigin(), set.getAxis(), set.getAngle()); });
        fields.ids(set.geometries());
    });
}

void VrexObjectEncoder3D::visitConnector3D(VrexConnector3D& connector) {
    encodeGeometry(connector, [&](auto& fields) {
        fields.packed([&] {
            const auto& set = connector.getRigidSet();
            const auto& frame = connector.getTransformation();
            // 0 stands for none.
            return pack(set != nullptr ? set->getID() : 0, frame.getTranslation(), frame.getAxis(),
                        frame.getAngle());
        });
    });
}

void VrexObjectEncoder3D::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    encodeGeometry(surface, [&](auto& fields) {
        fields.values(number(surface.uDegree()), number(surface.vDegree()));
        fields.numbers(surface.uKnots());
        fields.numbers(surface.vKnots());
        fields.list(surface.controlPoints(), [&](const auto& row) { putControlPoints(fields, row); });
    });
}

void VrexObjectEncoder3D::visitSpline3D(VrexSpline3D& spline) {
    encodeGeometry(spline, [&](auto& fields) {
        fields.values(number(spline.degree()));
        fields.numbers(spline.knots());
        fields.values(spline.periodic());
        putControlPoints(fields, spline.controlPoints());
        fields.ids(spline.getInterpolatedPoints());
        fields.numbers(spline.getInterpolatedParameters());
        putRange(fields, spline);
    });
}

void VrexObjectEncoder3D::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    encodeGeometry(surface, [&](auto& fields) {
        putLink(fields, surface.getAxisLine());
        putLink(fields, surface.getProfileCurve());
    });
}

void VrexObjectEncoder3D::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    encodeGeometry(surface, [&](auto& fields) {
        putLink(fields, surface.getProfileCurve());
        putLink(fields, surface.getTrajectoryLine());
        fields.optional(surface.startV());
        fields.optional(surface.endV());
    });
}

void VrexObjectEncoder3D::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) {
    encodeGeometry(curve, [&](auto& fields) {
        fields.packed([&] {
            const VrexTransformation3DT<double> frame(curve.getOrigin(), curve.getRotation());
            // Kept: the angle stands before the axis here.
            return pack(frame.getTranslation(), frame.getAngle(), frame.getAxis());
        });
        fields.string(curve.getX());
        fields.string(curve.getY());
        fields.string(curve.getZ());
        fields.descriptors(curve.descriptors());
        putRange(fields, curve);
    });
}

void VrexObjectEncoder3D::visitPattern3D(VrexPattern3D& pattern) {
    encodeGeometry(pattern, [&](auto& fields) {
        fields.values(number(pattern.getPatternType()));
        putLink(fields, pattern.getAxisLine());
        fields.values(pattern.getValue());
    });
}

void VrexObjectEncoder3D::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    encodeGeometry(pattern, [&](auto& fields) { fields.ids(pattern.getPatterns()); });
}

void VrexObjectEncoder3D::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    encodeGeometry(element, [&](auto& fields) { fields.values(element.getValue()); });
}
