#pragma once

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "solver/PlantedSystem.h"

/// Systems where one constraint follows from the others by a theorem, which no two of them show.
namespace nsPlantedTheorems {

using Point = PlantedSystem::Point;
using Vector = PlantedSystem::Vector;

/// Plane geometry seen from above: points at any height, upright planes as lines.
class FlatSketch {
public:
    explicit FlatSketch(PlantedSystem& system)
        : m_system(system), m_ground(system.fixed(system.plane({0, 0, 0}, {0, 0, 1}))) {}

    Point point(const Vector& place) {
        m_height = std::fmod(m_height + 0.37, 1.0); // no three in a row
        return m_system.point(place.x(), place.y(), m_height);
    }
    /// The line of the first two points, with all laid on it.
    void line(const std::vector<Point>& points) {
        const Vector along = points[1]->getPosition() - points[0]->getPosition();
        const auto wall = m_system.plane(points[0]->getPosition(), {-along.y(), along.x(), 0.0});
        m_system.perpendicular(wall, m_ground);
        for (const Point& point : points) {
            m_system.lay(point, wall);
        }
    }
    /// Where the lines a b and c d cross.
    Point crossing(const Point& a, const Point& b, const Point& c, const Point& d) {
        const Vector p = a->getPosition();
        const Vector u = b->getPosition() - p;
        const Vector q = c->getPosition();
        const Vector v = d->getPosition() - q;
        const Vector w = q - p;
        return point(p + u * ((w.x() * v.y() - w.y() * v.x()) / (u.x() * v.y() - u.y() * v.x())));
    }

private:
    PlantedSystem& m_system;
    PlantedSystem::Plane m_ground;
    double m_height = 0.0;
};

inline void plantDesargues(PlantedSystem& s) {
    FlatSketch sketch(s);
    const auto o = sketch.point({0, 0, 0});
    std::vector<Point> near;
    std::vector<Point> far;
    const std::pair<Vector, double> rays[] = {
        {{1.0, 0.2, 0.0}, 2.0}, {{0.3, 1.1, 0.0}, 3.0}, {{-0.9, 0.7, 0.0}, 1.5}};
    for (const auto& [ray, factor] : rays) {
        near.push_back(sketch.point(ray));
        far.push_back(sketch.point(ray * factor));
        sketch.line({o, near.back(), far.back()});
    }
    std::vector<Point> crossings;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        crossings.push_back(sketch.crossing(near[i], near[j], far[i], far[j]));
        sketch.line({near[i], near[j], crossings.back()});
        sketch.line({far[i], far[j], crossings.back()});
    }
    sketch.line(crossings);
    s.expectAll();
    s.freedom = 11 + 10; // of the figure, and the heights of its points
}

inline void plantPappus(PlantedSystem& s) {
    FlatSketch sketch(s);
    std::vector<Point> upper;
    std::vector<Point> lower;
    for (const double x : {0.0, 1.2, 3.0}) {
        upper.push_back(sketch.point({x, 2.0 + 0.3 * x, 0.0}));
        lower.push_back(sketch.point({0.8 * x + 0.2, -0.1 * x, 0.0}));
    }
    sketch.line(upper);
    sketch.line(lower);
    std::vector<Point> crossings;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        crossings.push_back(sketch.crossing(upper[i], lower[j], upper[j], lower[i]));
        sketch.line({upper[i], lower[j], crossings.back()});
        sketch.line({upper[j], lower[i], crossings.back()});
    }
    sketch.line(crossings);
    s.expectAll();
    s.freedom = 10 + 9;
}

inline void plantMedians(PlantedSystem& s) {
    FlatSketch sketch(s);
    const std::vector<Point> corners{sketch.point({0, 0, 0}), sketch.point({4, 1, 0}),
                                     sketch.point({1, 5, 0})};
    const auto middle = sketch.point({5.0 / 3.0, 2.0, 0.0});
    for (std::size_t i = 0; i < 3; ++i) {
        const auto side = s.middleOf(corners[(i + 1) % 3], corners[(i + 2) % 3]);
        sketch.line({corners[i], side, middle});
    }
    s.expectAll();
    s.freedom = 10; // nine of the corners, and the height of the point in the middle
}

/// Three lines seen along Z, the angle from each to the next; together two whole turns.
inline void plantAngles(PlantedSystem& s, double last) {
    const auto axis = s.fixed(s.line({0, 0, 0}, {0, 0, 1}));
    const auto line = [&s](double angle) {
        return s.line({angle, 1.0, 2.0}, {std::cos(angle), std::sin(angle), 0.2});
    };
    const auto a = line(0.0);
    const auto b = line(2.0);
    const auto c = line(4.3);
    s.expectGroup(
        {s.angleAbout(axis, a, b, 2.0), s.angleAbout(axis, b, c, 2.3), s.angleAbout(axis, c, a, last)});
    s.freedom = 12 - 2;
}

/// A triangle with a right angle and all three sides.
inline void plantRightTriangle(PlantedSystem& s, double longest) {
    const auto a = s.point(0, 0, 1);
    const auto b = s.point(3, 0, 1);
    const auto c = s.point(3, 4, 1);
    const auto first = s.through(b, a);
    const auto second = s.through(b, c);
    s.perpendicular(first, second);
    s.bar(a, b);
    s.bar(b, c);
    s.distance(a, c, longest);
    s.expectAll();
    s.freedom = 6;
}

inline const PlantedCase CASES[] = {
    {"Desargues", plantDesargues},
    {"Pappus", plantPappus},
    {"the medians of a triangle meet", plantMedians},
    {"three angles and the whole turn",
     [](PlantedSystem& s) { plantAngles(s, 2.0 * std::acos(-1.0) - 4.3); }},
    {"Pythagoras", [](PlantedSystem& s) { plantRightTriangle(s, 5.0); }},
    {"Thales: the angle in a half circle",
     [](PlantedSystem& s) {
         const auto a = s.point(-2, 0, 0);
         const auto b = s.point(2, 0, 0);
         const auto c = s.point(2 * std::cos(1.0), 2 * std::sin(1.0), 0);
         const auto o = s.middleOf(a, b);
         s.bar(o, a);
         s.bar(o, c);
         s.perpendicular(s.through(a, c), s.through(b, c));
         s.expectAll();
         s.freedom = 7;
     }},
    {"Varignon: middles of sides make a parallelogram",
     [](PlantedSystem& s) {
         const Point corners[] = {s.point(0, 0, 0), s.point(4, 1, 0.5), s.point(5, 4, 2), s.point(1, 3, -1)};
         std::vector<Point> middles;
         for (int i = 0; i < 4; ++i) {
             middles.push_back(s.middleOf(corners[i], corners[(i + 1) % 4]));
         }
         s.parallel(s.through(middles[0], middles[1]), s.through(middles[3], middles[2]));
         s.expectAll();
         s.freedom = 12;
     }},
    {"the median of a triangle with two equal sides is a height",
     [](PlantedSystem& s) {
         const auto a = s.point(-3, 0, 0);
         const auto b = s.point(3, 0, 0);
         const auto c = s.point(0, 2, 3.4);
         s.bar(a, c);
         s.bar(b, c);
         const auto m = s.middleOf(a, b);
         s.perpendicular(s.through(a, b), s.through(m, c));
         s.expectAll();
         s.freedom = 7;
     }},
    {"two pyramids on one line", // the double banana: as many bars as a rigid frame needs, yet it swings
     [](PlantedSystem& s) {
         const auto top = s.point(0, 0, 3);
         const auto foot = s.point(0, 0.2, -3);
         for (const double side : {-1.0, 1.0}) {
             const Point rim[] = {s.point(side, 0.3, 0.2), s.point(side * 2.5, -1.1, 0.4),
                                  s.point(side * 2.2, 1.3, -0.5)};
             for (int i = 0; i < 3; ++i) {
                 s.bar(top, rim[i]);
                 s.bar(foot, rim[i]);
                 s.bar(rim[i], rim[(i + 1) % 3]);
             }
         }
         s.expectAll();
         s.freedom = 6 + 1;
     }},
};

} // namespace nsPlantedTheorems
