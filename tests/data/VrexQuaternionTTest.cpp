#include "data/VrexQuaternionT.h"

#include <cmath>
#include <type_traits>

#include "support/ExpectDerivativesMatch.h"
#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

/// A few roundings at values of the order of 1.
constexpr double ROUNDING = 2e-15;
/// The error of the central difference.
constexpr double DIFFERENCE = 1e-8;
constexpr double EPS = 1e-10;

static_assert(std::is_trivially_copyable_v<VrexQuaternionT<double>>);
static_assert(sizeof(VrexQuaternionT<double>) == 4 * sizeof(double));
static_assert(!std::is_constructible_v<VrexQuaternionT<double>, double, VrexVector3DT<double>>);

template <typename T>
VrexVector3DT<T> direction(const Values3& v, std::size_t firstKey = 0) {
    return vector3<T>(v[0], v[1], v[2], firstKey);
}

} // namespace

template <typename T>
class VrexQuaternionTTest : public ::testing::Test {
protected:
    using Quaternion = VrexQuaternionT<T>;
    using Vector = VrexVector3DT<T>;
};
TYPED_TEST_SUITE(VrexQuaternionTTest, Scalars);

TYPED_TEST(VrexQuaternionTTest, PartsAreScalarThenVector) {
    auto q = quaternion<TypeParam>(1.0, 2.0, 3.0, 4.0);
    const auto& constant = q;
    EXPECT_EQ(valueOf(constant.scalar()), 1.0);
    EXPECT_EQ(valuesOf(constant.vector()), (Values3{2.0, 3.0, 4.0}));
    EXPECT_EQ(&constant.i(), &constant.vector().x());
    EXPECT_EQ(&constant.j(), &constant.vector().y());
    EXPECT_EQ(&constant.k(), &constant.vector().z());
    q.scalar() = TypeParam(5.0);
    q.i() = TypeParam(6.0);
    q.j() = TypeParam(7.0);
    q.k() = TypeParam(8.0);
    EXPECT_EQ(valuesOf(q), (Values4{5.0, 6.0, 7.0, 8.0}));
    q.vector() = TestFixture::Vector::OY();
    EXPECT_EQ(valuesOf(q), (Values4{5.0, 0.0, 1.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, OneIsTheIdentity) {
    EXPECT_EQ(valuesOf(VrexQuaternionT<TypeParam>::ONE()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, AngleAndAxisGiveHalfTheAngle) {
    const auto q = TestFixture::Quaternion::makeFromAngleAndAxis(number<TypeParam>(0.8, 9),
                                                                 vector3<TypeParam>(4.0, 6.0, 12.0), EPS);
    const double s = std::sin(0.4);
    expectNear(valuesOf(q), {std::cos(0.4), s * 2.0 / 7.0, s * 3.0 / 7.0, s * 6.0 / 7.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, AngleAndAxisKeepTheOrderOfTheirFormula) {
    const Values3 n{0.3, -0.7, 1.9};
    const auto q = TestFixture::Quaternion::makeFromAngleAndAxis(number<TypeParam>(1.7, 9),
                                                                 direction<TypeParam>(n), EPS);
    const double m = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    const double s = std::sin(1.7 * 0.5);
    EXPECT_EQ(valuesOf(q), (Values4{std::cos(1.7 * 0.5), n[0] / m * s, n[1] / m * s, n[2] / m * s}));
}

TYPED_TEST(VrexQuaternionTTest, AnAxisOfAtMostTheToleranceCountsAsZero) {
    const auto q = TestFixture::Quaternion::makeFromAngleAndAxis(number<TypeParam>(0.8, 9),
                                                                 vector3<TypeParam>(0.0, 0.0, 0.5), 0.5);
    EXPECT_EQ(valuesOf(q), (Values4{std::cos(0.4), 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, UnitsMultiplyByHamiltonsRule) {
    const auto one = quaternion<TypeParam>(1.0, 0.0, 0.0, 0.0);
    const auto i = quaternion<TypeParam>(0.0, 1.0, 0.0, 0.0);
    const auto j = quaternion<TypeParam>(0.0, 0.0, 1.0, 0.0, 10);
    const auto k = quaternion<TypeParam>(0.0, 0.0, 0.0, 1.0, 20);
    EXPECT_EQ(valuesOf(i * j), valuesOf(k));
    EXPECT_EQ(valuesOf(j * k), valuesOf(i));
    EXPECT_EQ(valuesOf(k * i), valuesOf(j));
    EXPECT_EQ(valuesOf(j * i), (Values4{0.0, 0.0, 0.0, -1.0}));
    EXPECT_EQ(valuesOf(i * i), (Values4{-1.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(one * k), valuesOf(k));
}

TYPED_TEST(VrexQuaternionTTest, ProductKeepsTheOrderOfItsFormula) {
    const Values4 a{0.3, -0.7, 0.11, 1.9};
    const Values4 b{-0.2, 0.45, 2.3, 0.77};
    const auto product =
        quaternion<TypeParam>(a[0], a[1], a[2], a[3]) * quaternion<TypeParam>(b[0], b[1], b[2], b[3], 10);
    EXPECT_EQ(valuesOf(product), (Values4{a[0] * b[0] - (a[1] * b[1] + a[2] * b[2] + a[3] * b[3]),
                                          b[1] * a[0] + a[1] * b[0] + (a[2] * b[3] - b[2] * a[3]),
                                          b[2] * a[0] + a[2] * b[0] + (b[1] * a[3] - a[1] * b[3]),
                                          b[3] * a[0] + a[3] * b[0] + (b[2] * a[1] - b[1] * a[2])}));
}

TYPED_TEST(VrexQuaternionTTest, ScalesAllFourParts) {
    const auto q = quaternion<TypeParam>(1.0, 2.0, -3.0, 4.0);
    EXPECT_EQ(valuesOf(q * 2.0), (Values4{2.0, 4.0, -6.0, 8.0}));
    EXPECT_EQ(valuesOf(q * 2), (Values4{2.0, 4.0, -6.0, 8.0}));
    EXPECT_EQ(valuesOf(q * number<TypeParam>(0.5, 9)), (Values4{0.5, 1.0, -1.5, 2.0}));
}

TYPED_TEST(VrexQuaternionTTest, ConjugateNormAndReciprocal) {
    const auto q = quaternion<TypeParam>(1.0, 1.0, -5.0, 3.0);
    EXPECT_EQ(valuesOf(q.conjugate()), (Values4{1.0, -1.0, 5.0, -3.0}));
    EXPECT_EQ(valueOf(q.normSquared()), 36.0);
    EXPECT_EQ(valueOf(q.norm()), 6.0);
    const double r = 1.0 / 36.0;
    EXPECT_EQ(valuesOf(q.reciprocal()), (Values4{r, -r, 5.0 * r, -3.0 * r}));
    expectNear(valuesOf(q * q.reciprocal()), {1.0, 0.0, 0.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, NormalizedDividesByTheNorm) {
    const auto q = quaternion<TypeParam>(1.0, 1.0, -5.0, 3.0);
    EXPECT_EQ(valuesOf(q.normalized(EPS)), (Values4{1.0 / 6.0, 1.0 / 6.0, -5.0 / 6.0, 3.0 / 6.0}));
}

TYPED_TEST(VrexQuaternionTTest, NormalizedLeavesANormOfAtMostTheToleranceUnchanged) {
    const auto q = quaternion<TypeParam>(1.0, 1.0, -5.0, 3.0);
    EXPECT_EQ(valuesOf(q.normalized(6.0)), (Values4{1.0, 1.0, -5.0, 3.0}));
    EXPECT_EQ(valuesOf(q.normalized(5.9)), (Values4{1.0 / 6.0, 1.0 / 6.0, -5.0 / 6.0, 3.0 / 6.0}));
}

TYPED_TEST(VrexQuaternionTTest, ReciprocalOfZeroIsNaN) {
    const auto zero = quaternion<TypeParam>(0.0, 0.0, 0.0, 0.0);
    for (const double part : valuesOf(zero.reciprocal())) {
        EXPECT_TRUE(std::isnan(part));
    }
    const auto turned = TestFixture::Quaternion::rotate(vector3<TypeParam>(1.0, 2.0, 3.0, 10), zero, true);
    for (const double component : valuesOf(turned)) {
        EXPECT_TRUE(std::isnan(component));
    }
}

TYPED_TEST(VrexQuaternionTTest, InfinitePartsEndInNaN) {
    const auto q = quaternion<TypeParam>(INF, 1.0, 0.0, 0.0);
    EXPECT_TRUE(std::isnan(valueOf(q.normalized(EPS).scalar())));
    EXPECT_TRUE(std::isnan(valueOf((q * q.conjugate()).i())));
    const auto v = vector3<TypeParam>(1.0, 2.0, INF, 10);
    const auto turned = TestFixture::Quaternion::rotate(v, quaternion<TypeParam>(0.6, 0.8, 0.0, 0.0), false);
    EXPECT_TRUE(std::isnan(valueOf(turned.x())));
}

TYPED_TEST(VrexQuaternionTTest, RotateTurnsAboutTheAxis) {
    const Values3 n{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0};
    const auto v = vector3<TypeParam>(1.0, -2.0, 0.5, 10);
    for (const double angle : {0.0, 0.3, 2.0, PI, 5.0}) {
        const auto axis = direction<TypeParam>(n);
        const auto q = TestFixture::Quaternion::makeFromAngleAndAxis(TypeParam(angle), axis, EPS);
        const Values3 expected = rodrigues({1.0, -2.0, 0.5}, n, angle);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(v, q, false)), expected, ROUNDING);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(v, q, true)), expected, ROUNDING);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(v, TypeParam(angle), axis, EPS)), expected,
                   ROUNDING);
    }
}

TYPED_TEST(VrexQuaternionTTest, OnlyTheReciprocalIsExactForAnyLength) {
    const Values3 n{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0};
    const auto unit = TestFixture::Quaternion::makeFromAngleAndAxis(number<TypeParam>(1.1, 20),
                                                                    direction<TypeParam>(n), EPS);
    const auto v = vector3<TypeParam>(1.0, -2.0, 0.5, 10);
    const Values3 turned = rodrigues({1.0, -2.0, 0.5}, n, 1.1);
    expectNear(valuesOf(TestFixture::Quaternion::rotate(v, unit * 3.0, true)), turned, ROUNDING);
    expectNear(valuesOf(TestFixture::Quaternion::rotate(v, unit * 3.0, false)),
               {9.0 * turned[0], 9.0 * turned[1], 9.0 * turned[2]}, 20.0 * ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, ProductTurnsByTheRightOperandFirst) {
    const auto a =
        TestFixture::Quaternion::makeFromAngleAndAxis(TypeParam(0.7), TestFixture::Vector::OX(), EPS);
    const auto b =
        TestFixture::Quaternion::makeFromAngleAndAxis(TypeParam(1.9), TestFixture::Vector::OZ(), EPS);
    const auto v = vector3<TypeParam>(1.0, -2.0, 0.5);
    const Values3 first = rodrigues({1.0, -2.0, 0.5}, {0.0, 0.0, 1.0}, 1.9);
    expectNear(valuesOf(TestFixture::Quaternion::rotate(v, a * b, false)),
               rodrigues(first, {1.0, 0.0, 0.0}, 0.7), ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, RotationTakesFromToTo) {
    const Values3 from{1.0, 2.0, 2.0};
    const double angles[] = {1e-3, 0.5, 2.0, 3.1};
    for (const double angle : angles) {
        const Values3 to = rodrigues(from, {0.0, -0.6, 0.8}, angle);
        const auto q = TestFixture::Quaternion::makeRotation(
            direction<TypeParam>(from), direction<TypeParam>(to, 10) * 5.0, EPS, TestFixture::Vector::OX());
        expectNear(valuesOf(TestFixture::Quaternion::rotate(direction<TypeParam>(from), q, false)), to,
                   2.0 * ROUNDING);
        EXPECT_NEAR(valueOf(q.norm()), 1.0, ROUNDING);
    }
}

TYPED_TEST(VrexQuaternionTTest, RotationBetweenEqualDirectionsIsTheIdentity) {
    const auto v = vector3<TypeParam>(1.0, 2.0, 3.0);
    const auto q = TestFixture::Quaternion::makeRotation(v, v, EPS, TestFixture::Vector::OX());
    EXPECT_EQ(valuesOf(q), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, RotationBetweenNearlyEqualDirectionsKeepsTheTinyAngle) {
    const double angle = 1e-12;
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 0.0),
                                                         vector3<TypeParam>(1.0, angle, 0.0, 10), EPS,
                                                         TestFixture::Vector::OX());
    EXPECT_EQ(valuesOf(q), (Values4{1.0, 0.0, 0.0, angle / 2.0}));
}

TYPED_TEST(VrexQuaternionTTest, RotationIsByTheHalvedCrossProductBelowTheTolerance) {
    // The cross product, of magnitude 0.01, would count as zero if it were made an axis at this tolerance.
    const double angle = std::asin(0.01);
    const auto q = TestFixture::Quaternion::makeRotation(
        vector3<TypeParam>(1.0, 0.0, 0.0), vector3<TypeParam>(std::cos(angle), std::sin(angle), 0.0, 10),
        0.0101, TestFixture::Vector::OX());
    expectNear(valuesOf(q), {std::cos(angle / 2.0), 0.0, 0.0, std::sin(angle / 2.0)}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, RotationMakesAnAxisOfACrossProductAsLongAsTheTolerance) {
    // The axis, of magnitude 1, is then not longer than the tolerance and counts as zero.
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(2.0, 0.0, 0.0),
                                                         vector3<TypeParam>(0.0, 2.0, 0.0, 10), 1.0,
                                                         TestFixture::Vector::OX());
    expectNear(valuesOf(q), {std::cos(PI / 4.0), 0.0, 0.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, OrthogonalDirectionsBelowTheToleranceCountAsOpposite) {
    // The half turn about the hint (0, 1, 0), then -90 degrees about Z.
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(2.0, 0.0, 0.0),
                                                         vector3<TypeParam>(0.0, 2.0, 0.0, 10), 1.5,
                                                         vector3<TypeParam>(0.0, 3.0, 0.0, 20));
    expectNear(valuesOf(q), {0.0, std::sqrt(0.5), std::sqrt(0.5), 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, RotationOfADirectionAsLongAsTheToleranceIsNotTheIdentity) {
    // The first direction passes as long enough and is then normalised to zero. So is the axis of the half
    // turn; the turn before it is by atan2(0, -0) = pi, and each brings the cosine of a right angle.
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 0.0),
                                                         vector3<TypeParam>(0.0, 2.0, 0.0, 10), 1.0,
                                                         TestFixture::Vector::OX());
    const double cosine = std::cos(PI / 2.0);
    EXPECT_EQ(valuesOf(q), (Values4{cosine * cosine, 0.0, 0.0, 0.0}));
    // Likewise for the second direction, but with an axis long enough: (0, 0, 2).
    const auto to = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(2.0, 0.0, 0.0),
                                                          vector3<TypeParam>(0.0, 1.0, 0.0, 10), 1.0,
                                                          TestFixture::Vector::OX());
    EXPECT_EQ(valuesOf(to), (Values4{cosine * cosine, 0.0, 0.0, cosine}));
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnIsAboutAHintOrthogonalToFrom) {
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 0.0),
                                                         vector3<TypeParam>(-1.0, 0.0, 0.0, 10), EPS,
                                                         TestFixture::Vector::OZ());
    expectNear(valuesOf(q), {0.0, 0.0, 0.0, 1.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnIsAboutFromCrossYWhenTheHintIsParallel) {
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 0.0),
                                                         vector3<TypeParam>(-1.0, 0.0, 0.0, 10), EPS,
                                                         TestFixture::Vector::OX());
    expectNear(valuesOf(q), {0.0, 0.0, 0.0, 1.0}, ROUNDING);
    const auto slanted = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 1.0),
                                                               vector3<TypeParam>(-1.0, 0.0, -1.0, 10), EPS,
                                                               vector3<TypeParam>(1.0, 0.0, 1.0, 20));
    // (1, 0, 1) x (0, 1, 0) = (-1, 0, 1)
    expectNear(valuesOf(slanted), {0.0, -std::sqrt(0.5), 0.0, std::sqrt(0.5)}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnOfTheYAxisIsAboutFromCrossZ) {
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(0.0, 1.0, 0.0),
                                                         vector3<TypeParam>(0.0, -3.0, 0.0, 10), EPS,
                                                         TestFixture::Vector::OY());
    expectNear(valuesOf(q), {0.0, 1.0, 0.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnTestsTheHintAgainstFromAsGiven) {
    // from . hint is 0.9e-10 for the short vector and 0.6 for its direction: the hint wins for the short one.
    const auto hint = vector3<TypeParam>(0.6, 0.0, 0.8, 20);
    const double eps = 1e-10;
    const auto q = TestFixture::Quaternion::makeRotation(
        vector3<TypeParam>(1.5e-10, 0.0, 0.0), vector3<TypeParam>(-1.5e-10, 0.0, 0.0, 10), eps, hint);
    expectNear(valuesOf(q), {0.0, 0.6, 0.0, 0.8}, ROUNDING);
    const auto unit = TestFixture::Quaternion::makeRotation(
        vector3<TypeParam>(1.0, 0.0, 0.0), vector3<TypeParam>(-1.0, 0.0, 0.0, 10), eps, hint);
    expectNear(valuesOf(unit), {0.0, 0.0, 0.0, 1.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnIsNotAboutAHintAsFarFromOrthogonalAsTheTolerance) {
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(1.0, 0.0, 0.0),
                                                         vector3<TypeParam>(-1.0, 0.0, 0.0, 10), 0.5,
                                                         vector3<TypeParam>(0.5, 0.0, 1.0, 20));
    expectNear(valuesOf(q), {0.0, 0.0, 0.0, 1.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, HalfTurnCrossesFromAsGivenWithTheAxes) {
    // from x OY is 0.5e-10 long as given, and so too short, but 0.24 long by direction.
    const auto q = TestFixture::Quaternion::makeRotation(vector3<TypeParam>(0.5e-10, 2e-10, 0.0),
                                                         vector3<TypeParam>(-0.5e-10, -2e-10, 0.0, 10), 1e-10,
                                                         vector3<TypeParam>(1e10, 4e10, 0.0, 20));
    expectNear(valuesOf(q), {0.0, 4.0 / std::sqrt(17.0), -1.0 / std::sqrt(17.0), 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, NearlyOppositeDirectionsAreReachedBeyondTheHalfTurn) {
    const Values3 to{-1.0, 1e-12, 0.0};
    const auto from = vector3<TypeParam>(1.0, 0.0, 0.0);
    // The half turn about Y flips the rest if it came first; the one about Z does not.
    for (const auto& hint : {TestFixture::Vector::OY(), TestFixture::Vector::OZ()}) {
        const auto q = TestFixture::Quaternion::makeRotation(from, direction<TypeParam>(to, 10), EPS, hint);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(from, q, false)), to, 1e-15);
    }
}

TYPED_TEST(VrexQuaternionTTest, RotationOfATooShortDirectionIsTheIdentity) {
    const auto v = vector3<TypeParam>(1.0, 2.0, 2.0);
    const auto hint = TestFixture::Vector::OX();
    EXPECT_EQ(valuesOf(TestFixture::Quaternion::makeRotation(TestFixture::Vector::ZERO(), v, EPS, hint)),
              (Values4{1.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(TestFixture::Quaternion::makeRotation(v, TestFixture::Vector::OY(), 1.1, hint)),
              (Values4{1.0, 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, RotationOfAnInfiniteDirectionIsNaN) {
    const auto v = vector3<TypeParam>(INF, 2.0, 2.0);
    const auto q =
        TestFixture::Quaternion::makeRotation(v, TestFixture::Vector::OY(), EPS, TestFixture::Vector::OX());
    for (const double part : valuesOf(q)) {
        EXPECT_TRUE(std::isnan(part));
    }
}

TYPED_TEST(VrexQuaternionTTest, CoordinateSystemRotationTakesBothAxes) {
    const Values3 a1{0.0, 0.6, 0.8};
    const Values3 a2{0.0, -0.8, 0.6};
    const Values3 n{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0};
    for (const double angle : {0.0, 0.4, 2.0, PI}) {
        const Values3 b1 = rodrigues(a1, n, angle);
        const Values3 b2 = rodrigues(a2, n, angle);
        const auto q = TestFixture::Quaternion::makeRotationOfInitialCoordinateSystem(
            direction<TypeParam>(a1), direction<TypeParam>(a2), direction<TypeParam>(b1, 10),
            direction<TypeParam>(b2, 20), EPS);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(direction<TypeParam>(a1), q, false)), b1,
                   2.0 * ROUNDING);
        expectNear(valuesOf(TestFixture::Quaternion::rotate(direction<TypeParam>(a2), q, false)), b2,
                   2.0 * ROUNDING);
    }
}

TYPED_TEST(VrexQuaternionTTest, CoordinateSystemRotationStartsFromXAndZ) {
    const auto b1 = vector3<TypeParam>(0.0, 0.0, 1.0);
    const auto b2 = vector3<TypeParam>(0.0, 1.0, 0.0, 10);
    const auto q = TestFixture::Quaternion::makeRotationOfCoordinateSystem(b1, b2, EPS);
    expectNear(valuesOf(TestFixture::Quaternion::rotate(TestFixture::Vector::OX(), q, false)),
               {0.0, 0.0, 1.0}, ROUNDING);
    expectNear(valuesOf(TestFixture::Quaternion::rotate(TestFixture::Vector::OZ(), q, false)),
               {0.0, 1.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, CoordinateSystemRotationTurnsAnOppositeSecondAxisAboutTheFirst) {
    const auto q = TestFixture::Quaternion::makeRotationOfCoordinateSystem(
        vector3<TypeParam>(1.0, 0.0, 0.0), vector3<TypeParam>(0.0, 0.0, -1.0, 10), EPS);
    expectNear(valuesOf(q), {0.0, 1.0, 0.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexQuaternionTTest, CoordinateSystemRotationTurnsAnOppositeFirstAxisAboutX) {
    // Without X as the hint, the axis would be a1 x OY, and for two of these -X.
    const Values3 rows[] = {{0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.6, 0.8}};
    for (const Values3& a1 : rows) {
        const auto q = TestFixture::Quaternion::makeRotationOfInitialCoordinateSystem(
            direction<TypeParam>(a1), TestFixture::Vector::OX(), -direction<TypeParam>(a1, 10),
            TestFixture::Vector::OX(), EPS);
        expectNear(valuesOf(q), {0.0, 1.0, 0.0, 0.0}, ROUNDING);
    }
}

TYPED_TEST(VrexQuaternionTTest, AngleAndAxisComeBack) {
    for (const double angle : {0.1, 1.0, PI, 4.0, 6.2}) {
        const auto q = TestFixture::Quaternion::makeFromAngleAndAxis(number<TypeParam>(angle, 9),
                                                                     vector3<TypeParam>(2.0, 3.0, 6.0), EPS);
        EXPECT_NEAR(valueOf(q.rotationalAngle()), angle, 50.0 * ROUNDING);
        expectNear(valuesOf(q.rotationalAxis(EPS)), {2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0}, ROUNDING);
    }
}

TYPED_TEST(VrexQuaternionTTest, RotationalAngleClampsTheScalar) {
    EXPECT_EQ(valueOf(quaternion<TypeParam>(1.5, 0.0, 0.0, 0.0).rotationalAngle()), 0.0);
    EXPECT_EQ(valueOf(quaternion<TypeParam>(-1.5, 0.0, 0.0, 0.0).rotationalAngle()), 2.0 * std::acos(-1.0));
    EXPECT_TRUE(std::isnan(valueOf(quaternion<TypeParam>(NOT_A_NUMBER, 0.0, 0.0, 0.0).rotationalAngle())));
}

TYPED_TEST(VrexQuaternionTTest, AxisOfTheIdentityIsX) {
    EXPECT_EQ(valuesOf(TestFixture::Quaternion::ONE().rotationalAxis(EPS)), (Values3{1.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(quaternion<TypeParam>(1.0, 0.0, 0.5, 0.0).rotationalAxis(0.5)),
              (Values3{1.0, 0.0, 0.0}));
}

TYPED_TEST(VrexQuaternionTTest, AxisIsTestedAgainstTheToleranceAgainAsAUnitVector) {
    const auto q = quaternion<TypeParam>(0.0, 0.0, 3.0, 0.0);
    EXPECT_EQ(valuesOf(q.rotationalAxis(1.0)), (Values3{0.0, 1.0, 0.0}));
    EXPECT_EQ(valuesOf(q.rotationalAxis(2.0)), (Values3{1.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(TestFixture::Quaternion::ONE().rotationalAxis(0.0)), (Values3{0.0, 0.0, 0.0}));
}

TEST(VrexQuaternionT, ClampedAngleHasNoDerivatives) {
    EXPECT_EQ(quaternion<VrexVariable>(1.5, 0.0, 0.0, 0.0).rotationalAngle().derivatives().size(), 0U);
    EXPECT_EQ(quaternion<VrexVariable>(1.0, 0.0, 0.0, 0.0).rotationalAngle().derivatives().size(), 1U);
}

TEST(VrexQuaternionT, RotationBetweenEqualOrOppositeDirectionsHasUndefinedDerivatives) {
    const auto v = vector3<VrexVariable>(1.0, 2.0, 3.0);
    for (const auto& to : {v, -v}) {
        const auto q =
            VrexQuaternionT<VrexVariable>::makeRotation(v, to, EPS, VrexVector3DT<VrexVariable>::OX());
        EXPECT_NEAR(q.norm().value(), 1.0, ROUNDING);
        EXPECT_TRUE(std::isnan(q.scalar().derivatives()[0]));
    }
}

TEST(VrexQuaternionT, DerivativesMatchCentralDifferences) {
    const std::vector<double> inputs{0.7, -0.3, 0.4, 0.9, 1.1, -0.6, 0.35, 1.2};
    const auto check = [&](const auto& function) { expectDerivativesMatch(function, inputs, DIFFERENCE); };
    for (int i = 0; i < 3; ++i) {
        for (const bool useReciprocal : {false, true}) {
            check([i, useReciprocal]<typename T>(const std::vector<T>& p) {
                const auto q = VrexQuaternionT<T>::makeFromScalarAndVector(p[0], {p[1], p[2], p[3]});
                return VrexQuaternionT<T>::rotate({p[4], p[5], p[6]}, q, useReciprocal)[i];
            });
        }
        check([i]<typename T>(const std::vector<T>& p) {
            return VrexQuaternionT<T>::rotate({p[4], p[5], p[6]}, p[0], {p[1], p[2], p[3]}, EPS)[i];
        });
        check([i]<typename T>(const std::vector<T>& p) {
            const auto a = VrexQuaternionT<T>::makeFromScalarAndVector(p[0], {p[1], p[2], p[3]});
            const auto b = VrexQuaternionT<T>::makeFromScalarAndVector(p[4], {p[5], p[6], p[7]});
            return (a * b).vector()[i] + (a * b).scalar() * 2.0;
        });
        check([i]<typename T>(const std::vector<T>& p) {
            const auto q = VrexQuaternionT<T>::makeRotation({p[0], p[1], p[2]}, {p[4], p[5], p[6]}, EPS,
                                                            VrexVector3DT<T>::OX());
            return q.vector()[i] + q.scalar();
        });
        check([i]<typename T>(const std::vector<T>& p) {
            const auto q = VrexQuaternionT<T>::makeFromScalarAndVector(p[0], {p[1], p[2], p[3]});
            return q.normalized(EPS).vector()[i] + q.reciprocal().vector()[i] + q.rotationalAxis(EPS)[i];
        });
    }
    check([]<typename T>(const std::vector<T>& p) {
        const auto q = VrexQuaternionT<T>::makeFromScalarAndVector(p[0], {p[1], p[2], p[3]});
        return q.norm() + q.normSquared() + q.rotationalAngle();
    });
}

TEST(VrexQuaternionT, DerivativesOfATinyRotationMatchTheHalvedDirections) {
    // For from = OX and to = (1, y, z) near it, the vector part is (0, -z, y) / 2 up to second order.
    const auto to = VrexVector3DT<VrexVariable>(VrexVariable(1.0), number<VrexVariable>(1e-12, 1),
                                                number<VrexVariable>(-1e-12, 2));
    const auto q = VrexQuaternionT<VrexVariable>::makeRotation(VrexVector3DT<VrexVariable>::OX(), to, EPS,
                                                               VrexVector3DT<VrexVariable>::OX());
    EXPECT_NEAR(q.j().derivatives()[2], -0.5, ROUNDING);
    EXPECT_NEAR(q.k().derivatives()[1], 0.5, ROUNDING);
    EXPECT_NEAR(q.k().derivatives()[2], 0.0, ROUNDING);
}
