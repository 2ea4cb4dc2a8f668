#include "data/VrexVector3DT.h"

#include <cmath>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "support/ExpectDerivativesMatch.h"
#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

/// A few roundings at values of the order of 1.
constexpr double ROUNDING = 1e-15;
/// The error of the central difference.
constexpr double DIFFERENCE = 1e-8;

static_assert(std::is_trivially_copyable_v<VrexVector3DT<double>>);
static_assert(sizeof(VrexVector3DT<double>) == 3 * sizeof(double));

const std::vector<std::pair<double, double>>& anglePairs() {
    static const std::vector<std::pair<double, double>> pairs{{0.0, 0.0}, {0.3, 1.1}, {1.2, -2.5},
                                                              {2.9, 3.0}, {PI, 0.4},  {PI / 2.0, PI / 2.0}};
    return pairs;
}

} // namespace

template <typename T>
class VrexVector3DTTest : public ::testing::Test {};
TYPED_TEST_SUITE(VrexVector3DTTest, Scalars);

TYPED_TEST(VrexVector3DTTest, IsZeroByDefaultWithoutDerivatives) {
    const VrexVector3DT<TypeParam> v;
    EXPECT_EQ(valuesOf(v), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexVector3DT<TypeParam>::ZERO()), (Values3{0.0, 0.0, 0.0}));
    if constexpr (std::is_same_v<TypeParam, VrexVariable>) {
        EXPECT_EQ(v.z().derivatives().size(), 0U);
    }
}

TYPED_TEST(VrexVector3DTTest, AxesAreUnitVectors) {
    EXPECT_EQ(valuesOf(VrexVector3DT<TypeParam>::OX()), (Values3{1.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexVector3DT<TypeParam>::OY()), (Values3{0.0, 1.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexVector3DT<TypeParam>::OZ()), (Values3{0.0, 0.0, 1.0}));
}

TYPED_TEST(VrexVector3DTTest, AnyIndexButZeroAndOneIsTheThirdComponent) {
    VrexVector3DT<TypeParam> v = vector3<TypeParam>(3.0, 4.0, 5.0);
    const auto& constant = v;
    EXPECT_EQ(&constant[0], &constant.x());
    EXPECT_EQ(&constant[1], &constant.y());
    for (const int index : {2, 3, -1, 1000}) {
        EXPECT_EQ(&constant[index], &constant.z());
        EXPECT_EQ(&v[index], &v.z());
    }
    v[0] = TypeParam(7.0);
    v.y() = TypeParam(8.0);
    v.z() = TypeParam(9.0);
    EXPECT_EQ(valuesOf(v), (Values3{7.0, 8.0, 9.0}));
}

TYPED_TEST(VrexVector3DTTest, ArithmeticIsPerComponent) {
    const auto a = vector3<TypeParam>(3.0, -4.0, 0.5);
    const auto b = vector3<TypeParam>(0.5, 8.0, -2.0);
    EXPECT_EQ(valuesOf(a + b), (Values3{3.5, 4.0, -1.5}));
    EXPECT_EQ(valuesOf(a - b), (Values3{2.5, -12.0, 2.5}));
    EXPECT_EQ(valuesOf(-a), (Values3{-3.0, 4.0, -0.5}));
    auto c = a;
    c += b;
    EXPECT_EQ(valuesOf(c), (Values3{3.5, 4.0, -1.5}));
    c -= b;
    EXPECT_EQ(valuesOf(c), (Values3{3.0, -4.0, 0.5}));
    c *= b;
    EXPECT_EQ(valuesOf(c), (Values3{1.5, -32.0, -1.0}));
    c /= b;
    EXPECT_EQ(valuesOf(c), (Values3{3.0, -4.0, 0.5}));
}

TYPED_TEST(VrexVector3DTTest, ScalesByAnyNumber) {
    const auto v = vector3<TypeParam>(3.0, -6.0, 12.0);
    EXPECT_EQ(valuesOf(v * 2.0), (Values3{6.0, -12.0, 24.0}));
    EXPECT_EQ(valuesOf(v * 2), (Values3{6.0, -12.0, 24.0}));
    EXPECT_EQ(valuesOf(v.template operator*<double>(2.0)), (Values3{6.0, -12.0, 24.0}));
    EXPECT_EQ(valuesOf(v.template operator*<int>(2)), (Values3{6.0, -12.0, 24.0}));
    EXPECT_EQ(valuesOf(v * number<TypeParam>(0.5, 5)), (Values3{1.5, -3.0, 6.0}));
    EXPECT_EQ(valuesOf(v / 3.0), (Values3{1.0, -2.0, 4.0}));
    EXPECT_EQ(valuesOf(v / 3), (Values3{1.0, -2.0, 4.0}));
    EXPECT_EQ(valuesOf(v / std::uint64_t{3}), (Values3{1.0, -2.0, 4.0}));
    EXPECT_EQ(valuesOf(v.template operator/<std::uint64_t>(3)), (Values3{1.0, -2.0, 4.0}));
    EXPECT_EQ(valuesOf(v / number<TypeParam>(3.0, 5)), (Values3{1.0, -2.0, 4.0}));
    auto w = v;
    w *= 4;
    EXPECT_EQ(valuesOf(w), (Values3{12.0, -24.0, 48.0}));
    w /= number<TypeParam>(8.0, 5);
    EXPECT_EQ(valuesOf(w), (Values3{1.5, -3.0, 6.0}));
}

TYPED_TEST(VrexVector3DTTest, DivisionIsNoProductWithTheReciprocal) {
    EXPECT_EQ(valueOf((vector3<TypeParam>(5.0, 0.0, 0.0) / 49.0).x()), 5.0 / 49.0);
    EXPECT_NE(5.0 / 49.0, 5.0 * (1.0 / 49.0));
}

TYPED_TEST(VrexVector3DTTest, MayBeScaledByItsOwnComponent) {
    auto v = vector3<TypeParam>(4.0, 6.0, 2.0);
    v *= v.x();
    EXPECT_EQ(valuesOf(v), (Values3{16.0, 24.0, 8.0}));
    v /= v.x();
    EXPECT_EQ(valuesOf(v), (Values3{1.0, 1.5, 0.5}));
    const auto& same = v; // spelled otherwise, or clang takes it for a slip
    v -= same;
    EXPECT_EQ(valuesOf(v), (Values3{0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexVector3DTTest, ProductsAndLengths) {
    const auto a = vector3<TypeParam>(2.0, 3.0, 6.0);
    const auto b = vector3<TypeParam>(-1.0, 4.0, 0.5);
    const auto c = vector3<TypeParam>(0.25, 1.0, -2.0);
    EXPECT_EQ(valueOf(a.dotProduct(b)), 13.0);
    EXPECT_EQ(valuesOf(a.crossProduct(b)), (Values3{-22.5, -7.0, 11.0}));
    EXPECT_EQ(valuesOf(crossProduct(a, b)), (Values3{-22.5, -7.0, 11.0}));
    EXPECT_EQ(valueOf(VrexVector3DT<TypeParam>::mixedProduct(a, b, c)), -22.5 * 0.25 - 7.0 - 22.0);
    EXPECT_EQ(valueOf(a.magnitudeSquared()), 49.0);
    EXPECT_EQ(valueOf(a.magnitude()), 7.0);
    EXPECT_EQ(valueOf(a.distanceTo(vector3<TypeParam>(1.0, 1.0, 4.0, 10))), 3.0);
}

TYPED_TEST(VrexVector3DTTest, AnglesOfADirectionComeBackFromItsVector) {
    for (const auto& [polar, azimuthal] : anglePairs()) {
        const auto v = VrexVector3DT<TypeParam>::sphericalAnglesToCartesian(number<TypeParam>(polar, 0),
                                                                            number<TypeParam>(azimuthal, 1));
        EXPECT_EQ(valuesOf(v), (Values3{std::sin(polar) * std::cos(azimuthal),
                                        std::sin(polar) * std::sin(azimuthal), std::cos(polar)}));
        EXPECT_NEAR(valueOf((v * 3.0).polarAngle()), polar, ROUNDING);
        if (polar > 0.0 && polar < PI) {
            EXPECT_NEAR(valueOf((v * 3.0).azimuthalAngle()), azimuthal, ROUNDING);
        }
    }
}

TYPED_TEST(VrexVector3DTTest, PolarDerivativeIsThePartialDerivative) {
    for (const auto& [p, a] : anglePairs()) {
        const auto v = VrexVector3DT<TypeParam>::sphericalAnglesToCartesianPolarDerivative(
            number<TypeParam>(p, 0), number<TypeParam>(a, 1));
        EXPECT_EQ(valuesOf(v), (Values3{std::cos(p) * std::cos(a), std::cos(p) * std::sin(a), -std::sin(p)}));
    }
}

TYPED_TEST(VrexVector3DTTest, AzimuthalDerivativeHasTheCosineOfThePolarAngle) {
    for (const auto& [p, a] : anglePairs()) {
        const auto v = VrexVector3DT<TypeParam>::sphericalAnglesToCartesianAzimuthalDerivative(
            number<TypeParam>(p, 0), number<TypeParam>(a, 1));
        EXPECT_EQ(valuesOf(v), (Values3{-std::cos(p) * std::sin(a), std::cos(p) * std::cos(a), 0.0}));
    }
}

TYPED_TEST(VrexVector3DTTest, PolarAngleKeepsTheOrderOfItsFormula) {
    for (const double x : {0.1, 0.7, 2.18}) {
        for (const double y : {0.3, -1.9, -0.39}) {
            const TypeParam polar = vector3<TypeParam>(x, y, 0.77).polarAngle();
            EXPECT_EQ(valueOf(polar), std::atan2(std::sqrt(x * x + y * y), 0.77));
        }
    }
}

TYPED_TEST(VrexVector3DTTest, CosineIsClampedAndZeroForATooShortVector) {
    const auto a = vector3<TypeParam>(1.0, 2.0, 2.0);
    EXPECT_NEAR(valueOf(a.cos(vector3<TypeParam>(4.0, 0.0, -3.0, 10), 1e-9)), -2.0 / 15.0, ROUNDING);
    EXPECT_EQ(valueOf(a.cos(VrexVector3DT<TypeParam>::ZERO(), 1e-9)), 0.0);
    EXPECT_EQ(valueOf(a.cos(a, 3.0)), 0.0);
    for (int i = 1; i < 200; ++i) {
        const auto v = vector3<TypeParam>(0.1 * i, 1.0 / i, 0.7);
        EXPECT_LE(valueOf(v.cos(v, 1e-9)), 1.0);
        EXPECT_GE(valueOf(v.cos(-v, 1e-9)), -1.0);
    }
}

TYPED_TEST(VrexVector3DTTest, AngleBetweenCoversZeroToPi) {
    const auto a = vector3<TypeParam>(0.0, 0.0, 2.0);
    for (const double angle : {0.0, 1e-9, 0.3, 1.5, 3.0, PI - 1e-9}) {
        const auto b = vector3<TypeParam>(5.0 * std::sin(angle), 0.0, 5.0 * std::cos(angle), 10);
        EXPECT_NEAR(valueOf(a.angleBetween(b, 1e-12)), angle, ROUNDING);
        EXPECT_NEAR(valueOf(b.angleBetween(a, 1e-12)), angle, ROUNDING);
    }
    EXPECT_EQ(valueOf(a.angleBetween(VrexVector3DT<TypeParam>::ZERO(), 1e-12)), 0.0);
}

TYPED_TEST(VrexVector3DTTest, NormalisesOnlyAboveTheTolerance) {
    const auto v = vector3<TypeParam>(2.0, 3.0, 6.0);
    const auto fallback = vector3<TypeParam>(7.0, 8.0, 9.0);
    EXPECT_EQ(valuesOf(v.makeNormalized(6.9, fallback)), (Values3{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0}));
    EXPECT_EQ(valuesOf(v.makeNormalized(7.0, fallback)), (Values3{7.0, 8.0, 9.0}));
    EXPECT_EQ(valuesOf(v.makeNormalized(NOT_A_NUMBER, fallback)), (Values3{7.0, 8.0, 9.0}));
    EXPECT_EQ(valuesOf(normalized(v, 6.9)), (Values3{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0}));
    EXPECT_EQ(valuesOf(normalized(v, 7.0)), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(normalized(VrexVector3DT<TypeParam>::ZERO(), 0.0)), (Values3{0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexVector3DTTest, ProjectionOnAPlaneDropsTheNormalPart) {
    const auto v = vector3<TypeParam>(1.0, 2.0, 3.0);
    expectNear(valuesOf(v.projectOnPlaneAtOrigin(vector3<TypeParam>(0.0, 0.0, -4.0, 10), 1e-9)),
               {1.0, 2.0, 0.0}, 4.0 * ROUNDING);
    // v - n (v.n) / (n.n) for n = (1, 1, 1)
    expectNear(valuesOf(v.projectOnPlaneAtOrigin(vector3<TypeParam>(1.0, 1.0, 1.0, 10), 1e-9)),
               {-1.0, 0.0, 1.0}, 4.0 * ROUNDING);
    EXPECT_EQ(valuesOf(v.projectOnPlaneAtOrigin(v * 2.0, 1e-9)), (Values3{0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexVector3DTTest, ProjectionIsZeroForACrossProductOfAtMostTheTolerance) {
    // (normal x v) x normal = (1e-10, 2e-10, 0): it scales with the square of the normal.
    const auto v = vector3<TypeParam>(1.0, 2.0, 3.0);
    const auto normal = vector3<TypeParam>(0.0, 0.0, 1e-5, 10);
    EXPECT_EQ(valuesOf(v.projectOnPlaneAtOrigin(normal, 1e-9)), (Values3{0.0, 0.0, 0.0}));
    expectNear(valuesOf(v.projectOnPlaneAtOrigin(normal, 1e-10)), {1.0, 2.0, 0.0}, 4.0 * ROUNDING);
}

TYPED_TEST(VrexVector3DTTest, ProjectionKeepsTheOrderOfItsFormula) {
    const auto cross = [](const Values3& a, const Values3& b) {
        return Values3{a[1] * b[2] - b[1] * a[2], b[0] * a[2] - a[0] * b[2], b[1] * a[0] - b[0] * a[1]};
    };
    const Values3 v{0.3, -0.7, 1.9};
    const Values3 n{0.11, 2.3, -0.45};
    const Values3 c = cross(cross(n, v), n);
    const double m = std::sqrt(c[0] * c[0] + c[1] * c[1] + c[2] * c[2]);
    const Values3 d{c[0] / m, c[1] / m, c[2] / m};
    const double along = v[0] * d[0] + v[1] * d[1] + v[2] * d[2];
    const auto projection = vector3<TypeParam>(v[0], v[1], v[2])
                                .projectOnPlaneAtOrigin(vector3<TypeParam>(n[0], n[1], n[2], 10), 1e-9);
    EXPECT_EQ(valuesOf(projection), (Values3{d[0] * along, d[1] * along, d[2] * along}));
}

TYPED_TEST(VrexVector3DTTest, EqualityIsStrictSoNeverWithToleranceZero) {
    const auto v = vector3<TypeParam>(1.0, 2.0, 3.0);
    EXPECT_FALSE(v.isEqual(v, 0.0));
    EXPECT_FALSE(v.isEqual(v, NOT_A_NUMBER));
    EXPECT_TRUE(v.isEqual(v, 1e-300));
    for (int i = 0; i < 3; ++i) {
        auto w = v;
        w[i] += 0.5;
        EXPECT_FALSE(v.isEqual(w, 0.5));
        EXPECT_TRUE(v.isEqual(w, 0.51));
        w[i] = TypeParam(NOT_A_NUMBER);
        EXPECT_FALSE(v.isEqual(w, INF));
    }
}

TYPED_TEST(VrexVector3DTTest, RotatedBasisIsTheShortestRotationOfTheZAxis) {
    for (const auto& [p, a] : anglePairs()) {
        const auto basis = VrexVector3DT<TypeParam>::getRotatedBasisVectors(number<TypeParam>(p, 0),
                                                                            number<TypeParam>(a, 1));
        const Values3 axis{-std::sin(a), std::cos(a), 0.0};
        expectNear(valuesOf(std::get<2>(basis)), rodrigues({0.0, 0.0, 1.0}, axis, p), ROUNDING);
        expectNear(valuesOf(std::get<0>(basis)), rodrigues({1.0, 0.0, 0.0}, axis, p), ROUNDING);
        expectNear(valuesOf(std::get<1>(basis)), rodrigues({0.0, 1.0, 0.0}, axis, p), ROUNDING);
    }
}

TYPED_TEST(VrexVector3DTTest, RotatedBasisKeepsTheOrderOfItsFormula) {
    const double p = 1.2;
    const double a = -2.5;
    const double cp = std::cos(p);
    const double sp = std::sin(p);
    const double ca = std::cos(a);
    const double sa = std::sin(a);
    const auto [x, y, z] =
        VrexVector3DT<TypeParam>::getRotatedBasisVectors(number<TypeParam>(p, 0), number<TypeParam>(a, 1));
    EXPECT_EQ(valuesOf(x), (Values3{cp * ca * ca + sa * sa, cp * ca * sa - ca * sa, -sp * ca}));
    EXPECT_EQ(valuesOf(y), (Values3{cp * ca * sa - ca * sa, cp * sa * sa + ca * ca, -sp * sa}));
    EXPECT_EQ(valuesOf(z), (Values3{sp * ca, sp * sa, cp}));
}

TYPED_TEST(VrexVector3DTTest, InverseRotatedBasisIsTheTransposedTriple) {
    const TypeParam p = number<TypeParam>(1.2, 0);
    const TypeParam a = number<TypeParam>(-2.5, 1);
    const auto [x, y, z] = VrexVector3DT<TypeParam>::getRotatedBasisVectors(p, a);
    const auto [e0, e1, e2] = VrexVector3DT<TypeParam>::getInverseRotatedBasisVectors(p, a);
    EXPECT_EQ(valuesOf(e0), (Values3{valueOf(x.x()), valueOf(y.x()), valueOf(z.x())}));
    EXPECT_EQ(valuesOf(e1), (Values3{valueOf(x.y()), valueOf(y.y()), valueOf(z.y())}));
    EXPECT_EQ(valuesOf(e2), (Values3{valueOf(x.z()), valueOf(y.z()), valueOf(z.z())}));
}

TYPED_TEST(VrexVector3DTTest, RotationMatrixAroundAnAxisComesInColumns) {
    const Values3 n{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0};
    const auto [e0, e1, e2] = VrexVector3DT<TypeParam>::getRotationMatrixAroundAxis(
        vector3<TypeParam>(n[0], n[1], n[2]), number<TypeParam>(0.8, 3));
    expectNear(valuesOf(e0), rodrigues({1.0, 0.0, 0.0}, n, 0.8), ROUNDING);
    expectNear(valuesOf(e1), rodrigues({0.0, 1.0, 0.0}, n, 0.8), ROUNDING);
    expectNear(valuesOf(e2), rodrigues({0.0, 0.0, 1.0}, n, 0.8), ROUNDING);
    const auto image = e0 * 1.0 + e1 * -2.0 + e2 * 0.5;
    expectNear(valuesOf(image), rodrigues({1.0, -2.0, 0.5}, n, 0.8), 4.0 * ROUNDING);
}

TYPED_TEST(VrexVector3DTTest, RotationMatrixKeepsTheOrderOfItsFormula) {
    // Several axes, since another order often rounds alike.
    const Values4 rows[] = {{0.3, -0.7, 1.9, 0.8},
                            {0.11, 2.3, -0.45, 1.7},
                            {-1.3, 0.77, 0.6, -2.9},
                            {-1.75, -0.62, -1.96, -2.37}};
    for (const auto& [x, y, z, angle] : rows) {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        const double t = 1.0 - c;
        const auto [e0, e1, e2] = VrexVector3DT<TypeParam>::getRotationMatrixAroundAxis(
            vector3<TypeParam>(x, y, z), number<TypeParam>(angle, 3));
        EXPECT_EQ(valuesOf(e0), (Values3{x * x * t + c, z * s + y * x * t, x * z * t - y * s}));
        EXPECT_EQ(valuesOf(e1), (Values3{y * x * t - z * s, y * y * t + c, x * s + y * z * t}));
        EXPECT_EQ(valuesOf(e2), (Values3{y * s + x * z * t, y * z * t - x * s, z * z * t + c}));
    }
}

TYPED_TEST(VrexVector3DTTest, RotationMatrixTakesTheAxisAsItIs) {
    const double c = std::cos(0.8);
    const double s = std::sin(0.8);
    const auto [e0, e1, e2] = VrexVector3DT<TypeParam>::getRotationMatrixAroundAxis(
        vector3<TypeParam>(0.0, 0.0, 2.0), number<TypeParam>(0.8, 3));
    EXPECT_EQ(valuesOf(e0), (Values3{c, 2.0 * s, 0.0}));
    EXPECT_EQ(valuesOf(e1), (Values3{-2.0 * s, c, 0.0}));
    EXPECT_EQ(valuesOf(e2), (Values3{0.0, 0.0, 4.0 * (1.0 - c) + c}));
}

TYPED_TEST(VrexVector3DTTest, InfiniteComponentsEndInNaN) {
    using Vector = VrexVector3DT<TypeParam>;
    const auto v = vector3<TypeParam>(INF, 1.0, -INF);
    const auto w = vector3<TypeParam>(1.0, 2.0, 3.0, 10);
    EXPECT_TRUE(std::isnan(valueOf(normalized(v, 1e-9).x())));
    EXPECT_TRUE(std::isnan(valueOf(v.cos(w, 1e-9))));
    EXPECT_TRUE(std::isnan(valueOf(v.angleBetween(w, 1e-9))));
    EXPECT_TRUE(std::isnan(valueOf(v.crossProduct(v).y())));
    EXPECT_TRUE(std::isnan(valueOf(v.distanceTo(v))));
    EXPECT_TRUE(std::isnan(valueOf(Vector::sphericalAnglesToCartesian(TypeParam(INF), TypeParam(0.0)).z())));
    EXPECT_TRUE(std::isnan(
        valueOf(std::get<0>(Vector::getRotatedBasisVectors(TypeParam(0.1), number<TypeParam>(INF, 0))).x())));
}

TEST(VrexVector3DT, MagnitudeOfZeroHasUndefinedDerivatives) {
    const VrexVariable magnitude = vector3<VrexVariable>(0.0, 0.0, 0.0).magnitude();
    EXPECT_EQ(magnitude.value(), 0.0);
    EXPECT_EQ(magnitude.derivatives().size(), 3U);
    EXPECT_TRUE(std::isnan(magnitude.derivatives()[0]));
}

TEST(VrexVector3DT, FallbackOfNormalisingKeepsItsOwnDerivatives) {
    const auto v = vector3<VrexVariable>(0.0, 0.3, 0.4, 0);
    const auto result = v.makeNormalized(0.6, vector3<VrexVariable>(7.0, 8.0, 9.0, 10));
    EXPECT_EQ(result.x().derivatives().size(), 1U);
    EXPECT_EQ(result.x().derivatives()[10], 1.0);
    EXPECT_EQ(result.y().derivatives()[11], 1.0);
    EXPECT_EQ(result.z().derivatives()[12], 1.0);
}

TEST(VrexVector3DT, BracesAreTheFirstComponentOutsideTheClass) {
    const VrexVector3DT<VrexVariable> v({}, 1.0, 2.0);
    EXPECT_EQ(valuesOf(v), (Values3{0.0, 1.0, 2.0}));
}

TEST(VrexVector3DT, EqualityIgnoresDerivatives) {
    EXPECT_TRUE(
        vector3<VrexVariable>(1.0, 2.0, 3.0, 0).isEqual(vector3<VrexVariable>(1.0, 2.0, 3.0, 9), 1e-9));
}

TEST(VrexVector3DT, ClampedCosineHasNoDerivatives) {
    VrexVariable above(1.0 + 1e-15);
    above.derivatives().set(3, 2.0);
    for (const double sign : {1.0, -1.0}) {
        const VrexVariable clamped = nsVectorFormulas::clampToUnitRange(above * sign);
        EXPECT_EQ(clamped.value(), sign);
        EXPECT_EQ(clamped.derivatives().size(), 0U);
    }
    EXPECT_EQ(nsVectorFormulas::clampToUnitRange(1.0 + 1e-15), 1.0);
    EXPECT_EQ(nsVectorFormulas::clampToUnitRange(-1.0 - 1e-15), -1.0);
}

TEST(VrexVector3DT, ClampKeepsTheDerivativesOfABoundAndOfNaN) {
    for (const double value : {1.0, -1.0, 0.25}) {
        VrexVariable bound(value);
        bound.derivatives().set(3, 2.0);
        const VrexVariable clamped = nsVectorFormulas::clampToUnitRange(bound);
        EXPECT_EQ(clamped.value(), value);
        EXPECT_EQ(clamped.derivatives()[3], 2.0);
    }
    EXPECT_TRUE(std::isnan(nsVectorFormulas::clampToUnitRange(NOT_A_NUMBER)));
    EXPECT_TRUE(std::isnan(nsVectorFormulas::clampToUnitRange(VrexVariable(NOT_A_NUMBER)).value()));
}

TEST(VrexVector3DT, DerivativesOfProductsMatchCentralDifferences) {
    const std::vector<double> inputs{0.7, -1.3, 0.4, 0.9, 1.1, -0.6};
    const auto check = [&](const auto& function) { expectDerivativesMatch(function, inputs, DIFFERENCE); };
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>(p[0], p[1], p[2]).dotProduct({p[3], p[4], p[5]});
    });
    for (int i = 0; i < 3; ++i) {
        check([i]<typename T>(const std::vector<T>& p) {
            return VrexVector3DT<T>(p[0], p[1], p[2]).crossProduct({p[3], p[4], p[5]})[i];
        });
        check([i]<typename T>(const std::vector<T>& p) {
            return normalized(VrexVector3DT<T>(p[0], p[1], p[2]), 1e-9)[i];
        });
        check([i]<typename T>(const std::vector<T>& p) {
            return VrexVector3DT<T>(p[0], p[1], p[2]).projectOnPlaneAtOrigin({p[3], p[4], p[5]}, 1e-9)[i];
        });
    }
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>(p[0], p[1], p[2]).distanceTo({p[3], p[4], p[5]});
    });
    check([]<typename T>(const std::vector<T>& p) {
        const VrexVector3DT<T> v(p[0], p[1], p[2]);
        return v.magnitude() + v.magnitudeSquared() * p[3];
    });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>::mixedProduct({p[0], p[1], p[2]}, {p[3], p[4], p[5]}, {p[5], p[0], p[3]});
    });
}

TEST(VrexVector3DT, DerivativesOfAnglesMatchCentralDifferences) {
    const std::vector<double> inputs{0.7, -1.3, 0.4, 0.9, 1.1, -0.6};
    const auto check = [&](const auto& function) { expectDerivativesMatch(function, inputs, DIFFERENCE); };
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>(p[0], p[1], p[2]).cos({p[3], p[4], p[5]}, 1e-9);
    });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>(p[0], p[1], p[2]).angleBetween({p[3], p[4], p[5]}, 1e-9);
    });
    check(
        []<typename T>(const std::vector<T>& p) { return VrexVector3DT<T>(p[0], p[1], p[2]).polarAngle(); });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector3DT<T>(p[0], p[1], p[2]).azimuthalAngle();
    });
}

TEST(VrexVector3DT, DerivativesOfFramesMatchCentralDifferences) {
    for (const auto& [polar, azimuthal] : anglePairs()) {
        for (int i = 0; i < 3; ++i) {
            const auto check = [polar = polar, azimuthal = azimuthal](const auto& function) {
                expectDerivativesMatch(function, {polar, azimuthal}, DIFFERENCE);
            };
            check([i]<typename T>(const std::vector<T>& p) {
                return VrexVector3DT<T>::sphericalAnglesToCartesian(p[0], p[1])[i];
            });
            check([i]<typename T>(const std::vector<T>& p) {
                return VrexVector3DT<T>::sphericalAnglesToCartesianPolarDerivative(p[0], p[1])[i];
            });
            check([i]<typename T>(const std::vector<T>& p) {
                return std::get<0>(VrexVector3DT<T>::getRotatedBasisVectors(p[0], p[1]))[i];
            });
            check([i]<typename T>(const std::vector<T>& p) {
                return std::get<1>(VrexVector3DT<T>::getRotatedBasisVectors(p[0], p[1]))[i];
            });
            check([i]<typename T>(const std::vector<T>& p) {
                return std::get<2>(VrexVector3DT<T>::getRotatedBasisVectors(p[0], p[1]))[i];
            });
        }
    }
    for (int i = 0; i < 3; ++i) {
        expectDerivativesMatch(
            [i]<typename T>(const std::vector<T>& p) {
                const auto [e0, e1, e2] =
                    VrexVector3DT<T>::getRotationMatrixAroundAxis({p[0], p[1], p[2]}, p[3]);
                return e0[i] + e1[i] * 2.0 + e2[i] * 3.0;
            },
            {0.3, -0.5, 0.7, 1.1}, DIFFERENCE);
    }
}
