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

/// Axis, then angle.
auto packRotation(const VrexTransformation3DT<double>& transformation) {
    return pack(transformation.getAxis(), transformation.getAngle());
}

/// Whether all links are there; the log tells of one that is not.
template <class... Parts>
bool areSet(const VrexBaseObject& object, const Parts&... parts) {
    const bool areAllSet = ((parts != nullptr) && ...);
    if (!areAllSet) {
        VREX_LOG(nsLog::REFUSAL, "Object(%llu): a part is missing, and it cannot be encoded.",
                 static_cast<unsigned long long>(object.getID()));
    }
    return areAllSet;
}

/// Identifiers of the points with their weights.
bool writeControlPoints(VrexStreamEncoder& stream, const VrexGeometry3D& owner,
                        const std::vector<VrexSpline3D::ControlPoint>& points) {
    return stream.writeList(points, [&](const VrexSpline3D::ControlPoint& point) {
        return areSet(owner, point.point) &&
               stream.writePacked([&] { return pack(point.point->getID(), point.weight); });
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

/// The fields of the kind: those that `packFields` packs, then those that `writeFields` writes.
template <class PackFields, class WriteFields>
void VrexObjectEncoder3D::encodeGeometry(const VrexGeometry3D& geometry, PackFields packFields,
                                         WriteFields writeFields) {
    encode([&] {
        return stream().writePacked([&] {
            return pack(number(geometry.baseType()), number(geometry.type()), packFields());
        }) && writeFields() &&
               writeCommonFields(geometry);
    });
}

template <class PackFields>
void VrexObjectEncoder3D::encodeGeometry(const VrexGeometry3D& geometry, PackFields packFields) {
    encodeGeometry(geometry, packFields, [] { return true; });
}

bool VrexObjectEncoder3D::writeRange(const VrexParametricCurve3D& curve) {
    return stream().writeOptionalF64(curve.start()) && stream().writeOptionalF64(curve.end());
}

void VrexObjectEncoder3D::visitPoint3D(VrexPoint3D& point) {
    encodeGeometry(point, [&] { return pack(point.getPosition()); });
}

void VrexObjectEncoder3D::visitLine3D(VrexLine3D& line) {
    encodeGeometry(line, [&] { return pack(line.getOrigin(), line.getDirection()); });
}

void VrexObjectEncoder3D::visitPlane3D(VrexPlane3D& plane) {
    encodeGeometry(plane, [&] { return pack(plane.getOrigin(), plane.getNormal()); });
}

void VrexObjectEncoder3D::visitCircle3D(VrexCircle3D& circle) {
    encodeGeometry(
        circle, [&] { return pack(circle.getCenter(), circle.getNormal(), circle.getRadius()); },
        [&] { return writeRange(circle); });
}

void VrexObjectEncoder3D::visitEllipse3D(VrexEllipse3D& ellipse) {
    encodeGeometry(
        ellipse,
        [&] {
            return pack(ellipse.getCenter(), ellipse.getNormal(), ellipse.getDirection(),
                        ellipse.getMajorRadius(), ellipse.getMinorRadius());
        },
        [&] { return writeRange(ellipse); });
}

void VrexObjectEncoder3D::visitCylinder3D(VrexCylinder3D& cylinder) {
    encodeGeometry(cylinder,
                   [&] { return pack(cylinder.getOrigin(), cylinder.getDirection(), cylinder.getRadius()); });
}

void VrexObjectEncoder3D::visitCone3D(VrexCone3D& cone) {
    encodeGeometry(cone, [&] { return pack(cone.getOrigin(), cone.getDirection(), cone.getAperture()); });
}

void VrexObjectEncoder3D::visitSphere3D(VrexSphere3D& sphere) {
    encodeGeometry(sphere, [&] { return pack(sphere.getCenter(), sphere.getRadius()); });
}

void VrexObjectEncoder3D::visitTorus3D(VrexTorus3D& torus) {
    encodeGeometry(torus, [&] {
        return pack(torus.getCenter(), torus.getNormal(), torus.getMajorRadius(), torus.getMinorRadius());
    });
}

void VrexObjectEncoder3D::visitRigidSet3D(VrexRigidSet3D& set) {
    encodeGeometry(
        set, [&] { return pack(set.getOrigin(), packRotation(set.getTransformation())); },
        [&] { return stream().writeIdList(set.geometries()); });
}

void VrexObjectEncoder3D::visitConnector3D(VrexConnector3D& connector) {
    encodeGeometry(connector, [&] {
        const auto& set = connector.getRigidSet();
        // No set has the identifier 0, which stands for none.
        return pack(set != nullptr ? set->getID() : 0, connector.getOrigin(),
                    packRotation(connector.getTransformation()));
    });
}

void VrexObjectEncoder3D::visitNURBSSurface3D(VrexNURBSSurface3D& surface) {
    encodeGeometry(
        surface, [&] { return pack(number(surface.uDegree()), number(surface.vDegree())); },
        [&] {
            return stream().writeF64List(surface.uKnots()) && stream().writeF64List(surface.vKnots()) &&
                   stream().writeList(surface.controlPoints(), [&](const auto& row) {
                       return writeControlPoints(stream(), surface, row);
                   });
        });
}

void VrexObjectEncoder3D::visitSpline3D(VrexSpline3D& spline) {
    encodeGeometry(
        spline, [&] { return pack(number(spline.degree())); },
        [&] {
            return stream().writeF64List(spline.knots()) && stream().writeBool(spline.periodic()) &&
                   writeControlPoints(stream(), spline, spline.controlPoints()) &&
                   stream().writeIdList(spline.getInterpolatedPoints()) &&
                   stream().writeF64List(spline.getInterpolatedParameters()) && writeRange(spline);
        });
}

void VrexObjectEncoder3D::visitSpinSurface3D(VrexSpinSurface3D& surface) {
    if (!areSet(surface, surface.getAxisLine(), surface.getProfileCurve())) {
        return setDone(false);
    }
    encodeGeometry(surface,
                   [&] { return pack(surface.getAxisLine()->getID(), surface.getProfileCurve()->getID()); });
}

void VrexObjectEncoder3D::visitSweepSurface3D(VrexSweepSurface3D& surface) {
    if (!areSet(surface, surface.getProfileCurve(), surface.getTrajectoryLine())) {
        return setDone(false);
    }
    encodeGeometry(
        surface,
        [&] { return pack(surface.getProfileCurve()->getID(), surface.getTrajectoryLine()->getID()); },
        [&] {
            return stream().writeOptionalF64(surface.startV()) && stream().writeOptionalF64(surface.endV());
        });
}

void VrexObjectEncoder3D::visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) {
    encodeGeometry(
        curve,
        [&] {
            const VrexTransformation3DT<double> frame(curve.getOrigin(), curve.getRotation());
            // Kept: the angle stands before the axis here.
            return pack(frame.getTranslation(), frame.getAngle(), frame.getAxis());
        },
        [&] {
            return stream().writeString(curve.getX()) && stream().writeString(curve.getY()) &&
                   stream().writeString(curve.getZ()) && stream().writeDescriptorList(curve.descriptors()) &&
                   writeRange(curve);
        });
}

void VrexObjectEncoder3D::visitPattern3D(VrexPattern3D& pattern) {
    if (!areSet(pattern, pattern.getAxisLine())) {
        return setDone(false);
    }
    encodeGeometry(pattern, [&] {
        return pack(number(pattern.getPatternType()), pattern.getAxisLine()->getID(), pattern.getValue());
    });
}

void VrexObjectEncoder3D::visitArrayPattern3D(VrexArrayPattern3D& pattern) {
    encodeGeometry(
        pattern, [] { return pack(); }, [&] { return stream().writeIdList(pattern.getPatterns()); });
}

void VrexObjectEncoder3D::visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) {
    encodeGeometry(element, [&] { return pack(element.getValue()); });
}
