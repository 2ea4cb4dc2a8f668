#include "data/VrexVector2DT.h"

#include <cmath>
#include <cstdint>
#include <type_traits>

#include "support/ExpectDerivativesMatch.h"
#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

/// A few roundings at values of the order of 1.
constexpr double ROUNDING = 1e-15;
/// The error of the central difference.
constexpr double DIFFERENCE = 1e-8;

static_assert(std::is_trivially_copyable_v<VrexVector2DT<double>>);
static_assert(sizeof(VrexVector2DT<double>) == 2 * sizeof(double));

} // namespace

template <typename T>
class VrexVector2DTTest : public ::testing::Test {};
TYPED_TEST_SUITE(VrexVector2DTTest, Scalars);

TYPED_TEST(VrexVector2DTTest, IsZeroByDefaultWithoutDerivatives) {
    const VrexVector2DT<TypeParam> v;
    EXPECT_EQ(valuesOf(v), (Values2{0.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexVector2DT<TypeParam>::Zero()), (Values2{0.0, 0.0}));
    if constexpr (std::is_same_v<TypeParam, VrexVariable>) {
        EXPECT_EQ(v.x().derivatives().size(), 0U);
    }
}

TYPED_TEST(VrexVector2DTTest, AxesAreUnitVectors) {
    EXPECT_EQ(valuesOf(VrexVector2DT<TypeParam>::OX()), (Values2{1.0, 0.0}));
    EXPECT_EQ(valuesOf(VrexVector2DT<TypeParam>::OY()), (Values2{0.0, 1.0}));
}

TYPED_TEST(VrexVector2DTTest, AnyIndexButZeroIsTheSecondComponent) {
    VrexVector2DT<TypeParam> v = vector2<TypeParam>(3.0, 4.0);
    const auto& constant = v;
    EXPECT_EQ(valueOf(constant[0]), 3.0);
    for (const int index : {1, 2, -1, 1000}) {
        EXPECT_EQ(&constant[index], &constant.y());
        EXPECT_EQ(&v[index], &v.y());
    }
    v[0] = TypeParam(7.0);
    v.y() = TypeParam(8.0);
    EXPECT_EQ(valuesOf(v), (Values2{7.0, 8.0}));
}

TYPED_TEST(VrexVector2DTTest, ArithmeticIsPerComponent) {
    const auto a = vector2<TypeParam>(3.0, -4.0);
    const auto b = vector2<TypeParam>(0.5, 8.0);
    EXPECT_EQ(valuesOf(a + b), (Values2{3.5, 4.0}));
    EXPECT_EQ(valuesOf(a - b), (Values2{2.5, -12.0}));
    EXPECT_EQ(valuesOf(-a), (Values2{-3.0, 4.0}));
    auto c = a;
    c += b;
    EXPECT_EQ(valuesOf(c), (Values2{3.5, 4.0}));
    c -= b;
    EXPECT_EQ(valuesOf(c), (Values2{3.0, -4.0}));
    c *= b;
    EXPECT_EQ(valuesOf(c), (Values2{1.5, -32.0}));
    c /= b;
    EXPECT_EQ(valuesOf(c), (Values2{3.0, -4.0}));
}

TYPED_TEST(VrexVector2DTTest, ScalesByAnyNumber) {
    const auto v = vector2<TypeParam>(3.0, -6.0);
    EXPECT_EQ(valuesOf(v * 2.0), (Values2{6.0, -12.0}));
    EXPECT_EQ(valuesOf(v * 2), (Values2{6.0, -12.0}));
    EXPECT_EQ(valuesOf(v.template operator*<double>(2.0)), (Values2{6.0, -12.0}));
    EXPECT_EQ(valuesOf(v.template operator*<int>(2)), (Values2{6.0, -12.0}));
    EXPECT_EQ(valuesOf(v * number<TypeParam>(0.5, 5)), (Values2{1.5, -3.0}));
    EXPECT_EQ(valuesOf(v / 3.0), (Values2{1.0, -2.0}));
    EXPECT_EQ(valuesOf(v / std::uint64_t{3}), (Values2{1.0, -2.0}));
    EXPECT_EQ(valuesOf(v / number<TypeParam>(3.0, 5)), (Values2{1.0, -2.0}));
    auto w = v;
    w *= 4;
    EXPECT_EQ(valuesOf(w), (Values2{12.0, -24.0}));
    w /= number<TypeParam>(8.0, 5);
    EXPECT_EQ(valuesOf(w), (Values2{1.5, -3.0}));
}

TYPED_TEST(VrexVector2DTTest, MayBeScaledByItsOwnComponent) {
    auto v = vector2<TypeParam>(4.0, 6.0);
    v *= v.x();
    EXPECT_EQ(valuesOf(v), (Values2{16.0, 24.0}));
    v /= v.x();
    EXPECT_EQ(valuesOf(v), (Values2{1.0, 1.5}));
    v += v;
    EXPECT_EQ(valuesOf(v), (Values2{2.0, 3.0}));
    const auto& same = v; // spelled otherwise, or clang takes it for a slip
    v /= same;
    EXPECT_EQ(valuesOf(v), (Values2{1.0, 1.0}));
}

TYPED_TEST(VrexVector2DTTest, ProductsAndLengths) {
    const auto a = vector2<TypeParam>(3.0, 4.0);
    const auto b = vector2<TypeParam>(-1.0, 1.0);
    EXPECT_EQ(valueOf(a.dotProduct(b)), 1.0);
    EXPECT_EQ(valueOf(a.extProduct(b)), 7.0);
    EXPECT_EQ(valueOf(b.extProduct(a)), -7.0);
    EXPECT_EQ(valueOf(a.magnitudeSquared()), 25.0);
    EXPECT_EQ(valueOf(a.magnitude()), 5.0);
    EXPECT_EQ(valueOf(a.distanceTo(b)), 5.0);
}

TYPED_TEST(VrexVector2DTTest, AngleCoversAllQuadrants) {
    for (const double angle : {0.0, 0.3, 1.7, 3.0, -0.3, -1.7, -3.0}) {
        const auto v = VrexVector2DT<TypeParam>::fromAngle(number<TypeParam>(angle, 0));
        EXPECT_EQ(valuesOf(v), (Values2{std::cos(angle), std::sin(angle)}));
        EXPECT_NEAR(valueOf((v * 3.0).angle()), angle, ROUNDING);
    }
}

TYPED_TEST(VrexVector2DTTest, SignedAngleIsPositiveCounterClockwise) {
    const auto a = VrexVector2DT<TypeParam>::fromAngle(TypeParam(0.25)) * 3.0;
    const auto b = VrexVector2DT<TypeParam>::fromAngle(TypeParam(2.0)) * 0.5;
    EXPECT_NEAR(valueOf(a.signedAngleToDirection(b)), 1.75, ROUNDING);
    EXPECT_NEAR(valueOf(b.signedAngleToDirection(a)), -1.75, ROUNDING);
}

TYPED_TEST(VrexVector2DTTest, RotationAndOrthogonal) {
    const auto v = vector2<TypeParam>(3.0, 4.0);
    EXPECT_EQ(valuesOf(v.makeOrthogonal()), (Values2{-4.0, 3.0}));
    expectNear(valuesOf(v.makeRotated(TypeParam(PI / 2.0))), {-4.0, 3.0}, 4.0 * ROUNDING);
    const double angle = std::atan2(4.0, 3.0) + 0.6;
    expectNear(valuesOf(v.makeRotated(TypeParam(0.6))), {5.0 * std::cos(angle), 5.0 * std::sin(angle)},
               4.0 * ROUNDING);
}

TYPED_TEST(VrexVector2DTTest, RotationKeepsTheOrderOfItsFormula) {
    for (const double angle : {0.6, 1.1, -2.3}) {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        const auto turned = vector2<TypeParam>(0.3, -0.7).makeRotated(number<TypeParam>(angle, 5));
        EXPECT_EQ(valuesOf(turned), (Values2{c * 0.3 - s * -0.7, s * 0.3 + c * -0.7}));
    }
}

TYPED_TEST(VrexVector2DTTest, ComponentWiseExtremesSelectByValue) {
    using Vector = VrexVector2DT<TypeParam>;
    const auto a = vector2<TypeParam>(1.0, 5.0, 0);
    const auto b = vector2<TypeParam>(2.0, 4.0, 10);
    EXPECT_EQ(valuesOf(Vector::cwiseMax(a, b)), (Values2{2.0, 5.0}));
    EXPECT_EQ(valuesOf(Vector::cwiseMin(a, b)), (Values2{1.0, 4.0}));
}

TYPED_TEST(VrexVector2DTTest, ComponentWiseExtremesTakeTheFirstWhenNeitherIsGreater) {
    using Vector = VrexVector2DT<TypeParam>;
    const auto zero = vector2<TypeParam>(0.0, 0.0);
    const auto negative = vector2<TypeParam>(-0.0, -0.0, 10);
    const auto number = vector2<TypeParam>(1.0, 1.0);
    const auto none = vector2<TypeParam>(NOT_A_NUMBER, NOT_A_NUMBER, 10);
    for (const auto extreme : {&Vector::cwiseMax, &Vector::cwiseMin}) {
        for (int i = 0; i < 2; ++i) {
            EXPECT_FALSE(std::signbit(valueOf(extreme(zero, negative)[i])));
            EXPECT_TRUE(std::signbit(valueOf(extreme(negative, zero)[i])));
            EXPECT_EQ(valueOf(extreme(number, none)[i]), 1.0);
            EXPECT_TRUE(std::isnan(valueOf(extreme(none, number)[i])));
        }
    }
}

TEST(VrexVector2DT, ComponentWiseExtremesAreCopiesWithTheDerivativesOfTheWinnerAlone) {
    using Vector = VrexVector2DT<VrexVariable>;
    const auto a = vector2<VrexVariable>(1.0, 5.0, 0);
    const auto b = vector2<VrexVariable>(2.0, 5.0, 10);
    const auto expectKey = [](const VrexVariable& component, std::uint64_t key) {
        EXPECT_EQ(component.derivatives().size(), 1U);
        EXPECT_EQ(component.derivatives()[key], 1.0) << key;
    };
    expectKey(Vector::cwiseMax(a, b).x(), 10);
    expectKey(Vector::cwiseMin(a, b).x(), 0);
    expectKey(Vector::cwiseMax(a, b).y(), 1);
    expectKey(Vector::cwiseMin(a, b).y(), 1);
}

TEST(VrexVector2DT, FallbackOfNormalisingKeepsItsOwnDerivatives) {
    const auto v = vector2<VrexVariable>(0.3, 0.4, 0);
    const auto result = v.makeNormalized(0.6, vector2<VrexVariable>(7.0, 8.0, 10));
    EXPECT_EQ(result.x().derivatives().size(), 1U);
    EXPECT_EQ(result.x().derivatives()[10], 1.0);
    EXPECT_EQ(result.y().derivatives()[11], 1.0);
}

TEST(VrexVector2DT, BracesAreTheFirstComponentOutsideTheClass) {
    const VrexVector2DT<VrexVariable> v({}, 1.0);
    EXPECT_EQ(valuesOf(v), (Values2{0.0, 1.0}));
}

TYPED_TEST(VrexVector2DTTest, NormalisesOnlyAboveTheTolerance) {
    const auto v = vector2<TypeParam>(3.0, 4.0);
    const auto fallback = vector2<TypeParam>(7.0, 8.0);
    expectNear(valuesOf(v.makeNormalized(4.9, fallback)), {0.6, 0.8}, ROUNDING);
    EXPECT_EQ(valuesOf(v.makeNormalized(5.0, fallback)), (Values2{7.0, 8.0}));
    EXPECT_EQ(valuesOf(VrexVector2DT<TypeParam>::Zero().makeNormalized(0.0, fallback)), (Values2{7.0, 8.0}));
    EXPECT_EQ(valuesOf(v.makeNormalized(NOT_A_NUMBER, fallback)), (Values2{7.0, 8.0}));
}

TYPED_TEST(VrexVector2DTTest, EqualityIsStrictSoNeverWithToleranceZero) {
    const auto v = vector2<TypeParam>(1.0, 2.0);
    EXPECT_FALSE(v.isEqual(v, 0.0));
    EXPECT_FALSE(v.isEqual(v, NOT_A_NUMBER));
    EXPECT_TRUE(v.isEqual(v, 1e-300));
    EXPECT_FALSE(v.isEqual(vector2<TypeParam>(1.5, 2.0), 0.5));
    EXPECT_TRUE(v.isEqual(vector2<TypeParam>(1.5, 2.25), 0.51));
    EXPECT_FALSE(v.isEqual(vector2<TypeParam>(1.0, NOT_A_NUMBER), 1.0));
}

TYPED_TEST(VrexVector2DTTest, InfiniteComponentsEndInNaN) {
    const auto v = vector2<TypeParam>(INF, 1.0);
    EXPECT_TRUE(std::isnan(valueOf(v.makeNormalized(1e-9, VrexVector2DT<TypeParam>::Zero()).x())));
    EXPECT_TRUE(std::isnan(valueOf((v - v).magnitude())));
}

TEST(VrexVector2DT, EqualityIgnoresDerivatives) {
    EXPECT_TRUE(vector2<VrexVariable>(1.0, 2.0, 0).isEqual(vector2<VrexVariable>(1.0, 2.0, 9), 1e-9));
}

TEST(VrexVector2DT, DerivativesMatchCentralDifferences) {
    const std::vector<double> inputs{0.7, -1.3, 0.4, 0.9};
    const auto check = [&](const auto& function) { expectDerivativesMatch(function, inputs, DIFFERENCE); };
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector2DT<T>(p[0], p[1]).dotProduct({p[2], p[3]});
    });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector2DT<T>(p[0], p[1]).extProduct({p[2], p[3]});
    });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector2DT<T>(p[0], p[1]).distanceTo({p[2], p[3]});
    });
    check([]<typename T>(const std::vector<T>& p) {
        return VrexVector2DT<T>(p[0], p[1]).signedAngleToDirection({p[2], p[3]});
    });
    check([]<typename T>(const std::vector<T>& p) {
        const auto v = VrexVector2DT<T>(p[0], p[1]).makeRotated(p[2]).makeNormalized(1e-9, {});
        return v.x() * 3.0 + v.y() * p[3];
    });
    check([]<typename T>(const std::vector<T>& p) {
        auto v = VrexVector2DT<T>::fromAngle(p[0]) * p[1];
        v *= p[2];
        v /= VrexVector2DT<T>(p[3], p[1]);
        return v.angle() + v.magnitudeSquared();
    });
}
