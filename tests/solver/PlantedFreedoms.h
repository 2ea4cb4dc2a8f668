#pragma once

#include <vector>

#include "data/constraint/3d/VrexBallMate3D.h"
#include "solver/PlantedRedundancies.h"
#include "solver/PlantedSystem.h"

/// Systems with a solution whose freedom is not what counting the constraints tells, and such that start on
/// the wrong side.
namespace nsPlantedFreedoms {

inline const PlantedCase CASES[] = {
    {"three bars of one length side by side",
     [](PlantedSystem& s) {
         const auto floor = s.fixed(s.plane({0, 0, 0}, {0, 0, 1}));
         const auto table = s.body();
         std::vector<PlantedSystem::Constraint> members;
         for (const double x : {0.0, 1.0, 3.0}) {
             const auto foot = s.fixed(s.point(x, 0.2 * x * x, 0));
             const auto head = s.point(x + 0.6, 0.2 * x * x + 0.8, 0);
             table->geometries().push_back(head);
             s.lay(head, floor);
             members.push_back(s.bar(foot, head));
         }
         s.expectGroup(members);
         s.freedom = 1;
     }},
    {"a rod between two ball joints spins",
     [](PlantedSystem& s) {
         const auto base = s.ground();
         const auto rod = s.body();
         const auto ball = [&](const PlantedSystem::Vector& place) {
             return s.bind(VrexBallMate3D::create(s.connector(base, place), s.connector(rod, place), {}));
         };
         s.expectGroup({ball({0, 0, 0}), ball({1, 2, 2})});
         s.freedom = 1;
     }},
    {"three planes through one line",
     [](PlantedSystem& s) {
         const auto p = s.point(0, 0, 0.7);
         std::vector<PlantedSystem::Constraint> members;
         for (const double x : {0.0, 0.5, 1.5}) {
             members.push_back(s.lay(p, s.fixed(s.plane({0, 0, 0}, {1.0, x, 0.0}))));
         }
         s.expectGroup(members);
         s.freedom = 1;
     }},
    {"gears in a ring that is locked",
     [](PlantedSystem& s) {
         nsPlantedRedundancies::gears(s, 5.0);
         s.freedom = 0;
     }},
    {"planes that are held parallel twice, once by their distance",
     [](PlantedSystem& s) {
         const auto a = s.plane({0, 0, 0}, {0, 0, 1});
         const auto b = s.plane({0, 0, 1}, {0, 0.1, 1});
         s.parallel(a, b);
         s.distance(a, b, 1.5);
         s.freedom = 6 - 3;
     }},
    {"a point on the wrong side of a plane",
     [](PlantedSystem& s) {
         const auto p = s.point(0.2, 0.3, -0.5);
         const auto table = s.fixed(s.plane({0, 0, 0}, {0, 0, 1}));
         s.distance(p, table, 1.0, VrexConstraintOrientation::Positive);
         s.freedom = 2;
     }},
    {"a line that points the wrong way",
     [](PlantedSystem& s) {
         const auto a = s.fixed(s.line({0, 0, 0}, {1, 2, 2}));
         const auto b = s.line({1, 0, 3}, {-1, -2, -2.1});
         s.parallel(a, b, VrexConstraintAlignment::Positive);
         s.freedom = 4 - 2;
     }},
    {"points that start on each other",
     [](PlantedSystem& s) {
         const auto a = s.point(1, 2, 3);
         const auto b = s.point(1, 2, 3);
         s.distance(a, b, 2.0);
         s.freedom = 5;
     }},
};

} // namespace nsPlantedFreedoms
