#include "data/geometry/3d/VrexSweepSurface3D.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/VrexVariableDescriptor.h"
#include "support/Samples.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

class VrexSweepSurface3DTest : public testing::Test {
protected:
    std::shared_ptr<VrexCircle3D> m_profile = makeSample<VrexCircle3D>();
    std::shared_ptr<VrexLine3D> m_line = VrexLine3D::create({1.0, 2.0, 3.0}, {0.0, 0.0, 1.0});
    std::shared_ptr<VrexSweepSurface3D> m_surface = VrexSweepSurface3D::create(m_profile, m_line, {});
};

TEST_F(VrexSweepSurface3DTest, HasTheFreedomsOfProfileAndLineAndNoParameters) {
    EXPECT_EQ(m_surface->type(), VrexGeometry3DType::SWEEP_SURFACE);
    EXPECT_TRUE(m_surface->isParametricSurface());
    EXPECT_EQ(m_surface->dof(), 6 + 4);
    EXPECT_EQ(VrexSweepSurface3D::PARAMETERS_AMOUNT, 0);
    VrexVariableDescriptor first(m_surface, 0, nullptr);
    first.setValue(1.0);
    EXPECT_EQ(first.getValue(), 0.0);
}

TEST_F(VrexSweepSurface3DTest, IsBuiltOnTheProfileThenTheLine) {
    EXPECT_THAT(m_surface->getGeometries(), ElementsAre(m_profile, m_line));
    const auto profile = makeSample<VrexEllipse3D>();
    const auto line = makeSample<VrexLine3D>();
    m_surface->setProfileCurve(profile);
    m_surface->setTrajectoryLine(line);
    EXPECT_EQ(m_surface->getProfileCurve(), profile);
    EXPECT_EQ(m_surface->getTrajectoryLine(), line);
}

TEST_F(VrexSweepSurface3DTest, IntervalUIsThatOfTheProfileWhateverTheTrim) {
    m_surface->startU() = 100.0;
    m_surface->endU() = 200.0;
    EXPECT_EQ(m_surface->intervalU(), m_profile->interval());
}

TEST_F(VrexSweepSurface3DTest, IntervalVIsTheRangeAsItStands) {
    EXPECT_THAT(m_surface->intervalV(), Pair(std::nullopt, std::nullopt));
    const auto half = VrexSweepSurface3D::create(m_profile, m_line, {std::nullopt, 2.0});
    EXPECT_THAT(half->intervalV(), Pair(std::nullopt, 2.0));
    EXPECT_EQ(half->endV(), 2.0);
    half->startV() = 5.0;
    EXPECT_THAT(half->intervalV(), Pair(5.0, 2.0));
}

TEST_F(VrexSweepSurface3DTest, NothingIsAChangeBeforeTheLineHasASnapshot) {
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0)) << "without a snapshot of its own";
    m_surface->backup();
    m_profile->setChangeStatus(VrexGeometryChangeStatus::Changed);
    m_surface->setProfileCurve(makeSample<VrexCircle3D>());
    m_line->setDirection({1.0, 0.0, 0.0});
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0));
}

TEST_F(VrexSweepSurface3DTest, TurnedLineIsAChangeFromTheToleranceOn) {
    m_line->backup();
    m_surface->backup();
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0));
    m_line->setDirection({0.01, 0.0, 1.0});
    EXPECT_TRUE(m_surface->checkChanged(0.005, 1e9));
    EXPECT_FALSE(m_surface->checkChanged(0.02, 0.0));
    m_line->setDirection({0.0, 0.0, 1.0});
    m_line->setOrigin({1e6, 0.0, 0.0});
    m_line->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0)) << "the origin of the line plays no part";
}

TEST_F(VrexSweepSurface3DTest, AnotherLineCountsByItsDirection) {
    m_line->backup();
    m_surface->backup();
    m_surface->setTrajectoryLine(VrexLine3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}));
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0));
    m_surface->setTrajectoryLine(VrexLine3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}));
    EXPECT_TRUE(m_surface->checkChanged(1e-8, 0.0));
    m_surface->setTrajectoryLine(nullptr);
    EXPECT_TRUE(m_surface->checkChanged(1e-8, 0.0));
}

TEST_F(VrexSweepSurface3DTest, AnotherProfileOrItsStatusIsAChange) {
    m_line->backup();
    m_surface->backup();
    m_surface->setProfileCurve(makeSample<VrexCircle3D>());
    EXPECT_TRUE(m_surface->checkChanged(1e-8, 0.0));
    m_surface->setProfileCurve(m_profile);
    m_profile->setRadius(1e6);
    EXPECT_FALSE(m_surface->checkChanged(1e-8, 0.0));
    m_profile->setChangeStatus(VrexGeometryChangeStatus::Changed);
    EXPECT_TRUE(m_surface->checkChanged(1e-8, 0.0));
}

TEST_F(VrexSweepSurface3DTest, UpdateKeepsProfileAndLineAndTakesTheTrim) {
    m_surface->updateFrom(makeSample<VrexSweepSurface3D>());
    EXPECT_EQ(m_surface->getProfileCurve(), m_profile);
    EXPECT_EQ(m_surface->getTrajectoryLine(), m_line);
    EXPECT_EQ(m_surface->intervalV(), makeSample<VrexSweepSurface3D>()->intervalV());
}

TEST_F(VrexSweepSurface3DTest, RestoreBringsProfileAndLineBack) {
    m_surface->backup();
    m_surface->setProfileCurve(nullptr);
    m_surface->setTrajectoryLine(nullptr);
    m_surface->restore();
    EXPECT_EQ(m_surface->getProfileCurve(), m_profile);
    EXPECT_EQ(m_surface->getTrajectoryLine(), m_line);
}

TEST(VrexSweepSurface3D, MayLackProfileAndLine) {
    const auto surface = VrexSweepSurface3D::create(nullptr, nullptr, {1.0, 2.0});
    EXPECT_EQ(surface->dof(), 0);
    EXPECT_TRUE(surface->getGeometries().empty());
    EXPECT_THAT(surface->intervalU(), Pair(std::nullopt, std::nullopt));
    surface->backup();
    surface->setProfileCurve(makeSample<VrexCircle3D>());
    EXPECT_FALSE(surface->checkChanged(0.0, 0.0));
}

} // namespace
