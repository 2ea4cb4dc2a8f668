#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

#include <Eigen/Cholesky>
#include <Eigen/Core>

#include "data/VrexVisitor3D.h"
#include "solver/RandomEntities.h"

/// The distance between two entities by a search over points on both, with formulas of its own: what the
/// solver's residuals are compared with.
namespace nsNearest {

using Vector = VrexVector3DT<double>;

/// Points on an entity, by numbers between ends. What is endless is cut off far away.
struct Points {
    std::function<Vector(const double* parameters)> at;
    std::vector<std::array<double, 2>> ranges;
};

/// Two vectors at right angles to `axis` and each other.
inline std::array<Vector, 2> across(const Vector& axis) {
    const Vector aside = std::abs(axis.x()) < 0.6 ? Vector::OX() : Vector::OY();
    Vector first = aside - axis * axis.dotProduct(aside);
    first = first / first.magnitude();
    return {first, axis.crossProduct(first)};
}

class Reader final : public VrexVisitor3D {
public:
    Points points;

    void visitPoint3D(VrexPoint3D& point) override {
        points.at = [p = point.getPosition()](const double*) { return p; };
    }
    void visitLine3D(VrexLine3D& line) override {
        points = {[o = line.getOrigin(), d = line.getDirection()](const double* t) { return o + d * t[0]; },
                  {LONG}};
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        points = {[c = circle.getCenter(), r = circle.getRadius(),
                   e = across(circle.getNormal())](const double* t) {
                      return c + e[0] * (r * std::cos(t[0])) + e[1] * (r * std::sin(t[0]));
                  },
                  {TURN}};
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        const Vector x = ellipse.getDirection();
        const Vector y = ellipse.getNormal().crossProduct(x);
        points = {[c = ellipse.getCenter(), a = x * ellipse.getMajorRadius(),
                   b = y * ellipse.getMinorRadius()](const double* t) {
                      return c + a * std::cos(t[0]) + b * std::sin(t[0]);
                  },
                  {TURN}};
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        points = {[o = plane.getOrigin(), e = across(plane.getNormal())](const double* t) {
                      return o + e[0] * t[0] + e[1] * t[1];
                  },
                  {LONG, LONG}};
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        points = {[o = cylinder.getOrigin(), d = cylinder.getDirection(), r = cylinder.getRadius(),
                   e = across(cylinder.getDirection())](const double* t) {
                      return o + d * t[1] + e[0] * (r * std::cos(t[0])) + e[1] * (r * std::sin(t[0]));
                  },
                  {TURN, LONG}};
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        points = {[c = sphere.getCenter(), r = sphere.getRadius()](const double* t) {
                      return c + Vector(std::cos(t[0]) * std::sin(t[1]), std::sin(t[0]) * std::sin(t[1]),
                                        std::cos(t[1])) *
                                     r;
                  },
                  {TURN, {0.0, std::numbers::pi}}};
    }
    void visitCone3D(VrexCone3D& cone) override {
        points = {[o = cone.getOrigin(), d = cone.getDirection(), alpha = cone.getAperture(),
                   e = across(cone.getDirection())](const double* t) {
                      const Vector aside = e[0] * std::cos(t[0]) + e[1] * std::sin(t[0]);
                      return o + (d * std::cos(alpha) + aside * std::sin(alpha)) * std::abs(t[1]);
                  },
                  {TURN, {0.0, LONG[1]}}};
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        points = {[c = torus.getCenter(), d = torus.getNormal(), major = torus.getMajorRadius(),
                   minor = torus.getMinorRadius(), e = across(torus.getNormal())](const double* t) {
                      const Vector aside = e[0] * std::cos(t[0]) + e[1] * std::sin(t[0]);
                      return c + aside * (major + minor * std::cos(t[1])) + d * (minor * std::sin(t[1]));
                  },
                  {TURN, TURN}};
    }

private:
    static constexpr std::array<double, 2> LONG{-20.0, 20.0};
    static constexpr std::array<double, 2> TURN{0.0, 2.0 * std::numbers::pi};
};

/// Where two are nearest, as parameters of the first and then of the second.
struct Nearest {
    double distance;
    std::vector<double> place;
};

/// Goes on to where `between` is shortest, by damped steps with derivatives from differences: what follows a
/// valley to its end.
template <class Between>
Nearest refine(const Between& between, Nearest nearest, std::size_t count) {
    constexpr double step = 1e-6;
    const auto columns = static_cast<Eigen::Index>(count);
    double damping = 1e-3;
    for (int round = 0; round < 300 && damping < 1e12 && count > 0; ++round) {
        const Vector gap = between(nearest.place);
        Eigen::MatrixXd slopes(3, columns);
        for (Eigen::Index i = 0; i < columns; ++i) {
            std::vector<double> ahead = nearest.place;
            std::vector<double> behind = nearest.place;
            ahead[static_cast<std::size_t>(i)] += step;
            behind[static_cast<std::size_t>(i)] -= step;
            const Vector slope = (between(ahead) - between(behind)) / (2.0 * step);
            slopes.col(i) << slope.x(), slope.y(), slope.z();
        }
        const Eigen::Vector3d value(gap.x(), gap.y(), gap.z());
        const Eigen::MatrixXd normal =
            slopes.transpose() * slopes + damping * Eigen::MatrixXd::Identity(columns, columns);
        const Eigen::VectorXd move = normal.ldlt().solve(-slopes.transpose() * value);
        Nearest there = nearest;
        for (Eigen::Index i = 0; i < columns; ++i) {
            there.place[static_cast<std::size_t>(i)] += move[i];
        }
        there.distance = between(there.place).magnitude();
        const bool hasGained = there.distance < nearest.distance;
        damping *= hasGained ? 0.1 : 10.0;
        nearest = hasGained ? there : nearest;
    }
    return nearest;
}

/// The least distance: from the best place of a grid along the axes of the parameters, with shorter steps
/// whenever none is better, and then by `refine`.
inline Nearest nearest(const Points& first, const Points& second) {
    const std::size_t split = first.ranges.size();
    std::vector<std::array<double, 2>> ranges = first.ranges;
    ranges.insert(ranges.end(), second.ranges.begin(), second.ranges.end());
    const std::size_t count = ranges.size();
    const auto between = [&](const std::vector<double>& t) {
        return first.at(t.data()) - second.at(t.data() + split);
    };
    const auto at = [&](const std::vector<double>& t) { return between(t).magnitude(); };
    const std::size_t steps = count <= 2 ? 160 : count == 3 ? 48 : 22;
    std::vector<double> best(count + 1);
    std::vector<double> here(count + 1);
    double least = std::numeric_limits<double>::infinity();
    std::size_t places = 1;
    for (std::size_t i = 0; i < count; ++i) {
        places *= steps;
    }
    for (std::size_t place = 0; place < places; ++place) {
        std::size_t rest = place;
        for (std::size_t i = 0; i < count; ++i) {
            const double part = (static_cast<double>(rest % steps) + 0.5) / static_cast<double>(steps);
            here[i] = ranges[i][0] + part * (ranges[i][1] - ranges[i][0]);
            rest /= steps;
        }
        if (const double d = at(here); d < least) {
            least = d;
            best = here;
        }
    }
    double step = 0.5;
    for (int rounds = 0; step > 1e-6 && rounds < 300; ++rounds) {
        const std::vector<double> start = best;
        for (std::size_t i = 0; i < count; ++i) {
            for (const double sign : {1.0, -1.0}) {
                here = best;
                here[i] += sign * step;
                if (const double d = at(here); d < least) {
                    least = d;
                    best = here;
                }
            }
        }
        // A narrow valley is followed by what all steps made together.
        for (std::size_t i = 0; i < count; ++i) {
            here[i] = 2.0 * best[i] - start[i];
        }
        if (const double d = at(here); d < least) {
            least = d;
            best = here;
        } else if (best == start) {
            step *= 0.5;
        }
    }
    return refine(between, {least, best}, count);
}

inline Points pointsOf(VrexGeometry3D& entity) {
    Reader reader;
    entity.accept(reader);
    return reader.points;
}

inline double distance(VrexGeometry3D& first, VrexGeometry3D& second) {
    return nearest(pointsOf(first), pointsOf(second)).distance;
}

/// Two that stand apart, as far as their kinds can: what has no end crosses a plane unless it is turned.
inline std::array<std::shared_ptr<VrexGeometry3D>, 2>
makeApart(VrexGeometry3DType first, VrexGeometry3DType second, RandomShapes& random) {
    using enum VrexGeometry3DType;
    const auto isEndless = [](VrexGeometry3DType kind) {
        return kind == PLANE || kind == LINE || kind == CYLINDER || kind == CONE;
    };
    const bool mayCross = (first == PLANE && isEndless(second)) || (second == PLANE && isEndless(first));
    while (true) {
        const auto one = nsRandomEntities::make(first, random);
        const auto other = nsRandomEntities::make(second, random);
        if (mayCross || distance(*one, *other) > 0.05) {
            return {one, other};
        }
    }
}

} // namespace nsNearest
