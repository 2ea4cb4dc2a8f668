// How the geometries are read.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/serialization/3d/VrexObject3DDeserializer.h"
#include "support/DocumentTexts.h"
#include "support/LogCapture.h"
#include "support/SamplesRelations.h"

using nsDocumentTexts::Coordinates;
using nsDocumentTexts::coordinatesOf;
using nsDocumentTexts::geometryOf;
using nsDocumentTexts::joined;
using nsDocumentTexts::LINE;
using nsDocumentTexts::OUT_OF_RANGE;
using nsDocumentTexts::POINT;
using nsDocumentTexts::read;
using nsDocumentTexts::refusal;

namespace {

/// How the document of one object, behind four points and a line, is refused.
std::string refusalOfObject(const std::string& object) {
    return refusal({.objects = joined({POINT, POINT, POINT, POINT, LINE, object})});
}

TEST(VrexObject3DDeserializer, AShortDirectionIsADirectionDownToAHundredEpsilons) {
    const auto json = LumoJson::parse(R"({"longer": [3e-14, 0, 0], "shorter": [2e-14, 0, 0]})");
    using Reader = VrexObject3DDeserializer;
    EXPECT_EQ(coordinatesOf(Reader::getNormalizedVector3D(json, "longer")), (Coordinates{1, 0, 0}));
    EXPECT_EQ(coordinatesOf(Reader::getNormalizedVector3D(json, "shorter")), (Coordinates{0, 0, 0}));
}

TEST(VrexObject3DDeserializer, LineAndPlaneTakeVectorsOfAnyLength) {
    const auto system =
        read({.objects = joined({R"({"type": "Line3D", "loc": [1, 2, 3], "dir": [0, 0, 2]})",
                                 R"({"type": "Plane3D", "loc": [1, 2, 3], "norm": [0, 0, -2]})"})});
    const auto& line = geometryOf<VrexLine3D>(system, 0);
    EXPECT_EQ(coordinatesOf(line.getOrigin()), (Coordinates{1, 2, 3}));
    EXPECT_EQ(coordinatesOf(line.getDirection()), (Coordinates{0, 0, 1}));
    const auto& plane = geometryOf<VrexPlane3D>(system, 1);
    EXPECT_EQ(coordinatesOf(plane.getOrigin()), (Coordinates{1, 2, 3}));
    EXPECT_NEAR(plane.getNormal().z(), -1.0, 1e-15); // Through the angle pi.
}

TEST(VrexObject3DDeserializer, AnEllipseStandsAtARightAngle) {
    EXPECT_EQ(
        refusalOfObject(
            R"({"type": "Ellipse3D", "cen": [0,0,0], "norm": [0,0,1], "dir": [0,0,1], "maj": 2, "min": 1})"),
        "Invalid data: Ellipse normal and direction are not perpendicular.");
    EXPECT_EQ(
        refusalOfObject(
            R"({"type": "Ellipse3D", "cen": [0,0,0], "norm": [0,0,5], "dir": [0,3,0], "maj": 2, "min": 1})"),
        "");
}

TEST(VrexObject3DDeserializer, ARigidSetIsTurnedByDirectionOrByAngle) {
    const auto set = [](const std::string& members) {
        return R"({"type": "RigidSet3D", "cen": [1, 2, 3], "arguments": [])" + members + "}";
    };
    const std::string incorrect = "Invalid data: RigidSet rotation incorrect.";
    EXPECT_EQ(refusalOfObject(set(R"(, "norm": [0,0,1], "dir": [0,0,1])")), incorrect);
    EXPECT_EQ(refusalOfObject(set(R"(, "norm": [0,0,0], "rot": 1)")), incorrect);
    EXPECT_EQ(refusalOfObject(set(R"(, "norm": [0,0,1])")), "The value at key rot is not a number.");
    const auto system =
        read({.objects = joined({set(R"(, "norm": [0,0,3], "rot": 3.141592653589793)"),
                                 set(R"(, "norm": [0,0,3], "dir": [-1,0,0], "rot": "no")")})});
    for (std::size_t i = 0; i < 2; ++i) {
        const auto direction = geometryOf<VrexRigidSet3D>(system, i).getDirection();
        EXPECT_NEAR(direction.x(), -1.0, 1e-15); // A half turn, up to the rounding of pi.
        EXPECT_NEAR(direction.y(), 0.0, 1e-15);
    }
}

TEST(VrexObject3DDeserializer, EvaluatedShapesAreTurnedAboutAnAxis) {
    const auto curve = [](const std::string& turn) {
        return R"({"type": "EvaluatedCurve3D", "cen": [0,0,0], "x": "t", "y": "0", "z": "0", )" + turn + "}";
    };
    EXPECT_EQ(refusalOfObject(curve(R"("rot": 1, "axis": [0,0,0])")), "Invalid data: rotation incorrect.");
    EXPECT_EQ(refusalOfObject(curve(R"("rot": 0, "axis": [0,0,0])")), "");
    const auto system = read({.objects = curve(R"("rot": 1.5707963267948966, "axis": [0,2,0])")});
    EXPECT_NEAR(geometryOf<VrexEvaluatedCurve3D>(system, 0).getDirection().x(), 1.0, 1e-15);
}

TEST(VrexObject3DDeserializer, DescriptorsStandBeforeTheExpressionsThatNameThem) {
    const LogCapture log;
    const auto system = read({.objects = POINT + R"(, {"type": "EvaluatedSurface3D", "cen": [0,0,0], "rot": 0,
                                  "axis": [0,0,1], "x": "u + q", "y": "v", "z": "r * q", "descriptors": [
                                  {"name": "q", "index": 0, "type": "Geometry", "object": 0},
                                  {"name": "r", "index": 0, "type": "Variable", "variableIndex": 0}]})",
                              .variables = R"({"val": 2.5})"});
    EXPECT_TRUE(log.lines().empty());
    const auto& surface = geometryOf<VrexEvaluatedSurface3D>(system, 1);
    ASSERT_EQ(surface.descriptors().size(), 2U);
    EXPECT_EQ(surface.descriptors()[0].object(), system.geometries()[0]);
    EXPECT_EQ(surface.descriptors()[1].object(), system.variables()[0]);
}

TEST(VrexObject3DDeserializer, ExpressionsThatAreRefusedAreKeptAsText) {
    const auto system = read({.objects = R"({"type": "EvaluatedCurve3D", "cen": [0,0,0], "rot": 0,
                                  "axis": [0,0,1], "x": "2 $ 3", "y": "nowhere", "z": ""})",
                              .equations = R"({"type": "ExpressionEquation", "expression": "2 $ 3",
                                               "descriptors": []})"});
    const auto& curve = geometryOf<VrexEvaluatedCurve3D>(system, 0);
    EXPECT_EQ(curve.getX(), "2 $ 3");
    EXPECT_EQ(curve.getY(), "nowhere");
    EXPECT_EQ(curve.getZ(), "");
    EXPECT_EQ(dynamic_cast<const VrexExpressionEquation&>(*system.equations()[0]).expression(), "2 $ 3");
}

std::string spline(const std::string& members) {
    return R"({"type": "Spline3D", "degree": 1, "periodic": false, "knots": [0, 1, 2], )" + members + "}";
}

TEST(VrexObject3DDeserializer, ASplineHasAWeightForEachPoint) {
    const std::string missing = "Invalid data: spline control points are missing.";
    const std::string unequal = "Invalid data: spline points.";
    EXPECT_EQ(refusalOfObject(spline(R"("points": [0, 1, 2, 3], "weights": [1, 2, 3, 4])")), "");
    EXPECT_EQ(refusalOfObject(spline(R"("points": [0, 1, 2, 3], "weights": [1, 2, 3])")), unequal);
    EXPECT_EQ(refusalOfObject(spline(R"("points": [0], "weights": [1, 2])")), unequal);
    EXPECT_EQ(refusalOfObject(spline(R"("points": [0, 1])")), missing);
    EXPECT_EQ(refusalOfObject(spline(R"("weights": [1])")), missing);
    EXPECT_EQ(refusalOfObject(spline(R"("id": 1)")), missing);
    EXPECT_EQ(refusalOfObject(spline(R"("arguments": [0], "weights": [1])")), missing);
    EXPECT_EQ(refusalOfObject(spline(R"("points": [], "weights": [])")), "");
}

TEST(VrexObject3DDeserializer, WhatASplineWasFittedThroughFitsTogether) {
    const std::string points = R"("points": [0, 1], "weights": [1, 1], )";
    const auto refused = [&](const std::string& members) {
        return refusalOfObject(spline(points + members));
    };
    EXPECT_EQ(refused(R"("interpolatedPoints": [2, 3], "interpolatedParameters": [0, 1])"), "");
    EXPECT_EQ(refused(R"("interpolatedPoints": [2, 3])"), "");
    EXPECT_EQ(refused(R"("interpolatedParameters": [0, 1, 2])"), "");
    const std::string unequal = "Invalid data: spline points.";
    EXPECT_EQ(refused(R"("interpolatedPoints": [2, 3], "interpolatedParameters": [0])"), unequal);
    EXPECT_EQ(refused(R"("interpolatedPoints": [2, 3], "interpolatedParameters": [0, 1, 2])"), unequal);
    EXPECT_EQ(refused(R"("interpolatedPoints": [4])"), "Failed to replay: geometry was not created!");
    EXPECT_EQ(refused(R"("interpolatedPoints": [6])"), OUT_OF_RANGE);
    const auto periodic = [](const std::string& parameters) {
        return refusalOfObject(R"({"type": "Spline3D", "degree": 1, "periodic": true, "knots": [],
            "points": [0, 1], "weights": [1, 1], "interpolatedPoints": [2, 3],
            "interpolatedParameters": )" +
                               parameters + "}");
    };
    EXPECT_EQ(periodic("[0, 1]"), "");
    EXPECT_EQ(periodic("[0, 1, 2]"), "");
    EXPECT_EQ(periodic("[0, 1, 2, 3]"), unequal);
    EXPECT_EQ(periodic("[0]"), unequal);
}

/// A surface of `points` and the lengths of its rows; the knots are made for 2 by 3 points.
std::string surface(const std::string& points, const std::string& weights,
                    const std::string& degrees = R"("uDegree": 1, "vDegree": 2)") {
    return R"({"type": "NurbsSurface3D", "uKnots": [0, 0, 1, 1], "vKnots": [0, 0, 0, 1, 1, 1], )" + degrees +
           R"(, "controlPoints": )" + points + R"(, "weights": )" + weights + "}";
}

std::vector<std::size_t> rowsOf(const std::string& object) {
    const auto system = read({.objects = joined({POINT, object})});
    std::vector<std::size_t> lengths;
    for (const auto& row : geometryOf<VrexNURBSSurface3D>(system, 1).controlPoints()) {
        lengths.push_back(row.size());
    }
    return lengths;
}

TEST(VrexObject3DDeserializer, TheRowsOfANetFollowFromTheKnots) {
    using Lengths = std::vector<std::size_t>;
    EXPECT_EQ(rowsOf(surface("[0,0,0,0,0,0]", "[1,1,1,1,1,1]")), (Lengths{3, 3}));
    EXPECT_EQ(rowsOf(surface("[0,0,0]", "[1,1,1]")), (Lengths{3}));        // whole rows of V
    EXPECT_EQ(rowsOf(surface("[0,0,0,0]", "[1,1,1,1]")), (Lengths{2, 2})); // the rows of U
    EXPECT_EQ(rowsOf(surface("[]", "[]")), (Lengths{}));
    const auto degrees = [](const std::string& u, const std::string& v) {
        return R"("uDegree": )" + u + R"(, "vDegree": )" + v;
    };
    // Knots that are made for no points leave the other way.
    EXPECT_EQ(rowsOf(surface("[0,0,0,0]", "[1,1,1,1]", degrees("1", "5"))), (Lengths{2, 2}));
    EXPECT_EQ(rowsOf(surface("[0,0,0]", "[1,1,1]", degrees("2147483647", "2"))), (Lengths{3}));
    EXPECT_EQ(rowsOf(surface("[0,0,0,0]", "[1,1,1,1]", degrees("1", "-2147483648"))), (Lengths{2, 2}));
    const std::string points = "Invalid data: NURBS surface points.";
    EXPECT_EQ(refusalOfObject(surface("[0,0,0,0,0]", "[1,1,1,1,1]")), points);
    EXPECT_EQ(refusalOfObject(surface("[0]", "[1]", degrees("9", "9"))), points);
    EXPECT_EQ(refusalOfObject(surface("[0]", "[1]", degrees("3", "5"))), points);
    EXPECT_EQ(refusalOfObject(surface("[0,0,0]", "[1,1]")), points);
    EXPECT_EQ(refusalOfObject(surface("[0]", "[1]", degrees("1e10", "1"))),
              "The value at key uDegree is not an integer.");
}

TEST(VrexObject3DDeserializer, ANetHasPointsAndWeights) {
    const std::string missing = "Invalid data: NURBS surface control points are missing.";
    const std::string head = R"({"type": "NurbsSurface3D", "uDegree": 1, "vDegree": 1, "uKnots": [],
                                 "vKnots": [])";
    EXPECT_EQ(refusalOfObject(head + "}"), missing);
    EXPECT_EQ(refusalOfObject(head + R"(, "weights": [1]})"), missing);
    EXPECT_EQ(refusalOfObject(head + R"(, "controlPoints": [0]})"), missing);
}

TEST(VrexObject3DDeserializer, ParametersOfANetAreThoseOfAllItsPoints) {
    const auto system = read({.objects = joined({POINT, surface("[0,0,0,0,0,0]", "[1,2,3,4,5,6]")}),
                              .equations = R"({"type": "ExpressionEquation", "expression": "a",
                                  "descriptors": [{"type": "Geometry", "object": 1, "index": 17}]})"});
    // The name tells that there is more than one, and a value that is set stays.
    auto descriptor = system.equations()[0]->descriptors()[0];
    descriptor.setValue(5.0);
    EXPECT_EQ(descriptor.getValue(), 5.0);
    EXPECT_EQ(geometryOf<VrexNURBSSurface3D>(system, 1).controlPoints()[1][0].weight, 4.0);
}

TEST(VrexObject3DDeserializer, AnArrayOfPatternsFindsTheCircularOne) {
    const std::string linear = R"({"type": "Pattern3D", "axis": 0, "patternType": "Linear3D", "value": 3})";
    const std::string circular =
        R"({"type": "Pattern3D", "axis": 0, "patternType": "Circular3D", "value": 3})";
    const auto system =
        read({.objects = joined({LINE, linear, circular, R"({"type": "ArrayPattern3D", "arguments": [1, 2]})",
                                 R"({"type": "ArrayPattern3D", "arguments": [1]})"})});
    EXPECT_EQ(geometryOf<VrexArrayPattern3D>(system, 3).getCircularPatternIdx(), 1);
    EXPECT_EQ(geometryOf<VrexArrayPattern3D>(system, 4).getCircularPatternIdx(), -1);
}

TEST(VrexObject3DDeserializer, RangesAreReadWhereAKindTakesThem) {
    const std::string range = R"(, "startParameter": 0.5, "startParameterU": 1.5, "endParameterV": 2.5)";
    const auto system = read(
        {.objects = joined({
             POINT,
             R"({"type": "Cylinder3D", "loc": [0,0,0], "dir": [0,0,1], "rad": 1)" + range + "}",
             R"({"type": "Torus3D", "cen": [0,0,0], "norm": [0,0,1], "maj": 2, "min": 1)" + range + "}",
             R"({"type": "Spline3D", "degree": 1, "periodic": false, "knots": [], "points": [0], "weights": [1])" +
                 range + "}",
         })});
    const auto& cylinder = geometryOf<VrexCylinder3D>(system, 1);
    EXPECT_EQ(cylinder.startU(), 1.5);
    EXPECT_EQ(cylinder.endU(), std::nullopt);
    EXPECT_EQ(cylinder.startV(), std::nullopt);
    EXPECT_EQ(cylinder.endV(), 2.5);
    const auto& torus = geometryOf<VrexTorus3D>(system, 2);
    EXPECT_FALSE(torus.startU() || torus.endU() || torus.startV() || torus.endV());
    const auto& curve = geometryOf<VrexSpline3D>(system, 3);
    EXPECT_EQ(curve.start(), 0.5);
    EXPECT_EQ(curve.end(), std::nullopt);
}

TEST(VrexObject3DDeserializer, SignsOfRadiiMayBeLeftOpen) {
    const auto system =
        read({.objects = joined({
                  R"({"type": "Sphere3D", "cen": [0,0,0], "rad": 1})",
                  R"({"type": "Sphere3D", "cen": [0,0,0], "rad": 1, "allowRadiusSignChange": false})",
                  R"({"type": "Sphere3D", "cen": [0,0,0], "rad": 1, "allowRadiusSignChange": true})",
              })});
    EXPECT_EQ(geometryOf<VrexSphere3D>(system, 0).getAllowRadiusSignChange(), std::nullopt);
    EXPECT_EQ(geometryOf<VrexSphere3D>(system, 1).getAllowRadiusSignChange(), false);
    EXPECT_EQ(geometryOf<VrexSphere3D>(system, 2).getAllowRadiusSignChange(), true);
}

} // namespace
