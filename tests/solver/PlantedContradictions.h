#pragma once

#include <memory>
#include <vector>

#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "solver/PlantedRedundancies.h"
#include "solver/PlantedSystem.h"
#include "solver/PlantedTheorems.h"

/// Systems that have no solution. The freedom is what the system has without the last one of each group.
namespace nsPlantedContradictions {

inline void plantDistances(PlantedSystem& s, double place) {
    const auto a = s.point(place, 0, 0);
    const auto b = s.point(place, 1, 0.5);
    s.expectGroup({s.distance(a, b, 1.0), s.distance(a, b, 2.0)});
    s.freedom += 5;
    s.isSolvable = false;
}

inline const PlantedCase CASES[] = {
    {"two distances between two points", [](PlantedSystem& s) { plantDistances(s, 0.0); }},
    {"two contradictions",
     [](PlantedSystem& s) {
         plantDistances(s, 0.0);
         plantDistances(s, 5.0);
     }},
    {"a contradiction beside a redundancy",
     [](PlantedSystem& s) {
         plantDistances(s, 20.0);
         nsPlantedRedundancies::plantPairs(s, 1);
     }},
    {"a triangle with a side longer than the two others",
     [](PlantedSystem& s) {
         const auto a = s.point(0, 0, 0);
         const auto b = s.point(1, 0.1, 0);
         const auto c = s.point(2, 0, 0.3);
         s.expectGroup({s.distance(a, b, 1.0), s.distance(b, c, 1.0), s.distance(c, a, 3.0)});
         s.freedom = 9 - 2;
         s.isSolvable = false;
     }},
    {"a chain too short between two fixed points",
     [](PlantedSystem& s) {
         const auto a = s.fixed(s.point(0, 0, 0));
         const auto b = s.point(1, 0.1, 0);
         const auto c = s.point(2, 0, 0.3);
         const auto d = s.fixed(s.point(10, 0, 0));
         s.expectGroup({s.distance(a, b, 1.0), s.distance(b, c, 1.0), s.distance(c, d, 1.0)});
         s.freedom = 6 - 2;
         s.isSolvable = false;
     }},
    {"three angles that are no whole turn",
     [](PlantedSystem& s) {
         nsPlantedTheorems::plantAngles(s, 1.5);
         s.isSolvable = false;
     }},
    {"a right angle and sides that are not Pythagoras'",
     [](PlantedSystem& s) {
         nsPlantedTheorems::plantRightTriangle(s, 5.5);
         s.isSolvable = false;
     }},
    {"a point on two planes that are apart",
     [](PlantedSystem& s) {
         const auto p = s.point(0.2, 0.3, 0.5);
         const auto a = s.plane({0, 0, 0}, {0, 0, 1});
         const auto b = s.plane({0, 0, 1}, {0, 0, 1});
         s.expectGroup({s.lay(p, a), s.lay(p, b), s.distance(a, b, 1.0)});
         s.freedom = 9 - 2;
         s.isSolvable = false;
     }},
    {"two radii of one sphere",
     [](PlantedSystem& s) {
         const auto ball = s.sphere({0, 0, 0}, 1.0);
         s.expectGroup({s.radius(ball, 1.0), s.radius(ball, 1.5)});
         s.freedom = 3;
         s.isSolvable = false;
     }},
    {"equal radii that are given as different",
     [](PlantedSystem& s) {
         const auto a = s.sphere({0, 0, 0}, 1.0);
         const auto b = s.sphere({3, 0, 1}, 1.2);
         s.expectGroup({s.radius(a, 1.0), s.equalRadii(a, b), s.radius(b, 2.0)});
         s.freedom = 8 - 2;
         s.isSolvable = false;
     }},
    {"the same way, the same way, and opposite ways all round",
     [](PlantedSystem& s) {
         const auto a = s.line({0, 0, 0}, {1, 2, 2});
         const auto b = s.line({1, 0, 3}, {1.1, 2, 2});
         const auto c = s.line({4, 1, 0}, {1, 1.8, 2});
         s.expectGroup({s.parallel(a, b, VrexConstraintAlignment::Positive),
                        s.parallel(b, c, VrexConstraintAlignment::Positive),
                        s.parallel(c, a, VrexConstraintAlignment::Negative)});
         s.freedom = 12 - 4;
         s.isSolvable = false;
     }},
    {"on both sides of a plane",
     [](PlantedSystem& s) {
         const auto p = s.point(0.2, 0.3, 0.5);
         const auto table = s.plane({0, 0, 0}, {0, 0, 1});
         s.expectGroup({s.distance(p, table, 1.0, VrexConstraintOrientation::Positive),
                        s.distance(p, table, 1.0, VrexConstraintOrientation::Negative)});
         s.freedom = 6 - 1;
         s.isSolvable = false;
     }},
    {"two bodies fastened in two places",
     [](PlantedSystem& s) {
         const auto a = s.body();
         const auto b = s.body();
         s.expectGroup({s.fastened(a, b, {1, 0, 0}), s.fastened(a, b, {0, 2, 1}, {0, 0, 0.5})});
         s.freedom = 6;
         s.isSolvable = false;
     }},
    {"a hinge held at two angles",
     [](PlantedSystem& s) {
         const auto a = s.ground();
         const auto b = s.body();
         const auto hinge = [&](double height, double angle) {
             const auto result = s.hinge(a, b, {1, 1, height});
             result->getAngle().value = angle;
             result->getAngle().setFixed(true);
             return result;
         };
         s.expectGroup({hinge(0.0, 0.3), hinge(2.0, 0.5)});
         s.freedom = 0;
         s.isSolvable = false;
     }},
    {"sums of numbers that are others",
     [](PlantedSystem& s) {
         const auto a = s.variable(1.0);
         const auto b = s.variable(2.0);
         s.expectGroup({s.equation({{a, 0, "a"}}, "a - 1"), s.equation({{b, 0, "b"}}, "b - 2"),
                        s.equation({{a, 0, "a"}, {b, 0, "b"}}, "a + b - 4")});
         s.freedom = 0;
         s.isSolvable = false;
     }},
    {"three advances along one direction",
     [](PlantedSystem& s) {
         const auto a = s.point(0, 0, 0);
         const auto b = s.point(1, 2, 0);
         const auto c = s.point(2, 1, 1);
         const auto advance = [&](const auto& from, const auto& to, double value) {
             return s.bind(VrexDirectionDistance3D::create(from, to, {1, 1, 0}, value));
         };
         s.expectGroup({advance(a, b, 1.0), advance(b, c, 1.0), advance(a, c, 3.0)});
         s.freedom = 9 - 2;
         s.isSolvable = false;
     }},
    {"a distance between fixed points",
     [](PlantedSystem& s) {
         const auto a = s.fixed(s.point(0, 0, 0));
         const auto b = s.fixed(s.point(1, 0, 0));
         s.expectGroup({s.distance(a, b, 2.0)});
         s.isSolvable = false;
     }},
    {"a distance inside a rigid set",
     [](PlantedSystem& s) {
         const auto a = s.point(0, 0, 0);
         const auto b = s.point(1, 0, 0);
         s.body({a, b});
         s.expectGroup({s.distance(a, b, 2.0)});
         s.freedom = 6;
         s.isSolvable = false;
     }},
};

} // namespace nsPlantedContradictions
