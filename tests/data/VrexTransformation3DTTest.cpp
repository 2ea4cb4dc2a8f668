#include "data/VrexTransformation3DT.h"

#include <cmath>

#include "support/ExpectDerivativesMatch.h"
#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

/// A few roundings at values of the order of 1.
constexpr double ROUNDING = 2e-15;
/// The error of the central difference.
constexpr double DIFFERENCE = 1e-8;

/// Rotate, then translate.
template <typename T>
VrexVector3DT<T> move(const VrexTransformation3DT<T>& t, const VrexVector3DT<T>& point) {
    return VrexQuaternionT<T>::rotate(point, t.getRotation(), true) + t.getTranslation();
}

Values4 product(const Values4& a, const Values4& b) {
    return {a[0] * b[0] - (a[1] * b[1] + a[2] * b[2] + a[3] * b[3]),
            b[1] * a[0] + a[1] * b[0] + (a[2] * b[3] - b[2] * a[3]),
            b[2] * a[0] + a[2] * b[0] + (b[1] * a[3] - a[1] * b[3]),
            b[3] * a[0] + a[3] * b[0] + (b[2] * a[1] - b[1] * a[2])};
}

} // namespace

template <typename T>
class VrexTransformation3DTTest : public ::testing::Test {
protected:
    using Transformation = VrexTransformation3DT<T>;
    using Quaternion = VrexQuaternionT<T>;
    using Vector = VrexVector3DT<T>;

    static Transformation sample() {
        return Transformation(vector3<T>(1.0, -2.0, 3.0), number<T>(1.1, 3), vector3<T>(2.0, 3.0, 6.0, 4));
    }
};
TYPED_TEST_SUITE(VrexTransformation3DTTest, Scalars);

TYPED_TEST(VrexTransformation3DTTest, IsNoMotionByDefault) {
    const typename TestFixture::Transformation t;
    EXPECT_EQ(valuesOf(t.getTranslation()), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(t.getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexTransformation3DTTest, KeepsTranslationAndRotationAsGiven) {
    typename TestFixture::Transformation t(vector3<TypeParam>(1.0, 2.0, 3.0),
                                           quaternion<TypeParam>(4.0, 5.0, 6.0, 7.0));
    EXPECT_EQ(valuesOf(t.getTranslation()), (Values3{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(t.getRotation()), (Values4{4.0, 5.0, 6.0, 7.0}));
    t.setTranslation(vector3<TypeParam>(-1.0, -2.0, -3.0));
    t.setRotation(quaternion<TypeParam>(-4.0, -5.0, -6.0, -7.0));
    EXPECT_EQ(valuesOf(t.getTranslation()), (Values3{-1.0, -2.0, -3.0}));
    EXPECT_EQ(valuesOf(t.getRotation()), (Values4{-4.0, -5.0, -6.0, -7.0}));
}

TYPED_TEST(VrexTransformation3DTTest, TakesQuaternionPartsWithoutNormalising) {
    const typename TestFixture::Transformation t(vector3<TypeParam>(1.0, 2.0, 3.0), TypeParam(4.0),
                                                 TypeParam(5.0), TypeParam(6.0), TypeParam(7.0));
    EXPECT_EQ(valuesOf(t.getRotation()), (Values4{4.0, 5.0, 6.0, 7.0}));
}

TYPED_TEST(VrexTransformation3DTTest, TakesAngleAndAxis) {
    const double s = std::sin(0.4);
    const Values4 expected{std::cos(0.4), s * 2.0 / 7.0, s * 3.0 / 7.0, s * 6.0 / 7.0};
    const TypeParam angle = number<TypeParam>(0.8, 9);
    const auto axis = vector3<TypeParam>(2.0, 3.0, 6.0);
    const typename TestFixture::Transformation moved(vector3<TypeParam>(1.0, 2.0, 3.0), angle, axis);
    EXPECT_EQ(valuesOf(moved.getTranslation()), (Values3{1.0, 2.0, 3.0}));
    expectNear(valuesOf(moved.getRotation()), expected, ROUNDING);
    const typename TestFixture::Transformation turned(angle, axis);
    EXPECT_EQ(valuesOf(turned.getTranslation()), (Values3{0.0, 0.0, 0.0}));
    expectNear(valuesOf(turned.getRotation()), expected, ROUNDING);
    typename TestFixture::Transformation set;
    set.setRotation(angle, axis);
    expectNear(valuesOf(set.getRotation()), expected, ROUNDING);
    EXPECT_NEAR(valueOf(set.getAngle()), 0.8, ROUNDING);
    expectNear(valuesOf(set.getAxis()), {2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0}, ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, AGivenAxisOfAMillionthOrLessCountsAsZero) {
    for (const double length : {0.9e-6, 1e-6}) {
        const typename TestFixture::Transformation t(TypeParam(0.8), vector3<TypeParam>(0.0, 0.0, length));
        EXPECT_EQ(valuesOf(t.getRotation()), (Values4{std::cos(0.4), 0.0, 0.0, 0.0}));
    }
    const typename TestFixture::Transformation u(TypeParam(0.8), vector3<TypeParam>(0.0, 0.0, 1.1e-6));
    expectNear(valuesOf(u.getRotation()), {std::cos(0.4), 0.0, 0.0, std::sin(0.4)}, ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, AxisOfNoMotionIsX) {
    EXPECT_EQ(valuesOf(typename TestFixture::Transformation().getAxis()), (Values3{1.0, 0.0, 0.0}));
    typename TestFixture::Transformation t;
    t.setRotation(quaternion<TypeParam>(1.0, 0.0, 0.9e-10, 0.0));
    EXPECT_EQ(valuesOf(t.getAxis()), (Values3{1.0, 0.0, 0.0}));
    t.setRotation(quaternion<TypeParam>(1.0, 0.0, 1.1e-10, 0.0));
    expectNear(valuesOf(t.getAxis()), {0.0, 1.0, 0.0}, ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, TakesTheMotionOfAMatrix) {
    const auto q = VrexQuaternionT<double>::makeFromAngleAndAxis(1.1, {2.0, 3.0, 6.0}, 1e-9);
    const VrexTransformMatrix3D m =
        VrexTransformMatrix3D::translate({1.0, -2.0, 3.0}) * VrexTransformMatrix3D::makeFromQuaternion(q);
    const typename TestFixture::Transformation t(m);
    EXPECT_EQ(valuesOf(t.getTranslation()), (Values3{1.0, -2.0, 3.0}));
    EXPECT_EQ(valuesOf(t.getRotation()), valuesOf(m.toQuaternion()));
    expectNear(valuesOf(t.getRotation()), valuesOf(q), ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, InverseUndoesTheMotion) {
    const auto t = TestFixture::sample();
    const auto point = vector3<TypeParam>(0.5, 4.0, -1.0, 10);
    expectNear(valuesOf(move(t.getInversed(), move(t, point))), valuesOf(point), 4.0 * ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, InverseTakesTheConjugateAndTheReciprocal) {
    // A quaternion of length 2 about Z by a right angle: only the reciprocal keeps the translation's length.
    const double h = std::sqrt(2.0);
    const typename TestFixture::Transformation t(vector3<TypeParam>(1.0, 2.0, 3.0),
                                                 quaternion<TypeParam>(h, 0.0, 0.0, h, 10));
    const auto back = t.getInversed();
    EXPECT_EQ(valuesOf(back.getRotation()), (Values4{h, -0.0, -0.0, -h}));
    expectNear(valuesOf(back.getTranslation()), {-2.0, 1.0, -3.0}, 2.0 * ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, MotionTimesItsInverseIsNoMotion) {
    const auto t = TestFixture::sample();
    for (const auto& product : {t * t.getInversed(), t.getInversed() * t}) {
        expectNear(valuesOf(product.getRotation()), {1.0, 0.0, 0.0, 0.0}, ROUNDING);
        expectNear(valuesOf(product.getTranslation()), {0.0, 0.0, 0.0}, 2.0 * ROUNDING);
    }
}

TYPED_TEST(VrexTransformation3DTTest, ProductMovesByTheRightOperandFirst) {
    const auto a = TestFixture::sample();
    const typename TestFixture::Transformation b(vector3<TypeParam>(-3.0, 0.5, 2.0, 20),
                                                 number<TypeParam>(2.3, 23),
                                                 vector3<TypeParam>(1.0, 1.0, -1.0, 24));
    const auto point = vector3<TypeParam>(0.5, 4.0, -1.0, 10);
    expectNear(valuesOf(move(a * b, point)), valuesOf(move(a, move(b, point))), 8.0 * ROUNDING);
}

TYPED_TEST(VrexTransformation3DTTest, ProductKeepsTheOrderOfItsFormula) {
    const Values4 a{0.3, -0.7, 0.11, 1.9};
    const Values4 b{-0.2, 0.45, 2.3, 0.77};
    const auto result =
        typename TestFixture::Transformation(vector3<TypeParam>(0.1, 0.7, -1.3, 20),
                                             quaternion<TypeParam>(a[0], a[1], a[2], a[3])) *
        typename TestFixture::Transformation(vector3<TypeParam>(-3.1, 0.6, 2.2, 30),
                                             quaternion<TypeParam>(b[0], b[1], b[2], b[3], 10));
    const Values4 q = product(a, b);
    const double norm = std::sqrt(q[0] * q[0] + (q[1] * q[1] + q[2] * q[2] + q[3] * q[3]));
    EXPECT_EQ(valuesOf(result.getRotation()), (Values4{q[0] / norm, q[1] / norm, q[2] / norm, q[3] / norm}));
    const double by = 1.0 / (a[0] * a[0] + (a[1] * a[1] + a[2] * a[2] + a[3] * a[3]));
    const Values4 back{a[0] * by, -a[1] * by, -a[2] * by, -a[3] * by};
    const Values4 turned = product(product(a, {0.0, -3.1, 0.6, 2.2}), back);
    EXPECT_EQ(valuesOf(result.getTranslation()),
              (Values3{turned[1] + 0.1, turned[2] + 0.7, turned[3] + -1.3}));
}

TYPED_TEST(VrexTransformation3DTTest, ProductHasAUnitRotationUnlessItsNormIsTiny) {
    const typename TestFixture::Transformation a(vector3<TypeParam>(0.0, 0.0, 0.0),
                                                 quaternion<TypeParam>(3.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(valuesOf((a * a).getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
    const typename TestFixture::Transformation tiny(vector3<TypeParam>(0.0, 0.0, 0.0),
                                                    quaternion<TypeParam>(1e-14, 0.0, 0.0, 0.0));
    const typename TestFixture::Transformation two(vector3<TypeParam>(0.0, 0.0, 0.0),
                                                   quaternion<TypeParam>(2.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(valuesOf((two * tiny).getRotation()), (Values4{2e-14, 0.0, 0.0, 0.0}));
    const typename TestFixture::Transformation three(vector3<TypeParam>(0.0, 0.0, 0.0),
                                                     quaternion<TypeParam>(3.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(valuesOf((three * tiny).getRotation()), (Values4{1.0, 0.0, 0.0, 0.0}));
}

TYPED_TEST(VrexTransformation3DTTest, EqualityComparesTheStoredNumbers) {
    const auto t = TestFixture::sample();
    EXPECT_TRUE(t.isEqual(t, 1e-12, 1e-12));
    EXPECT_FALSE(t.isEqual(t, 0.0, 1.0));
    EXPECT_FALSE(t.isEqual(t, 1.0, 0.0));
    auto opposite = t;
    opposite.setRotation(t.getRotation() * -1.0);
    EXPECT_FALSE(t.isEqual(opposite, 1e-3, 1e-3));
    auto shifted = t;
    shifted.setTranslation(t.getTranslation() + TestFixture::Vector::OX() * 0.25);
    EXPECT_FALSE(t.isEqual(shifted, 0.25, 1.0));
    EXPECT_TRUE(t.isEqual(shifted, 0.26, 1e-9));
}

TYPED_TEST(VrexTransformation3DTTest, EqualityUsesTheSecondToleranceForTheScalarAlone) {
    const typename TestFixture::Transformation a(TestFixture::Vector::ZERO(),
                                                 quaternion<TypeParam>(1.0, 0.0, 0.0, 0.0));
    const typename TestFixture::Transformation b(TestFixture::Vector::ZERO(),
                                                 quaternion<TypeParam>(1.5, 0.0, 0.0, 0.0));
    const typename TestFixture::Transformation c(TestFixture::Vector::ZERO(),
                                                 quaternion<TypeParam>(1.0, 0.0, 0.5, 0.0));
    EXPECT_TRUE(a.isEqual(b, 1e-9, 0.51));
    EXPECT_FALSE(a.isEqual(b, 1.0, 0.5));
    EXPECT_TRUE(a.isEqual(c, 0.51, 1e-9));
    EXPECT_FALSE(a.isEqual(c, 0.5, 1.0));
}

TYPED_TEST(VrexTransformation3DTTest, InverseOfAZeroRotationIsNaN) {
    const typename TestFixture::Transformation t(vector3<TypeParam>(1.0, 2.0, 3.0),
                                                 quaternion<TypeParam>(0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(std::isnan(valueOf(t.getInversed().getTranslation().x())));
}

TEST(VrexTransformation3DT, MotionOfAMatrixHasNoDerivatives) {
    const VrexTransformation3DT<VrexVariable> t(VrexTransformMatrix3D::translate({1.0, 2.0, 3.0}));
    EXPECT_EQ(t.getTranslation().x().derivatives().size(), 0U);
    EXPECT_EQ(t.getRotation().scalar().derivatives().size(), 0U);
}

TEST(VrexTransformation3DT, DerivativesMatchCentralDifferences) {
    const std::vector<double> inputs{0.7, -0.3, 0.4, 0.9, 1.1, -0.6, 0.35, 1.2};
    for (int i = 0; i < 3; ++i) {
        expectDerivativesMatch(
            [i]<typename T>(const std::vector<T>& p) {
                const VrexTransformation3DT<T> a({p[0], p[1], p[2]}, p[3], {p[4], p[5], p[6]});
                const VrexTransformation3DT<T> b({p[7], p[0], p[5]}, p[1], p[3], p[6], p[2]);
                const VrexTransformation3DT<T> c = a * b.getInversed();
                return c.getTranslation()[i] + c.getRotation().vector()[i] * 2.0 + c.getAxis()[i];
            },
            inputs, DIFFERENCE);
    }
    expectDerivativesMatch(
        []<typename T>(const std::vector<T>& p) {
            const VrexTransformation3DT<T> a({p[0], p[1], p[2]}, p[3], {p[4], p[5], p[6]});
            return (a * a).getAngle() + (a * a).getRotation().scalar();
        },
        inputs, DIFFERENCE);
}
