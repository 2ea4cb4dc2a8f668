#include "data/geometry/3d/VrexParametricSurface3D.h"

#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProbeShapes.h"
#include "support/RecordingVisitor.h"
#include "support/Samples.h"

namespace {

TEST(VrexParametricSurface3D, IsASurfaceAndNoCurveAndAcceptsAsItself) {
    ProbeSurface surface;
    EXPECT_TRUE(surface.isParametricSurface());
    EXPECT_FALSE(surface.isParametricCurve());
    RecordingVisitor visitor;
    surface.accept(visitor);
    EXPECT_THAT(visitor.visits,
                testing::ElementsAre("visitParametricSurface3D", "visitGeometry3D", "visitGeometry",
                                     "visitBaseGeometry", "visitBaseObject"));
}

TEST(VrexParametricSurface3D, EndsAreEmptyAtFirstAndTravel) {
    const auto surface = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    EXPECT_FALSE(surface->startU().has_value());
    EXPECT_FALSE(surface->endU().has_value());
    EXPECT_FALSE(surface->startV().has_value());
    EXPECT_FALSE(surface->endV().has_value());
    surface->startU() = 1.0;
    surface->endU() = 2.0;
    surface->startV() = 3.0;
    surface->endV() = 4.0;
    const auto copy = std::static_pointer_cast<VrexCylinder3D>(surface->makeCopy());
    EXPECT_EQ(std::as_const(*copy).startU(), 1.0);
    EXPECT_EQ(std::as_const(*copy).endU(), 2.0);
    EXPECT_EQ(std::as_const(*copy).startV(), 3.0);
    EXPECT_EQ(std::as_const(*copy).endV(), 4.0);
    surface->backup();
    surface->startU().reset();
    surface->endV().reset();
    surface->restore();
    EXPECT_EQ(surface->startU(), 1.0);
    EXPECT_EQ(surface->endV(), 4.0);
}

TEST(VrexParametricSurface3D, EvaluateTakesUAndVByValue) {
    // A calculator may write its reduced parameter back; the caller's u and v are copies.
    using Evaluate = VrexSurfaceSample<VrexVector3DT<VrexVariable>> (VrexParametricSurface3D::*)(
        const std::vector<VrexVariable>&, VrexVariable, VrexVariable, int) const;
    [[maybe_unused]] constexpr Evaluate evaluate = &VrexParametricSurface3D::evaluate;
}

} // namespace
