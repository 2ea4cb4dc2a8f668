#include "data/geometry/3d/VrexCoxDeBoorRow.h"

#include <bit>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "support/SplineSamples.h"

namespace {

using nsSplineSamples::Maker;

/// The recursion as it is defined, in exponential time.
double recurse(const std::vector<double>& U, std::size_t i, std::size_t k, double t) {
    if (k == 0) {
        return U[i] <= t && t < U[i + 1] ? 1.0 : 0.0;
    }
    if (t < U[i] || t > U[i + k + 1]) {
        return 0.0;
    }
    const double a = U[i + k] - U[i];
    const double b = U[i + k + 1] - U[i + 1];
    const double left = a == 0.0 ? 0.0 : (t - U[i]) / a;
    const double right = b == 0.0 ? 0.0 : (U[i + k + 1] - t) / b;
    return left * recurse(U, i, k - 1, t) + right * recurse(U, i + 1, k - 1, t);
}

void expectBitsOfTheRecursion(const std::vector<double>& knots, std::size_t degree, double t) {
    const std::size_t count = knots.size() - degree - 1;
    const auto row = VrexCoxDeBoorRow().calculate(knots, degree, 0, count, t);
    ASSERT_EQ(row.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const double expected = recurse(knots, i, degree, t);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(row[i]), std::bit_cast<std::uint64_t>(expected))
            << "function " << i << " at " << t;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(VrexCoxDeBoorRow().calculate(knots, degree, i, 1, t)[0]),
                  std::bit_cast<std::uint64_t>(expected));
    }
}

TEST(VrexCoxDeBoorRow, HasTheBitsOfTheRecursion) {
    Maker maker(1);
    for (std::size_t degree = 0; degree <= 6; ++degree) {
        for (auto knots : {maker.openKnots(9, degree), maker.periodicKnots(9, degree)}) {
            for (int i = 0; i < 20; ++i) {
                expectBitsOfTheRecursion(knots, degree, maker.number(knots.front(), knots.back()));
            }
            for (const double knot : std::vector<double>(knots)) {
                expectBitsOfTheRecursion(knots, degree, knot);
            }
            knots[knots.size() / 2] = std::numeric_limits<double>::quiet_NaN();
            expectBitsOfTheRecursion(knots, degree, maker.number(knots.front(), knots.back()));
        }
    }
}

TEST(VrexCoxDeBoorRow, IsOneInTotalInsideTheRange) {
    Maker maker(2);
    const auto knots = maker.openKnots(60, 40);
    const auto row = VrexCoxDeBoorRow().calculate(knots, 40, 0, 60, 0.5 * (knots[50] + knots[51]));
    double sum = 0.0;
    for (const double function : row) {
        EXPECT_GE(function, 0.0);
        sum += function;
    }
    EXPECT_NEAR(sum, 1.0, 1e-12);
}

} // namespace
