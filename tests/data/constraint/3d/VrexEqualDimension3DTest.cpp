#include "data/constraint/3d/VrexEqualDimension3D.h"

#include <typeinfo>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SamplesRelations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dimensions = VrexEqualDimension3D::Dimensions;

constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;

std::shared_ptr<VrexDistance3D> distance() {
    return VrexDistance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPlane3D>(), 1.0, WHOLE, WHOLE);
}

TEST(VrexEqualDimension3D, NewConstraintHoldsElementAndDimensions) {
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto first = distance();
    const auto second = distance();
    const auto equal = VrexEqualDimension3D::create({first, second}, element);
    EXPECT_THAT(equal->getGeometries(), ElementsAre(element));
    EXPECT_EQ(equal->getElement(), element);
    EXPECT_THAT(equal->getDimensions(), ElementsAre(first, second));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(first, second));
}

TEST(VrexEqualDimension3D, CreateStoresNulls) {
    const auto first = distance();
    const auto equal = VrexEqualDimension3D::create({nullptr, first}, nullptr);
    EXPECT_EQ(equal->getElement(), nullptr);
    EXPECT_THAT(equal->getGeometries(), ElementsAre(nullptr));
    EXPECT_THAT(equal->getDimensions(), ElementsAre(nullptr, first));
    EXPECT_THAT(equal->getConstraints(), ElementsAre(first)) << "nulls are left out";
    EXPECT_THAT(VrexEqualDimension3D::create({}, nullptr)->getConstraints(), IsEmpty());
}

TEST(VrexEqualDimension3D, CanCreateNeedsDimensionsOfOneKindBetweenTwoGeometries) {
    const auto line = makeSample<VrexLine3D>();
    const auto point = makeSample<VrexPoint3D>();
    const auto angle = VrexAngle3D::create(line, line, 0.5);
    const auto radius = makeSample<VrexRadius3D>();
    const auto planar = makeSample<VrexPlanarAngle3D>();
    const auto halfThere = VrexDistance3D::create(point, nullptr, 1.0, WHOLE, WHOLE);
    const std::pair<Dimensions, bool> rows[] = {
        {{distance()}, true},
        {{distance(), distance()}, true},
        {{distance(), distance(), distance()}, true},
        {{angle, angle}, true},
        {{}, false},
        {{nullptr}, false},
        {{nullptr, distance()}, false},
        {{distance(), nullptr}, false},
        {{distance(), angle}, false},
        {{angle, distance()}, false},
        {{distance(), distance(), angle}, false},
        {{radius}, false},
        {{planar, planar}, false},
        {{halfThere}, false},
        {{distance(), halfThere}, false},
    };
    for (const auto& [dimensions, expected] : rows) {
        EXPECT_EQ(VrexEqualDimension3D::canCreate(dimensions), expected)
            << "row " << (&dimensions - &rows[0].first);
    }
}

TEST(VrexEqualDimension3D, DimensionsMayBindOtherGeometries) {
    const auto other =
        VrexDistance3D::create(makeSample<VrexTorus3D>(), makeSample<VrexLine3D>(), 1.0, WHOLE, WHOLE);
    EXPECT_TRUE(VrexEqualDimension3D::canCreate({distance(), other}));
}

TEST(VrexEqualDimension3D, BoundVariableIsNoGeometry) {
    const auto bound = distance();
    bound->bindVariable(makeSample<VrexGeometryVariable>());
    ASSERT_EQ(bound->getGeometries().size(), 3U);
    EXPECT_TRUE(VrexEqualDimension3D::canCreate({bound, distance()}));
}

TEST(VrexEqualDimension3D, UpdateKeepsElementAndDimensions) {
    const auto element = makeSample<VrexEqualDimensionElement3D>();
    const auto first = distance();
    const auto equal = VrexEqualDimension3D::create({first}, element);
    equal->updateFrom(makeSample<VrexEqualDimension3D>());
    EXPECT_THAT(equal->getDimensions(), ElementsAre(first));
    EXPECT_EQ(equal->getElement(), element);
    EXPECT_EQ(equal->alignment(), VrexConstraintAlignment::Positive);
    equal->updateFrom(equal);
    EXPECT_THAT(equal->getDimensions(), ElementsAre(first));
}

TEST(VrexEqualDimension3D, FailedUpdateKeepsTheDimensions) {
    const auto equal = makeSample<VrexEqualDimension3D>();
    const auto before = equal->getDimensions();
    EXPECT_THROW(equal->updateFrom(before.front()), std::bad_cast);
    EXPECT_EQ(equal->getDimensions(), before);
}

TEST(VrexEqualDimension3D, DimensionsAreSharedAndReleased) {
    auto first = distance();
    const std::weak_ptr<VrexDimension3D> gone = first;
    auto equal = VrexEqualDimension3D::create({first}, nullptr);
    first.reset();
    EXPECT_FALSE(gone.expired());
    equal.reset();
    EXPECT_TRUE(gone.expired());
}

} // namespace
