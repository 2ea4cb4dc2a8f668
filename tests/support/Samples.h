#pragma once

#include <memory>

#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
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
#include "data/geometry/VrexGeometryVariable.h"

/// A valid object of each concrete class, with no field left at its default. A class without a maker fails to
/// link.
template <class Object>
std::shared_ptr<Object> makeSample();

template <>
inline std::shared_ptr<VrexGeometryVariable> makeSample() {
    return VrexGeometryVariable::create(2.5);
}

template <>
inline std::shared_ptr<VrexPoint3D> makeSample() {
    return VrexPoint3D::create(1.0, -2.0, 3.5);
}

template <>
inline std::shared_ptr<VrexLine3D> makeSample() {
    return VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 3.0, 4.0});
}

template <>
inline std::shared_ptr<VrexPlane3D> makeSample() {
    return VrexPlane3D::create({4.0, 5.0, 6.0}, {1.0, 2.0, -2.0});
}

template <>
inline std::shared_ptr<VrexSphere3D> makeSample() {
    auto sphere = VrexSphere3D::create({7.0, 8.0, 9.0}, 0.75);
    sphere->setAllowRadiusSignChange(true);
    return sphere;
}

template <>
inline std::shared_ptr<VrexRigidSet3D> makeSample() {
    auto set = VrexRigidSet3D::create({makeSample<VrexPoint3D>(), makeSample<VrexLine3D>()});
    set->setTransformation({{1.0, -1.0, 2.0}, 0.5, {1.0, 2.0, 2.0}});
    return set;
}

template <>
inline std::shared_ptr<VrexConnector3D> makeSample() {
    auto connector = VrexConnector3D::create(makeSample<VrexRigidSet3D>());
    connector->setTransformation({{3.0, 2.0, -1.0}, 1.25, {0.0, 3.0, 4.0}});
    return connector;
}

template <>
inline std::shared_ptr<VrexPattern3D> makeSample() {
    return VrexPattern3D::create(VrexPattern3DType::Circular3D, makeSample<VrexLine3D>(), 0.25);
}

template <>
inline std::shared_ptr<VrexArrayPattern3D> makeSample() {
    return VrexArrayPattern3D::create(
        {VrexPattern3D::create(VrexPattern3DType::Linear3D, makeSample<VrexLine3D>(), 3.0),
         makeSample<VrexPattern3D>()});
}

template <>
inline std::shared_ptr<VrexEqualDimensionElement3D> makeSample() {
    return VrexEqualDimensionElement3D::create(1.5);
}

template <>
inline std::shared_ptr<VrexCircle3D> makeSample() {
    auto circle = VrexCircle3D::create({1.0, -2.0, 3.0}, {2.0, -1.0, 2.0}, 1.5);
    circle->setAllowRadiusSignChange(true);
    circle->start() = 0.25;
    circle->end() = 1.5;
    return circle;
}

template <>
inline std::shared_ptr<VrexEllipse3D> makeSample() {
    auto ellipse = VrexEllipse3D::create({-1.0, 2.0, 0.5}, {0.0, 3.0, 4.0}, {5.0, 0.0, 0.0}, 4.0, 2.5);
    ellipse->setAllowRadiusSignChange(false);
    ellipse->start() = -0.5;
    ellipse->end() = 2.0;
    return ellipse;
}

/// Trims all four ends.
inline void trim(VrexParametricSurface3D& surface) {
    surface.startU() = 0.125;
    surface.endU() = 3.0;
    surface.startV() = -2.0;
    surface.endV() = 7.0;
}

template <>
inline std::shared_ptr<VrexCylinder3D> makeSample() {
    auto cylinder = VrexCylinder3D::create({3.0, 1.0, -2.0}, {1.0, -2.0, 2.0}, 0.75);
    cylinder->setAllowRadiusSignChange(true);
    trim(*cylinder);
    return cylinder;
}

template <>
inline std::shared_ptr<VrexCone3D> makeSample() {
    auto cone = VrexCone3D::create({0.5, -1.0, 2.0}, {-2.0, 1.0, 2.0}, 0.625);
    trim(*cone);
    return cone;
}

template <>
inline std::shared_ptr<VrexTorus3D> makeSample() {
    auto torus = VrexTorus3D::create({1.5, 2.0, -1.0}, {2.0, 2.0, -1.0}, 3.0, 1.25);
    torus->setAllowRadiusSignChange(false);
    trim(*torus);
    return torus;
}

template <>
inline std::shared_ptr<VrexSpinSurface3D> makeSample() {
    auto surface = VrexSpinSurface3D::create(makeSample<VrexCircle3D>(), makeSample<VrexLine3D>());
    trim(*surface);
    return surface;
}

template <>
inline std::shared_ptr<VrexSweepSurface3D> makeSample() {
    auto surface = VrexSweepSurface3D::create(makeSample<VrexCircle3D>(), makeSample<VrexLine3D>(), {});
    trim(*surface);
    return surface;
}

template <>
inline std::shared_ptr<VrexEvaluatedCurve3D> makeSample() {
    auto curve = VrexEvaluatedCurve3D::create(
        {1.0, -2.0, 0.5}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.75, {1.0, 2.0, 2.0}, 1e-6),
        {{makeSample<VrexGeometryVariable>(), 0, "r"}, {makeSample<VrexCircle3D>(), 0, "pitch"}},
        "r * cos(t)", "r * sin(t)", "pitch * t");
    curve->start() = -1.0;
    curve->end() = 4.0;
    return curve;
}

template <>
inline std::shared_ptr<VrexEvaluatedSurface3D> makeSample() {
    auto surface = VrexEvaluatedSurface3D::create(
        {1.0, -2.0, 0.5}, VrexQuaternionT<double>::makeFromAngleAndAxis(0.75, {1.0, 2.0, 2.0}, 1e-6),
        {{makeSample<VrexGeometryVariable>(), 0, "r"}}, "r * cos(u) * cos(v)", "r * sin(u) * cos(v)",
        "2 * r * sin(v)");
    trim(*surface);
    return surface;
}

template <>
inline std::shared_ptr<VrexCallbackEquation> makeSample() {
    return VrexCallbackEquation::create({{makeSample<VrexGeometryVariable>(), 0, "d"}},
                                        VrexEquationConditionType::lessEqualZero,
                                        VrexLinearEquationCallback({2.0}, -1.0));
}

template <>
inline std::shared_ptr<VrexExpressionEquation> makeSample() {
    return VrexExpressionEquation::create({{makeSample<VrexGeometryVariable>(), 0, "d"}},
                                          VrexEquationConditionType::greaterThanZero, "2 * d - 1");
}

template <>
inline std::shared_ptr<VrexSpline3D> makeSample() {
    const auto point = [](double x, double y, double z) { return VrexPoint3D::create(x, y, z); };
    auto spline = VrexSpline3D::create({2,
                                        true,
                                        {0.0, 1.0, 2.0, 3.5, 4.5, 5.0, 6.0, 7.5, 8.5},
                                        {{point(1.0, 0.0, 0.5), 1.5},
                                         {point(0.0, 2.0, 0.0), 0.5},
                                         {point(-1.0, 0.25, 1.0), 2.0},
                                         {point(0.0, -2.0, -1.0), 1.25}}});
    spline->start() = 2.25;
    spline->end() = 5.75;
    spline->setInterpolatedPoints({point(3.0, 1.0, 2.0), point(4.0, -1.0, 5.0)});
    spline->setInterpolatedParameters({0.25, 0.75});
    return spline;
}

template <>
inline std::shared_ptr<VrexNURBSSurface3D> makeSample() {
    const auto row = [](double x) {
        return std::vector<VrexSpline3D::ControlPoint>{{VrexPoint3D::create(x, 0.0, 0.5 * x), 1.0 + x},
                                                       {VrexPoint3D::create(x, 1.0, -1.0), 0.5},
                                                       {VrexPoint3D::create(x + 0.25, 2.5, x * x), 2.0}};
    };
    auto surface = VrexNURBSSurface3D::create(
        {1, 2, {0.0, 0.0, 1.5, 3.0, 3.0}, {-1.0, -1.0, -1.0, 1.0, 1.0, 1.0}, {row(0.0), row(1.0), row(2.0)}});
    trim(*surface);
    return surface;
}
