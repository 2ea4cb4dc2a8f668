#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "solver/PlantedSystem.h"
#include "solver/SolverRuns.h"

namespace {

using Vector = PlantedSystem::Vector;
/// Of a length of 1. Residuals are below 1e-10 of a size of at most 1,000.
constexpr double TOLERANCE = 1e-7;

/// Points in a row or a circle, each bound to the next at a distance of 1, all off their places by up to a
/// tenth of that. Nothing else holds them: of three unknowns a point, two are free.
struct SlackChain : PlantedSystem {
    SlackChain(std::size_t count, bool isRing, std::uint64_t seed, const Vector& along) {
        std::mt19937_64 random(seed);
        std::uniform_real_distribution<double> noise(-0.1, 0.1);
        const auto rotation = towards(along);
        for (std::size_t i = 0; i < count; ++i) {
            const Vector place = isRing ? onRing(i, count) : Vector(0.0, 0.0, static_cast<double>(i));
            const double x = noise(random);
            const double y = noise(random);
            const double z = noise(random);
            const Vector turned = VrexQuaternionT<double>::rotate(place + Vector(x, y, z), rotation, false);
            points.push_back(point(turned.x(), turned.y(), turned.z()));
        }
        for (std::size_t i = isRing ? 0 : 1; i < count; ++i) {
            distance(points[(i + count - 1) % count], points[i], 1.0);
        }
    }
    static Vector onRing(std::size_t place, std::size_t count) {
        const double angle = 2.0 * std::numbers::pi * static_cast<double>(place) / static_cast<double>(count);
        const double radius = 0.5 / std::sin(std::numbers::pi / static_cast<double>(count));
        return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
    }
    void expectLinked(bool isRing) const {
        for (std::size_t i = isRing ? 0 : 1; i < points.size(); ++i) {
            const auto& before = points[(i + points.size() - 1) % points.size()];
            EXPECT_NEAR((points[i]->getPosition() - before->getPosition()).magnitude(), 1.0, TOLERANCE) << i;
        }
    }
    std::vector<Point> points;
};

/// The steps that all starts of such a chain may take. Without slack the residuals would vanish quadratically
/// in four or five; how far the directions of the links turn on the way costs the others.
struct Allowed {
    std::size_t points;
    bool isRing;
    int iterations;
};
constexpr Allowed ALLOWED[]{{100, true, 6}, {100, false, 7}, {1'000, true, 10}, {1'000, false, 12}};

TEST(VrexSolver3DSlackChains, NoisyRingsAndChainsConvergeInFewSteps) {
    for (const Allowed& row : ALLOWED) {
        for (const std::uint64_t seed : {1U, 2U, 3U}) {
            SCOPED_TRACE(testing::Message()
                         << row.points << (row.isRing ? " in a ring, " : " in a row, ") << seed);
            const SlackChain chain(row.points, row.isRing, seed, Vector::OX());
            const auto report = solve(chain);
            ASSERT_TRUE(report.isConverged);
            EXPECT_LE(report.iterations, row.iterations);
            EXPECT_EQ(report.freedom, 3 * row.points - chain.constraints.size());
            chain.expectLinked(row.isRing);
        }
    }
}

/// A step does not prefer the axes of space.
TEST(VrexSolver3DSlackChains, WhichWayTheChainRunsDoesNotMatter) {
    const int along = solve(SlackChain(200, false, 5, Vector::OX())).iterations;
    for (const Vector& direction : {Vector(0, 1, 0), Vector(0, 0, 1), Vector(1, 1, 1), Vector(3, -2, 5)}) {
        const auto report = solve(SlackChain(200, false, 5, direction));
        EXPECT_TRUE(report.isConverged);
        EXPECT_NEAR(report.iterations, along, 1); // rounding may cost one
    }
}

} // namespace
