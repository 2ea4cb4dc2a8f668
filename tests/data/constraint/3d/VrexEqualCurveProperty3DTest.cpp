#include "data/constraint/3d/VrexEqualCurveProperty3D.h"

#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexCurveProperties.h"
#include "support/AnyCurve.h"
#include "support/SamplesRelations.h"
#include "support/TypeChecks.h"

namespace {

using Property = VrexCurveProperty3DType;

/// The types that are curves with one parameter.
bool isCurve(int type) { return nsTypeChecks::typesOf("ci sp el evac_3d").contains(type); }

std::shared_ptr<VrexGeometry3D> ofType(VrexGeometry3DType type) {
    if (isCurve(static_cast<int>(type))) {
        return AnyCurve::create(type);
    }
    return AnyGeometry::create(type, 0);
}

TEST(VrexEqualCurveProperty3D, CanCreateOverAllTypes) {
    const auto simple = nsTypeChecks::typesOf("ln ci");
    nsTypeChecks::expectAdmits(
        [](VrexGeometry3DType first, VrexGeometry3DType second) {
            return VrexEqualCurveProperty3D::canCreate(ofType(first), ofType(second));
        },
        [&simple](int first, int second) {
            if (simple.contains(first)) {
                return isCurve(second);
            }
            if (simple.contains(second)) {
                return isCurve(first);
            }
            return isCurve(first) && isCurve(second);
        });
}

TEST(VrexEqualCurveProperty3D, LineGoesWithASplineAndNoLine) {
    const auto line = makeSample<VrexLine3D>();
    const auto spline = AnyCurve::create(VrexGeometry3DType::SPLINE);
    EXPECT_TRUE(VrexEqualCurveProperty3D::canCreate(line, spline));
    EXPECT_TRUE(VrexEqualCurveProperty3D::canCreate(spline, line));
    EXPECT_FALSE(VrexEqualCurveProperty3D::canCreate(line, line));
}

TEST(VrexEqualCurveProperty3D, LineBeforeACircleWillDoAndAfterItWillNot) {
    const auto line = makeSample<VrexLine3D>();
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_TRUE(VrexEqualCurveProperty3D::canCreate(line, circle));
    EXPECT_FALSE(VrexEqualCurveProperty3D::canCreate(circle, line));
    EXPECT_TRUE(VrexEqualCurveProperty3D::canCreate(circle, circle));
}

TEST(VrexEqualCurveProperty3D, CanCreateNeedsBoth) {
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_FALSE(VrexEqualCurveProperty3D::canCreate(nullptr, circle));
    EXPECT_FALSE(VrexEqualCurveProperty3D::canCreate(circle, nullptr));
    EXPECT_FALSE(VrexEqualCurveProperty3D::canCreate(nullptr, nullptr));
}

TEST(VrexEqualCurveProperty3D, PropertyGivesTheKind) {
    // The numbers of property and kind: both orders are fixed, and they differ.
    const std::pair<int, int> rows[] = {{0, 34}, {1, 37}, {2, 35}, {3, 36}, {4, 38}};
    for (const auto& [property, kind] : rows) {
        const auto constraint = VrexEqualCurveProperty3D::create(
            makeSample<VrexCircle3D>(), makeSample<VrexLine3D>(), Property{property});
        EXPECT_EQ(static_cast<int>(constraint->type()), kind);
        EXPECT_EQ(constraint->getCurveProperty(), Property{property});
        EXPECT_EQ(nsCurveProperties::property(VrexConstraint3DType{kind}), Property{property});
    }
}

TEST(VrexEqualCurveProperty3D, PropertiesAreNamedAsTheKinds) {
    EXPECT_EQ(static_cast<int>(Property::EqualDirection3D), 0);
    EXPECT_EQ(static_cast<int>(Property::EqualCurvature3D), 1);
    EXPECT_EQ(static_cast<int>(Property::EqualFirstDerivative3D), 2);
    EXPECT_EQ(static_cast<int>(Property::EqualSecondDerivative3D), 3);
    EXPECT_EQ(static_cast<int>(Property::EqualCurvatureDerivative3D), 4);
}

TEST(VrexEqualCurveProperty3D, UnknownPropertyGivesTheUnknownKind) {
    for (const int property : {5, -1, 34}) {
        const auto constraint = VrexEqualCurveProperty3D::create(
            makeSample<VrexCircle3D>(), makeSample<VrexLine3D>(), Property{property});
        EXPECT_EQ(static_cast<int>(constraint->type()), -1) << property;
        EXPECT_EQ(constraint->getCurveProperty(), Property{property});
        EXPECT_EQ(constraint->doc(), 1);
    }
}

TEST(VrexEqualCurveProperty3D, OtherKindsHaveNoProperty) {
    for (int kind = -1; kind <= 42; ++kind) {
        EXPECT_EQ(nsCurveProperties::property(VrexConstraint3DType{kind}).has_value(),
                  kind >= 34 && kind <= 38)
            << kind;
    }
}

TEST(VrexEqualCurveProperty3D, PropertyAndKindTravelWithAnUpdate) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto constraint = VrexEqualCurveProperty3D::create(circle, circle, Property::EqualDirection3D);
    constraint->updateFrom(makeSample<VrexEqualCurveProperty3D>());
    EXPECT_EQ(constraint->getCurveProperty(), Property::EqualCurvature3D);
    EXPECT_EQ(constraint->type(), VrexConstraint3DType::EqualCurvature3D);
    EXPECT_EQ(constraint->geometry(1), circle);
}

} // namespace
