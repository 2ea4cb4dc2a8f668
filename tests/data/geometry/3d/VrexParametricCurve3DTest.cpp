#include "data/geometry/3d/VrexParametricCurve3D.h"

#include <memory>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProbeShapes.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"

namespace {

TEST(VrexParametricCurve3D, IsACurveAndNoSurfaceAndAcceptsAsItself) {
    ProbeCurve curve;
    EXPECT_TRUE(curve.isParametricCurve());
    EXPECT_FALSE(curve.isParametricSurface());
    RecordingVisitor visitor;
    curve.accept(visitor);
    EXPECT_THAT(visitor.visits,
                testing::ElementsAre("visitParametricCurve3D", "visitGeometry3D", "visitGeometry",
                                     "visitBaseGeometry", "visitBaseObject"));
}

TEST(VrexParametricCurve3D, EndsAreEmptyAtFirstAndTravel) {
    const auto curve = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    EXPECT_FALSE(curve->start().has_value());
    EXPECT_FALSE(curve->end().has_value());
    curve->start() = 0.5;
    curve->end() = 1.5;
    const auto copy = std::static_pointer_cast<VrexCircle3D>(curve->makeCopy());
    EXPECT_EQ(std::as_const(*copy).start(), 0.5);
    EXPECT_EQ(std::as_const(*copy).end(), 1.5);
    curve->backup();
    curve->start().reset();
    curve->end() = 9.0;
    curve->restore();
    EXPECT_EQ(curve->start(), 0.5);
    EXPECT_EQ(curve->end(), 1.5);
}

TEST(VrexParametricCurve3D, TrimmedEndsDoNotLimitEvaluation) {
    const auto curve = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    curve->end() = 1.0;
    EXPECT_NEAR(curve->evaluate(2.0, 0)[0].y(), 0.9092974268256817, 1e-15); // sin 2
}

} // namespace
