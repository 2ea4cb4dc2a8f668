#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/PlantedSystem.h"

/// Systems that have a solution, where constraints say what others say already.
namespace nsPlantedRedundancies {

/// Pairs of points whose distance is given twice.
inline void plantPairs(PlantedSystem& s, int count) {
    for (int i = 0; i < count; ++i) {
        const auto a = s.point(i, 0.3, 0.0);
        const auto b = s.point(i, 1.5, 0.4 * i);
        const auto joined = s.bar(a, b);
        s.expectGroup({joined, s.bar(a, b)});
        s.freedom += 5;
    }
}

inline void plantRingOfSpheres(PlantedSystem& s) {
    const auto a = s.sphere({0, 0, 0}, 1.0);
    const auto b = s.sphere({3, 0, 1}, 1.2);
    const auto c = s.sphere({0, 4, 2}, 1.1);
    s.expectGroup({s.equalRadii(a, b), s.equalRadii(b, c), s.equalRadii(c, a)});
    s.freedom = 12 - 2;
}

/// Wheels on the ground whose turns hang together in a ring; `ratio` between the first and the last.
inline std::vector<PlantedSystem::Constraint> gears(PlantedSystem& s, double ratio) {
    const auto base = s.ground();
    std::vector<std::shared_ptr<VrexMate3D>> hinges;
    for (const double x : {0.0, 2.0, 5.0}) {
        hinges.push_back(s.hinge(base, s.body(), {x, 0.0, 0.0}));
    }
    const auto relate = [&](std::size_t first, std::size_t second, double value) {
        return s.bind(VrexMateRelation3D::create({hinges[first], hinges[second]}, {0, 0}, value));
    };
    return {relate(0, 1, 2.0), relate(1, 2, 3.0), relate(0, 2, ratio)};
}

/// Bodies in a ring, joined by hinges about Z at these corners; the first is the ground.
inline std::vector<PlantedSystem::Constraint> ring(PlantedSystem& s, const PlantedSystem::Body& base,
                                                   const std::vector<PlantedSystem::Vector>& corners) {
    std::vector<PlantedSystem::Constraint> hinges;
    auto last = base;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto next = i + 1 < corners.size() ? s.body() : base;
        hinges.push_back(s.hinge(last, next, corners[i]));
        last = next;
    }
    return hinges;
}

inline const PlantedCase CASES[] = {
    {"a distance given twice", [](PlantedSystem& s) { plantPairs(s, 1); }},
    {"two distances given twice", [](PlantedSystem& s) { plantPairs(s, 2); }},
    {"three distances given twice", [](PlantedSystem& s) { plantPairs(s, 3); }},
    {"four distances given twice", [](PlantedSystem& s) { plantPairs(s, 4); }},
    {"two distances given twice between three points",
     [](PlantedSystem& s) {
         const auto a = s.point(0, 0, 0);
         const auto b = s.point(1, 2, 0);
         const auto c = s.point(3, 1, 1);
         const auto ab = s.bar(a, b);
         const auto bc = s.bar(b, c);
         s.bar(c, a);
         s.expectGroup({ab, s.bar(b, a)});
         s.expectGroup({bc, s.bar(c, b)});
         s.freedom = 6;
     }},
    {"all distances between five points",
     [](PlantedSystem& s) {
         const PlantedSystem::Point points[] = {s.point(0, 0, 0), s.point(2, 0.1, 0.3), s.point(0.2, 3, 0.1),
                                                s.point(0.4, 0.5, 2.5), s.point(2, 2.1, 1.7)};
         for (int i = 0; i < 5; ++i) {
             for (int j = 0; j < i; ++j) {
                 s.bar(points[i], points[j]);
             }
         }
         s.expectAll();
         s.freedom = 6;
     }},
    {"parallel all round",
     [](PlantedSystem& s) {
         const auto a = s.line({0, 0, 0}, {1, 2, 2});
         const auto b = s.line({1, 0, 3}, {1, 2, 2});
         const auto c = s.line({4, 1, 0}, {1, 2, 2});
         s.expectGroup({s.parallel(a, b), s.parallel(b, c), s.parallel(c, a)});
         s.freedom = 12 - 4;
     }},
    {"at a right angle to both of two that are parallel",
     [](PlantedSystem& s) {
         const auto a = s.line({0, 0, 0}, {0, 0, 1});
         const auto b = s.line({1, 0, 3}, {0, 0, 1});
         const auto c = s.line({4, 1, 0}, {1, 2, 0});
         s.expectGroup({s.parallel(a, b), s.perpendicular(a, c), s.perpendicular(b, c)});
         s.freedom = 12 - 3;
     }},
    {"equal radii all round", plantRingOfSpheres},
    {"radii that are given and equal",
     [](PlantedSystem& s) {
         const auto a = s.sphere({0, 0, 0}, 1.5);
         const auto b = s.sphere({3, 0, 1}, 1.5);
         s.expectGroup({s.radius(a, 1.5), s.radius(b, 1.5), s.equalRadii(a, b)});
         s.freedom = 8 - 2;
     }},
    {"a point laid on a line twice",
     [](PlantedSystem& s) {
         const auto a = s.point(1, 2, 2);
         const auto b = s.line({0, 0, 0}, {1, 2, 2});
         s.expectGroup({s.lay(a, b), s.lay(a, b)});
         s.freedom = 7 - 2;
     }},
    {"a point on two planes that are the same",
     [](PlantedSystem& s) {
         const auto a = s.plane({0, 0, 0}, {0.1, 0, 1});
         const auto b = s.plane({0, 0, 0}, {0.1, 0, 1});
         const auto p = s.point(0, 3, 0);
         s.expectGroup({s.lay(a, b), s.lay(p, a), s.lay(p, b)});
         s.freedom = 9 - 4;
     }},
    {"circles with one centre all round",
     [](PlantedSystem& s) {
         const auto circle = [&s](double radius) {
             return s.add(VrexCircle3D::create({1, 2, 3}, {0, 0.6, 0.8}, radius));
         };
         const auto a = circle(1);
         const auto b = circle(2);
         const auto c = circle(3);
         const auto center = [&s](const auto& first, const auto& second) {
             return s.bind(VrexConcentricity3D::create(first, second));
         };
         s.expectGroup({center(a, b), center(b, c), center(c, a)});
         s.freedom = 18 - 8;
     }},
    {"a middle at equal distances",
     [](PlantedSystem& s) {
         const auto a = s.point(0, 0, 0);
         const auto b = s.point(4, 0, 2);
         const auto m = s.point(2, 0, 1);
         s.expectGroup({s.middle(a, b, m), s.bar(a, m), s.bar(m, b)});
         s.freedom = 9 - 4;
     }},
    {"images at equal heights",
     [](PlantedSystem& s) {
         const auto a = s.point(1, 2, 3);
         const auto b = s.point(1, 2, -3);
         const auto mirror = s.plane({0, 0, 0}, {0, 0, 1});
         s.expectGroup({s.bind(VrexSymmetry3D::create(a, b, mirror)), s.distance(a, mirror, 3.0),
                        s.distance(b, mirror, 3.0)});
         s.freedom = 9 - 4;
     }},
    {"a sphere that touches, its radius and its height",
     [](PlantedSystem& s) {
         const auto ball = s.sphere({1, 2, 1.5}, 1.5);
         const auto center = s.point(1, 2, 1.5);
         const auto table = s.plane({0, 0, 0}, {0, 0, 1});
         const auto touching = s.bind(VrexTangency3D::create(ball, table, VrexGeometryComponentType::UNKNOWN,
                                                             VrexGeometryComponentType::UNKNOWN));
         const auto same = s.bind(VrexConcentricity3D::create(ball, center));
         s.expectGroup({touching, same, s.radius(ball, 1.5), s.distance(center, table, 1.5)});
         s.freedom = 10 - 5;
     }},
    {"sums of numbers that are given",
     [](PlantedSystem& s) {
         const auto a = s.variable(1.0);
         const auto b = s.variable(2.0);
         s.expectGroup({s.equation({{a, 0, "a"}}, "a - 1"), s.equation({{b, 0, "b"}}, "b - 2"),
                        s.equation({{a, 0, "a"}, {b, 0, "b"}}, "a + b - 3")});
         s.freedom = 0;
     }},
    {"gears in a ring that turns",
     [](PlantedSystem& s) {
         s.expectGroup(gears(s, 6.0));
         s.freedom = 1;
     }},
    {"two bodies fastened twice",
     [](PlantedSystem& s) {
         const auto a = s.body();
         const auto b = s.body();
         s.expectGroup({s.fastened(a, b, {1, 0, 0}), s.fastened(a, b, {0, 2, 1})});
         s.freedom = 6;
     }},
    {"two hinges about one axis",
     [](PlantedSystem& s) {
         const auto a = s.ground();
         const auto b = s.body();
         s.expectGroup({s.hinge(a, b, {1, 1, 0}), s.hinge(a, b, {1, 1, 5})});
         s.freedom = 1;
     }},
    {"two guides that are parallel",
     [](PlantedSystem& s) {
         const auto a = s.ground();
         const auto b = s.body();
         const auto guide = [&](const PlantedSystem::Vector& place) {
             return s.bind(VrexSliderMate3D::create(s.connector(a, place), s.connector(b, place), {}));
         };
         s.expectGroup({guide({0, 0, 0}), guide({2, 1, 0})});
         s.freedom = 1;
     }},
    {"a flat ring of four hinges",
     [](PlantedSystem& s) {
         s.expectGroup(ring(s, s.ground(), {{0, 0, 0}, {1, 2, 0}, {4, 3, 0}, {5, 0, 0}}));
         s.freedom = 1;
     }},
    {"two flat rings on one ground",
     [](PlantedSystem& s) {
         const auto base = s.ground();
         s.expectGroup(ring(s, base, {{0, 0, 0}, {1, 2, 0}, {4, 3, 0}, {5, 0, 0}}));
         s.expectGroup(ring(s, base, {{9, 0, 1}, {9, 3, 1}, {12, 4, 1}, {13, 2, 1}, {12, 0, 1}}));
         s.freedom = 1 + 2;
     }},
};

} // namespace nsPlantedRedundancies
