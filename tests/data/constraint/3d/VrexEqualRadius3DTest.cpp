#include "data/constraint/3d/VrexEqualRadius3D.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/SamplesRelations.h"

namespace {

using Component = VrexGeometryComponentType;
using Radius = VrexRadius3DType;

TEST(VrexEqualRadius3D, RadiusTypesAndComponentsFollowTheirGeometries) {
    const auto radius = makeSample<VrexEqualRadius3D>();
    EXPECT_EQ(radius->getRadiusType(0), Radius::MinorRadius3D);
    EXPECT_EQ(radius->getRadiusType(1), Radius::MajorRadius3D);
    EXPECT_EQ(radius->getGeomComponentType(1), Component::MINOR);
    EXPECT_EQ(radius->getGeomComponentType(2), Component::MAJOR);
}

TEST(VrexEqualRadius3D, RadiusTypesAreSetByIndex) {
    const auto radius = makeSample<VrexEqualRadius3D>();
    radius->setRadiusType(0, Radius::Radius3D);
    EXPECT_EQ(radius->getRadiusType(0), Radius::Radius3D);
    EXPECT_EQ(radius->getRadiusType(1), Radius::MajorRadius3D);
    radius->setRadiusType(1, Radius::MinorRadius3D);
    EXPECT_EQ(radius->getRadiusType(0), Radius::Radius3D);
    EXPECT_EQ(radius->getRadiusType(1), Radius::MinorRadius3D);
}

TEST(VrexEqualRadius3D, SettingBeyondTheTwoDoesNothing) {
    const auto radius = makeSample<VrexEqualRadius3D>();
    const LogCapture log;
    for (const int index : {2, 3, -1, 2147483647, -2147483647}) {
        radius->setRadiusType(index, Radius::Radius3D);
        EXPECT_EQ(radius->getRadiusType(0), Radius::MinorRadius3D) << index;
        EXPECT_EQ(radius->getRadiusType(1), Radius::MajorRadius3D) << index;
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexEqualRadius3D, ReadingBeyondTheTwoThrows) {
    const auto radius = makeSample<VrexEqualRadius3D>();
    for (const int index : {2, -1, 2147483647}) {
        const LogCapture log;
        try {
            static_cast<void>(radius->getRadiusType(index));
            ADD_FAILURE() << index;
        } catch (const std::out_of_range& failure) {
            EXPECT_STREQ(failure.what(), "invalid array<T, N> subscript");
        }
        ASSERT_EQ(log.lines().size(), 1U);
        EXPECT_EQ(log.lines().front().level, 1U);
        EXPECT_EQ(log.lines().front().text,
                  "VrexEqualRadius3D::getRadiusType(): invalid array<T, N> subscript");
    }
}

TEST(VrexEqualRadius3D, ComponentSelectsTheRadius) {
    for (int component = -1; component <= 9; ++component) {
        const auto expected = component == 6   ? Radius::MajorRadius3D
                              : component == 7 ? Radius::MinorRadius3D
                                               : Radius::Radius3D;
        for (const Radius before : {Radius::Radius3D, Radius::MajorRadius3D, Radius::MinorRadius3D}) {
            Radius out = before;
            VrexEqualRadius3D::setRadiusType(out, Component{component});
            EXPECT_EQ(out, expected) << component;
        }
    }
}

TEST(VrexEqualRadius3D, RadiusTypesTravelWithAnUpdate) {
    const auto sphere = makeSample<VrexSphere3D>();
    const auto radius = VrexEqualRadius3D::create(sphere, Radius::Radius3D, sphere, Radius::Radius3D,
                                                  Component::UNKNOWN, Component::UNKNOWN);
    radius->updateFrom(makeSample<VrexEqualRadius3D>());
    EXPECT_EQ(radius->getRadiusType(0), Radius::MinorRadius3D);
    EXPECT_EQ(radius->getRadiusType(1), Radius::MajorRadius3D);
    EXPECT_EQ(radius->geometry(2), sphere);
}

} // namespace
