#include "data/geometry/3d/VrexSpinSurface3D.h"

#include <numbers>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Samples.h"
#include "support/SmallStack.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class VrexSpinSurface3DTest : public testing::Test {
protected:
    std::shared_ptr<VrexCircle3D> m_profile = makeSample<VrexCircle3D>();
    std::shared_ptr<VrexLine3D> m_line = makeSample<VrexLine3D>();
    std::shared_ptr<VrexSpinSurface3D> m_surface = VrexSpinSurface3D::create(m_profile, m_line);
};

TEST_F(VrexSpinSurface3DTest, HasTheFreedomsOfProfileAndLineAndNoParameters) {
    EXPECT_EQ(m_surface->type(), VrexGeometry3DType::SPIN_SURFACE);
    EXPECT_TRUE(m_surface->isParametricSurface());
    EXPECT_FALSE(m_surface->isParametricCurve());
    EXPECT_EQ(m_surface->dof(), 6 + 4);
    EXPECT_EQ(VrexSpinSurface3D::PARAMETERS_AMOUNT, 0);
    VrexVariableDescriptor first(m_surface, 0, nullptr);
    first.setValue(1.0);
    EXPECT_EQ(first.getValue(), 0.0);
}

TEST_F(VrexSpinSurface3DTest, IsBuiltOnTheProfileThenTheLine) {
    EXPECT_THAT(m_surface->getGeometries(), ElementsAre(m_profile, m_line));
    EXPECT_THAT(m_surface->getVariables(), IsEmpty());
    const auto profile = makeSample<VrexEllipse3D>();
    const auto line = makeSample<VrexLine3D>();
    m_surface->setProfileCurve(profile);
    m_surface->setAxisLine(line);
    EXPECT_EQ(m_surface->getProfileCurve(), profile);
    EXPECT_EQ(m_surface->getAxisLine(), line);
}

TEST_F(VrexSpinSurface3DTest, IntervalUIsThatOfTheProfileWhateverTheTrim) {
    m_profile->start() = 0.5;
    m_profile->end() = 0.75;
    m_surface->startU() = 100.0;
    m_surface->endU() = 200.0;
    EXPECT_THAT(m_surface->intervalU(), Pair(0.5, 0.75));
}

TEST_F(VrexSpinSurface3DTest, IntervalVIsAFullTurnWhereNotTrimmed) {
    EXPECT_THAT(m_surface->intervalV(), Pair(0.0, 2.0 * std::numbers::pi));
    m_surface->startV() = 7.0;
    EXPECT_THAT(m_surface->intervalV(), Pair(7.0, 2.0 * std::numbers::pi))
        << "though it begins behind its end";
    m_surface->endV() = 8.0;
    EXPECT_THAT(m_surface->intervalV(), Pair(7.0, 8.0));
}

TEST_F(VrexSpinSurface3DTest, WithoutBackupItIsNeverChanged) {
    m_profile->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_FALSE(m_surface->checkChanged(0.0, 0.0));
}

TEST_F(VrexSpinSurface3DTest, AnotherProfileOrLineIsAChange) {
    m_surface->backup();
    EXPECT_FALSE(m_surface->checkChanged(0.0, 0.0));
    m_surface->setProfileCurve(makeSample<VrexCircle3D>());
    EXPECT_TRUE(m_surface->checkChanged(1e9, 1e9));
    m_surface->setProfileCurve(m_profile);
    m_surface->setAxisLine(makeSample<VrexLine3D>());
    EXPECT_TRUE(m_surface->checkChanged(1e9, 1e9));
    m_surface->setAxisLine(nullptr);
    EXPECT_TRUE(m_surface->checkChanged(1e9, 1e9));
}

TEST_F(VrexSpinSurface3DTest, ChangedProfileOrLineCountsByItsStatusAlone) {
    m_surface->backup();
    m_profile->backup();
    m_profile->setRadius(1e6);
    ASSERT_TRUE(m_profile->checkChanged(1e-8, 1e-8));
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 1e-8));
    m_profile->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_TRUE(m_surface->checkChanged(1e9, 1e9));
    m_profile->setChangeStatus(VrexGeometryChangeStatus::Fixed);
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 1e-8));
    m_line->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_TRUE(m_surface->checkChanged(1e9, 1e9));
}

TEST_F(VrexSpinSurface3DTest, UpdateKeepsProfileAndLineAndTakesTheTrim) {
    const auto other = makeSample<VrexSpinSurface3D>();
    m_surface->updateFrom(other);
    EXPECT_EQ(m_surface->getProfileCurve(), m_profile);
    EXPECT_EQ(m_surface->getAxisLine(), m_line);
    EXPECT_EQ(m_surface->startV(), other->startV());
    EXPECT_NE(other->getProfileCurve(), nullptr);
}

TEST_F(VrexSpinSurface3DTest, RestoreBringsProfileAndLineBack) {
    m_surface->backup();
    m_surface->setProfileCurve(nullptr);
    m_surface->setAxisLine(nullptr);
    m_surface->restore();
    EXPECT_EQ(m_surface->getProfileCurve(), m_profile);
    EXPECT_EQ(m_surface->getAxisLine(), m_line);
}

TEST(VrexSpinSurface3D, MayLackProfileAndLine) {
    const auto line = makeSample<VrexLine3D>();
    const auto surface = VrexSpinSurface3D::create(nullptr, line);
    EXPECT_EQ(surface->dof(), 4);
    EXPECT_THAT(surface->getGeometries(), ElementsAre(line));
    EXPECT_THAT(surface->intervalU(), Pair(std::nullopt, std::nullopt));
    surface->backup();
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
    surface->setAxisLine(nullptr);
    EXPECT_TRUE(surface->checkChanged(0.0, 0.0));
    EXPECT_EQ(surface->dof(), 0);
}

TEST(VrexSpinSurface3D, LongChainThroughDescribedCurvesIsReleasedOnASmallStack) {
    const auto line = makeSample<VrexLine3D>();
    runOnSmallStack([&line] {
        std::shared_ptr<VrexSpinSurface3D> surface = VrexSpinSurface3D::create(nullptr, line);
        for (int depth = 0; depth < 100'000; ++depth) {
            const auto curve = VrexEvaluatedCurve3D::create({0.0, 0.0, 0.0}, VrexQuaternionT<double>::ONE());
            curve->setDescriptors({{std::move(surface), 0, "p"}});
            surface = VrexSpinSurface3D::create(curve, nullptr);
        }
        EXPECT_EQ(line.use_count(), 2);
    });
    EXPECT_EQ(line.use_count(), 1);
}

} // namespace
