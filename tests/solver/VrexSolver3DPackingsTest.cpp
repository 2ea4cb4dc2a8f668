#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "solver/RandomStarts.h"

namespace {

using Vector = VrexVector3DT<double>;
using enum VrexGeometryComponentType;
constexpr double TOLERANCE = 1e-8; ///< Residuals of 1e-10, of figures some units in size.

/// Five spheres that all touch each other from outside: four of given radii about a small one of any.
struct Packing : Mechanism {
    static constexpr std::array<double, 4> RADII{1.0, 1.2, 0.8, 1.1};

    Packing() {
        // The corners of a regular tetrahedron of edge 2, which fits spheres of radius 1.
        const double half = std::sqrt(0.5);
        sphere({half, half, half}, RADII[0]);
        sphere({half, -half, -half}, RADII[1]);
        sphere({-half, half, -half}, RADII[2]);
        sphere({-half, -half, half}, RADII[3]);
        sphere({0.0, 0.0, 0.0}, 0.2);
        for (std::size_t i = 0; i < RADII.size(); ++i) {
            bind(VrexRadius3D::create(spheres[i], RADII[i], VrexRadius3DType::Radius3D));
            for (std::size_t j = i + 1; j < spheres.size(); ++j) {
                bind(VrexTangency3D::create(spheres[i], spheres[j], UNKNOWN, UNKNOWN))->orientation() =
                    VrexConstraintOrientation::Positive;
            }
        }
    }
    void sphere(const Vector& center, double radius) {
        spheres.push_back(add(VrexSphere3D::create(center, radius)));
    }
    /// Soddy and Gosset: of the curvatures k of five spheres that touch each other (sum k)^2 = 3 sum k^2.
    static double innerRadius() {
        double sum = 0.0;
        double squares = 0.0;
        for (const double radius : RADII) {
            sum += 1.0 / radius;
            squares += 1.0 / (radius * radius);
        }
        return 2.0 / (sum + std::sqrt(3.0 * sum * sum - 6.0 * squares));
    }
    std::vector<std::shared_ptr<VrexSphere3D>> spheres;
};

TEST(VrexSolver3DPackings, FifthSphereHasTheRadiusOfSoddysTheorem) {
    solveFromRandomStarts(
        0.02, [] { return Packing(); },
        [](const Packing& packing, const VrexSolverComponentReport& report) {
            EXPECT_EQ(report.freedom, 6U); // of the whole
            EXPECT_TRUE(report.overConstrained.empty());
            EXPECT_NEAR(packing.spheres[4]->getRadius(), Packing::innerRadius(), TOLERANCE);
            for (std::size_t i = 0; i < 5; ++i) {
                for (std::size_t j = 0; j < i; ++j) {
                    const auto& p = *packing.spheres[i];
                    const auto& q = *packing.spheres[j];
                    EXPECT_NEAR((p.getCenter() - q.getCenter()).magnitude(), p.getRadius() + q.getRadius(),
                                TOLERANCE);
                }
            }
        });
}

/// A triangle of sides 13, 14 and 15 with its inscribed circle, a sphere of radius 5 through that, and a
/// plane that lies on the sphere, level with the circle.
struct Sketch : Mechanism {
    Sketch() {
        const std::array<Vector, 3> corners{at(-6.0, -4.0, 0.0), at(8.0, -4.0, 0.0), at(-1.0, 8.0, 0.0)};
        for (const Vector& corner : corners) {
            points.push_back(add(VrexPoint3D::create(corner.x(), corner.y(), corner.z())));
        }
        circle = add(VrexCircle3D::create(at(0.0, 0.0, 0.0), Z, 4.1));
        sphere = add(VrexSphere3D::create(at(0.0, 0.0, 3.2), 5.2));
        plane = add(VrexPlane3D::create(at(0.0, 0.0, 8.3), Z));
        const std::array<double, 3> sides{14.0, 15.0, 13.0};
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& first = points[i];
            const auto& second = points[(i + 1) % 3];
            bind(VrexDistance3D::create(first, second, sides[i], UNKNOWN, UNKNOWN));
            lines.push_back(
                add(VrexLine3D::create(first->getPosition(), second->getPosition() - first->getPosition())));
            lay(first, lines.back());
            lay(second, lines.back());
            bind(VrexTangency3D::create(lines.back(), circle, UNKNOWN, UNKNOWN));
        }
        lay(circle, sphere);
        bind(VrexRadius3D::create(sphere, 5.0, VrexRadius3DType::Radius3D));
        bind(VrexParallelism3D::create(circle, plane));
        bind(VrexTangency3D::create(sphere, plane, UNKNOWN, UNKNOWN));
    }
    static Vector at(double x, double y, double z) { return Vector(3.0, -2.0, 1.0) + X * x + Y * y + Z * z; }
    void lay(const std::shared_ptr<VrexGeometry3D>& what, const std::shared_ptr<VrexGeometry3D>& where) {
        bind(VrexIncidence3D::create(what, where, VrexIncidence3DType::Default, UNKNOWN, UNKNOWN));
    }

    static inline const Vector X = Vector(2.0, 1.0, 2.0) / 3.0;
    static inline const Vector Y = Vector(1.0, 2.0, -2.0) / 3.0;
    static inline const Vector Z = X.crossProduct(Y);
    std::vector<std::shared_ptr<VrexPoint3D>> points;
    std::vector<std::shared_ptr<VrexLine3D>> lines;
    std::shared_ptr<VrexCircle3D> circle;
    std::shared_ptr<VrexSphere3D> sphere;
    std::shared_ptr<VrexPlane3D> plane;
};

TEST(VrexSolver3DPackings, TangenciesOfASketchGiveTheInscribedCircle) {
    solveFromRandomStarts(
        0.01, [] { return Sketch(); },
        [](const Sketch& sketch, const VrexSolverComponentReport& report) {
            EXPECT_EQ(report.freedom, 6U); // of the whole
            // Heron: the area is 84, and the radius is that over half of the circumference.
            EXPECT_NEAR(sketch.circle->getRadius(), 84.0 / 21.0, TOLERANCE);
            const Vector up = sketch.sphere->getCenter() - sketch.circle->getCenter();
            EXPECT_NEAR(up.magnitude(), 3.0, TOLERANCE); // 3, 4, 5
            const Vector normal = sketch.plane->getNormal();
            EXPECT_NEAR(std::abs(normal.dotProduct(up)), 3.0, TOLERANCE);
            const double height = normal.dotProduct(sketch.circle->getCenter() - sketch.plane->getOrigin());
            EXPECT_NEAR(std::abs(height), 3.0 + 5.0, TOLERANCE);
            for (const auto& line : sketch.lines) {
                const Vector arm = sketch.circle->getCenter() - line->getOrigin();
                EXPECT_NEAR(line->getDirection().crossProduct(arm).magnitude(), 4.0, TOLERANCE);
            }
        });
}

} // namespace
