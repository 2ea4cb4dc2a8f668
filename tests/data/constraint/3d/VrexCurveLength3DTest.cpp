#include "data/constraint/3d/VrexCurveLength3D.h"

#include <limits>
#include <memory>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "support/ObjectClasses.h"

namespace {

using testing::IsEmpty;

TEST(VrexCurveLength3D, CanCreateTakesCurvesOnly) {
    const std::set<std::string> curves{"VrexCircle3D", "VrexEllipse3D", "VrexSpline3D",
                                       "VrexEvaluatedCurve3D"};
    const auto point = makeSample<VrexPoint3D>();
    for (const ObjectKind& kind : concreteObjectKinds<VrexGeometry3D>()) {
        const auto geometry = std::dynamic_pointer_cast<VrexGeometry3D>(kind.makeSample());
        EXPECT_EQ(VrexCurveLength3D::canCreate(point, point, geometry), curves.contains(kind.name)) << kind;
    }
}

TEST(VrexCurveLength3D, CanCreateNeedsAllThree) {
    const auto point = makeSample<VrexPoint3D>();
    const auto circle = makeSample<VrexCircle3D>();
    EXPECT_TRUE(VrexCurveLength3D::canCreate(point, point, circle));
    EXPECT_FALSE(VrexCurveLength3D::canCreate(nullptr, point, circle));
    EXPECT_FALSE(VrexCurveLength3D::canCreate(point, nullptr, circle));
    EXPECT_FALSE(VrexCurveLength3D::canCreate(point, point, nullptr));
}

TEST(VrexCurveLength3D, DegreeOfConstraintIsZero) { EXPECT_EQ(makeSample<VrexCurveLength3D>()->doc(), 0); }

TEST(VrexCurveLength3D, HelpParametersBelongToTheCurve) {
    const auto circle = makeSample<VrexCircle3D>();
    const auto length =
        VrexCurveLength3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), circle, 1.0);
    const LogCapture log;
    for (const std::uint64_t index : {6, 8}) {
        EXPECT_EQ(length->getGeometryByParameterIndex(index), circle) << index;
    }
    for (const std::uint64_t index : {0, 1, 2, 3, 4, 5, 7, 9, 10}) {
        EXPECT_EQ(length->getGeometryByParameterIndex(index), nullptr) << index;
    }
    EXPECT_EQ(length->getGeometryByParameterIndex(std::numeric_limits<std::uint64_t>::max()), nullptr);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(VrexCurveLength3D, WindingAngleIsEmptyAtFirstAndTravels) {
    const auto make = [] {
        return VrexCurveLength3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                         makeSample<VrexCircle3D>(), 1.0);
    };
    const auto length = make();
    EXPECT_FALSE(length->getWindingAngle().has_value());
    const auto other = make();
    other->setWindingAngle(7.5);
    length->updateFrom(other);
    EXPECT_EQ(length->getWindingAngle(), 7.5);
    length->backup();
    length->setWindingAngle(std::nullopt);
    EXPECT_FALSE(length->getWindingAngle().has_value());
    length->restore();
    EXPECT_EQ(length->getWindingAngle(), 7.5);
}

} // namespace
