#include "data/VrexTransformMatrix3D.h"

#include <cmath>

#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

constexpr double ROUNDING = 2e-15;

using Quaternion = VrexQuaternionT<double>;
using Rows = VrexTransformMatrix3D::Rows;

Quaternion turn(double angle, const VrexVector3DT<double>& axis) {
    return Quaternion::makeFromAngleAndAxis(angle, axis, 1e-12);
}

VrexTransformMatrix3D counting() {
    return VrexTransformMatrix3D(Rows{
        {{1.0, 2.0, 3.0, 4.0}, {5.0, 6.0, 7.0, 8.0}, {9.0, 10.0, 11.0, 12.0}, {13.0, 14.0, 15.0, 16.0}}});
}

} // namespace

TEST(VrexTransformMatrix3D, IsTheIdentityByDefault) {
    const VrexTransformMatrix3D m;
    for (std::uint64_t row = 0; row < 4; ++row) {
        for (std::uint64_t column = 0; column < 4; ++column) {
            EXPECT_EQ(m[row][column], row == column ? 1.0 : 0.0);
        }
    }
}

TEST(VrexTransformMatrix3D, RowsAreReadAndWritten) {
    VrexTransformMatrix3D m = counting();
    EXPECT_EQ(m[1][2], 7.0);
    EXPECT_EQ(m.transformation()[3][0], 13.0);
    m[1][2] = -1.0;
    m.transformation()[3][0] = -2.0;
    const VrexTransformMatrix3D& constant = m;
    EXPECT_EQ(constant.transformation()[1][2], -1.0);
    EXPECT_EQ(constant[3][0], -2.0);
}

TEST(VrexTransformMatrix3D, EqualityIsExact) {
    VrexTransformMatrix3D m;
    EXPECT_TRUE(m == VrexTransformMatrix3D());
    m[2][1] = -0.0;
    EXPECT_TRUE(m == VrexTransformMatrix3D());
    m[2][1] = 1e-300;
    EXPECT_FALSE(m == VrexTransformMatrix3D());
    m[2][1] = NOT_A_NUMBER;
    EXPECT_FALSE(m == m);
}

TEST(VrexTransformMatrix3D, ProductIsRowTimesColumn) {
    VrexTransformMatrix3D other;
    other[0][1] = 2.0;
    other[3][0] = -1.0;
    EXPECT_TRUE(counting() * other == VrexTransformMatrix3D(Rows{{{-3.0, 4.0, 3.0, 4.0},
                                                                  {-3.0, 16.0, 7.0, 8.0},
                                                                  {-3.0, 28.0, 11.0, 12.0},
                                                                  {-3.0, 40.0, 15.0, 16.0}}}));
    EXPECT_EQ(counting() * (std::array<double, 4>{1.0, -1.0, 2.0, 0.5}),
              (std::array<double, 4>{7.0, 17.0, 27.0, 37.0}));
}

TEST(VrexTransformMatrix3D, TranslationStandsInTheLastColumn) {
    const VrexTransformMatrix3D m = VrexTransformMatrix3D::translate({1.0, 2.0, 3.0});
    EXPECT_EQ(m * (std::array<double, 4>{10.0, 20.0, 30.0, 1.0}),
              (std::array<double, 4>{11.0, 22.0, 33.0, 1.0}));
    EXPECT_EQ(m * (std::array<double, 4>{10.0, 20.0, 30.0, 0.0}),
              (std::array<double, 4>{10.0, 20.0, 30.0, 0.0}));
}

TEST(VrexTransformMatrix3D, IsATransformForAnyUpperBlock) {
    VrexTransformMatrix3D m = counting();
    EXPECT_FALSE(m.isTransformMatrix());
    m[3] = {0.0, 0.0, 0.0, 1.0};
    EXPECT_TRUE(m.isTransformMatrix());
    m[0][0] = NOT_A_NUMBER;
    EXPECT_TRUE(m.isTransformMatrix());
}

TEST(VrexTransformMatrix3D, IsNoTransformWithALastRowOffByTheTolerance) {
    for (std::uint64_t column = 0; column < 4; ++column) {
        for (const double off : {1e-6, -1e-6, NOT_A_NUMBER, INF}) {
            VrexTransformMatrix3D m;
            m[3][column] += 1.01 * off;
            EXPECT_FALSE(m.isTransformMatrix()) << column << " off by " << off;
        }
        VrexTransformMatrix3D m;
        m[3][column] += 0.99e-6;
        EXPECT_TRUE(m.isTransformMatrix());
    }
    VrexTransformMatrix3D m;
    m[3][0] = 1e-6;
    EXPECT_FALSE(m.isTransformMatrix());
}

TEST(VrexTransformMatrix3D, MatrixOfAQuaternionTurnsLikeIt) {
    const Quaternion q = turn(1.1, {2.0, 3.0, 6.0});
    const VrexTransformMatrix3D m = VrexTransformMatrix3D::makeFromQuaternion(q);
    const auto image = m * (std::array<double, 4>{1.0, -2.0, 0.5, 1.0});
    const VrexVector3DT<double> turned = Quaternion::rotate({1.0, -2.0, 0.5}, q, true);
    expectNear(Values3{image[0], image[1], image[2]}, valuesOf(turned), ROUNDING);
    EXPECT_EQ(m[3], (std::array<double, 4>{0.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(m[0][3], 0.0);
}

TEST(VrexTransformMatrix3D, MatrixOfAQuaternionIsNotNormalised) {
    const double w = 0.3, i = 0.7, j = -1.1, k = 2.3;
    const VrexTransformMatrix3D m =
        VrexTransformMatrix3D::makeFromQuaternion(Quaternion::makeFromScalarAndVector(w, {i, j, k}));
    const double x = 2.0 * i, y = 2.0 * j, z = 2.0 * k;
    EXPECT_TRUE(m == VrexTransformMatrix3D(Rows{{{1.0 - (z * k + y * j), y * i - z * w, z * i + y * w, 0.0},
                                                 {y * i + z * w, 1.0 - (z * k + x * i), z * j - x * w, 0.0},
                                                 {z * i - y * w, z * j + x * w, 1.0 - (y * j + x * i), 0.0},
                                                 {0.0, 0.0, 0.0, 1.0}}}));
}

TEST(VrexTransformMatrix3D, QuaternionComesBackInEveryBranch) {
    struct Row {
        const char* branch;
        double angle;
        VrexVector3DT<double> axis;
    };
    const Row rows[] = {{"trace", 1.0, {1.0, 2.0, 3.0}},       {"x", 3.0, {3.0, 1.0, -1.0}},
                        {"y", 3.0, {1.0, 3.0, -1.0}},          {"z", 3.0, {1.0, -1.0, 3.0}},
                        {"x, half turn", PI, {1.0, 0.0, 0.0}}, {"y, half turn", PI, {0.0, 1.0, 0.0}},
                        {"z, half turn", PI, {0.0, 0.0, 1.0}}};
    for (const Row& row : rows) {
        const Quaternion q = turn(row.angle, row.axis);
        const Quaternion back = VrexTransformMatrix3D::makeFromQuaternion(q).toQuaternion();
        SCOPED_TRACE(row.branch);
        expectNear(valuesOf(back), valuesOf(q), ROUNDING);
    }
}

TEST(VrexTransformMatrix3D, BranchesOfTheQuaternionKeepTheOrderOfTheirFormulas) {
    // Arbitrary blocks, so that each of the four branches is told apart by its bits.
    struct Row {
        double a, b, c;
    };
    for (const Row& row :
         {Row{0.9, 0.3, 0.1}, Row{0.4, -0.7, -0.9}, Row{-0.7, 0.4, -0.9}, Row{-0.7, -0.9, 0.4}}) {
        const auto [a, b, c] = row;
        const VrexTransformMatrix3D m(
            Rows{{{a, 0.1, 0.23, 5.0}, {-0.37, b, 0.41, 6.0}, {0.53, -0.61, c, 7.0}, {0.0, 0.0, 0.0, 1.0}}});
        const double p = -0.61 - 0.41, q = 0.23 - 0.53, r = -0.37 - 0.1;
        const double x = 0.23 + 0.53, y = -0.37 + 0.1, z = 0.41 + -0.61;
        Values4 expected{};
        if (a + b + c > 0.0) {
            const double s = 2.0 * std::sqrt(a + b + c + 1.0);
            expected = {s / 4.0, p / s, q / s, r / s};
        } else if (a > b && a > c) {
            const double s = 2.0 * std::sqrt(a + 1.0 - b - c);
            expected = {p / s, s / 4.0, y / s, x / s};
        } else if (b > c) {
            const double s = 2.0 * std::sqrt(b + 1.0 - a - c);
            expected = {q / s, y / s, s / 4.0, z / s};
        } else {
            const double s = 2.0 * std::sqrt(c + 1.0 - a - b);
            expected = {r / s, x / s, z / s, s / 4.0};
        }
        EXPECT_EQ(valuesOf(m.toQuaternion()), expected) << a;
    }
}

TEST(VrexTransformMatrix3D, EqualDiagonalsTakeTheLastBranchThatTheyReach) {
    // Neither diagonal is greater than the other: z for equal ones, y when it only beats z.
    VrexTransformMatrix3D m;
    m[0][0] = m[1][1] = m[2][2] = -1.0 / 3.0;
    const double s = 2.0 * std::sqrt(-1.0 / 3.0 + 1.0 + 1.0 / 3.0 + 1.0 / 3.0);
    EXPECT_EQ(m.toQuaternion().k(), s / 4.0);
    m[0][0] = m[1][1] = -0.25;
    EXPECT_EQ(m.toQuaternion().j(), 2.0 * std::sqrt(-0.25 + 1.0 + 0.25 + 1.0 / 3.0) / 4.0);
}

TEST(VrexTransformMatrix3D, ATraceOfZeroTakesTheBranchOfTheLargestDiagonal) {
    // By the trace the same block would give (0.5, 0.25, 0, 0).
    VrexTransformMatrix3D m;
    m[0][0] = m[1][1] = m[2][2] = 0.0;
    m[2][1] = 0.5;
    EXPECT_EQ(valuesOf(m.toQuaternion()), (Values4{0.0, 0.0, 0.25, 0.5}));
}

TEST(VrexTransformMatrix3D, InverseUndoesARigidMotion) {
    const VrexTransformMatrix3D m = VrexTransformMatrix3D::translate({1.0, -2.0, 3.0}) *
                                    VrexTransformMatrix3D::makeFromQuaternion(turn(1.1, {2.0, 3.0, 6.0}));
    for (const VrexTransformMatrix3D& product : {m * m.getInverseMatrix(), m.getInverseMatrix() * m}) {
        for (std::uint64_t row = 0; row < 4; ++row) {
            expectNear(product[row], VrexTransformMatrix3D()[row], ROUNDING);
        }
    }
}

TEST(VrexTransformMatrix3D, InverseOnlyTransposesTheBlock) {
    VrexTransformMatrix3D m = counting();
    m[3] = {0.0, 0.0, 0.0, 1.0};
    EXPECT_TRUE(m.getInverseMatrix() == VrexTransformMatrix3D(Rows{{{1.0, 5.0, 9.0, -(4.0 + 40.0 + 108.0)},
                                                                    {2.0, 6.0, 10.0, -(8.0 + 48.0 + 120.0)},
                                                                    {3.0, 7.0, 11.0, -(12.0 + 56.0 + 132.0)},
                                                                    {0.0, 0.0, 0.0, 1.0}}}));
}

TEST(VrexTransformMatrix3D, QuaternionOfANaNMatrixIsNaN) {
    VrexTransformMatrix3D m;
    m[0][0] = NOT_A_NUMBER;
    EXPECT_TRUE(std::isnan(m.toQuaternion().k()));
    m[0][0] = INF;
    EXPECT_TRUE(std::isinf(m.toQuaternion().scalar()));
}
