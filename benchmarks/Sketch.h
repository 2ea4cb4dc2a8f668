#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

/// A sketch in space of points, lines through two of them, distances and angles, as plain numbers that any
/// solver can be given. The values are those of a known pose; free points start a little beside it.
class Sketch {
public:
    using Place = std::array<double, 3>;

    struct Point {
        Place solution;
        Place start;
        bool isFixed;
    };
    struct Line {
        std::size_t first;
        std::size_t second;
    };
    struct Distance {
        std::size_t first;
        std::size_t second;
        double value;
    };
    struct LineDistance {
        std::size_t point;
        std::size_t line;
        double value;
    };
    /// Of the directions from the first to the second point of the lines, in radians.
    struct Angle {
        std::size_t first;
        std::size_t second;
        double value;
    };

    /// A block of four by four points in each layer, each at a distance from the three before it: points and
    /// distances alone.
    static Sketch truss(std::size_t freePoints) {
        Sketch sketch;
        for (std::size_t i = 0; i < freePoints; ++i) {
            const int x = static_cast<int>(i % 4);
            const int y = static_cast<int>(i / 4 % 4);
            const int z = static_cast<int>(i / 16);
            const std::size_t point = sketch.at({x, y, z}, false);
            for (const Cell& before : {Cell{x - 1, y, z}, Cell{x, y - 1, z}, Cell{x, y, z - 1}}) {
                sketch.addDistance(sketch.at(before, true), point);
            }
        }
        return sketch;
    }

    /// Rows of four bars that zigzag from a fixed one on. The end of each bar is told by its length, its
    /// angle to the bar before it and its distance from the bar beside it.
    static Sketch zigzag(std::size_t freePoints) {
        Sketch sketch;
        for (std::size_t i = 0; i < freePoints; ++i) {
            const int x = static_cast<int>(i % 4);
            const int y = static_cast<int>(i / 4);
            const std::size_t point = sketch.at({x, y, 0}, false);
            const std::size_t start = sketch.at({x - 1, y, 0}, true);
            const std::size_t bar = sketch.lineBetween(start, point);
            sketch.addDistance(start, point);
            sketch.addAngle(sketch.lineBetween(sketch.at({x - 2, y, 0}, true), start), bar);
            sketch.addLineDistance(point, sketch.lineBetween(sketch.at({x - 1, y - 1, 0}, true),
                                                             sketch.at({x, y - 1, 0}, true)));
        }
        return sketch;
    }

    const std::vector<Point>& points() const { return m_points; }
    const std::vector<Line>& lines() const { return m_lines; }
    const std::vector<Distance>& distances() const { return m_distances; }
    const std::vector<LineDistance>& lineDistances() const { return m_lineDistances; }
    const std::vector<Angle>& angles() const { return m_angles; }
    bool isFixed(const Line& line) const {
        return m_points[line.first].isFixed && m_points[line.second].isFixed;
    }

    /// How far `places` are from the pose that the values were taken from, at most.
    double error(const std::vector<Place>& places) const {
        double result = 0.0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                const double missing = std::fabs(places[i][axis] - m_points[i].solution[axis]);
                result = missing <= result ? result : missing; // also where it is no number
            }
        }
        return result;
    }

private:
    using Cell = std::array<int, 3>;

    /// The point of a cell, a new one unless it is there.
    std::size_t at(const Cell& cell, bool isFixed) {
        for (std::size_t i = 0; i < m_cells.size(); ++i) {
            if (m_cells[i] == cell) {
                return i;
            }
        }
        constexpr double irregularity = 0.15;
        constexpr double disturbance = 0.05;
        Point point{{}, {}, isFixed};
        const bool isUp = cell[0] % 2 != 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double rise = axis == 2 && isUp ? 0.5 : 0.0;
            point.solution[axis] = cell[axis] + rise + irregularity * random();
            point.start[axis] = point.solution[axis] + (isFixed ? 0.0 : disturbance * random());
        }
        m_cells.push_back(cell);
        m_points.push_back(point);
        return m_points.size() - 1;
    }
    std::size_t lineBetween(std::size_t first, std::size_t second) {
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            if (m_lines[i].first == first && m_lines[i].second == second) {
                return i;
            }
        }
        m_lines.push_back({first, second});
        return m_lines.size() - 1;
    }
    void addDistance(std::size_t first, std::size_t second) {
        m_distances.push_back({first, second, length(between(first, second))});
    }
    void addLineDistance(std::size_t point, std::size_t line) {
        const Place along = directionOf(line);
        const Place arm = between(m_lines[line].first, point);
        const double height = dot(arm, along) / length(along);
        m_lineDistances.push_back({point, line, std::sqrt(dot(arm, arm) - height * height)});
    }
    void addAngle(std::size_t first, std::size_t second) {
        const Place one = directionOf(first);
        const Place other = directionOf(second);
        m_angles.push_back({first, second, std::acos(dot(one, other) / (length(one) * length(other)))});
    }
    Place directionOf(std::size_t line) const { return between(m_lines[line].first, m_lines[line].second); }
    Place between(std::size_t first, std::size_t second) const {
        const Place& from = m_points[first].solution;
        const Place& to = m_points[second].solution;
        return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
    }
    static double dot(const Place& a, const Place& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
    static double length(const Place& a) { return std::sqrt(dot(a, a)); }

    /// Between -1 and 1, the same in each program: D. H. Lehmer's generator with the factor of Park and
    /// Miller.
    double random() {
        m_seed = m_seed * 48271U % 2147483647U;
        return static_cast<double>(m_seed) / 1073741823.5 - 1.0;
    }

    std::uint64_t m_seed = 20261121;
    std::vector<Cell> m_cells;
    std::vector<Point> m_points;
    std::vector<Line> m_lines;
    std::vector<Distance> m_distances;
    std::vector<LineDistance> m_lineDistances;
    std::vector<Angle> m_angles;
};
