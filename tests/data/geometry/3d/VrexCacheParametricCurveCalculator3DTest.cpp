#include "data/geometry/3d/VrexCacheParametricCurveCalculator3D.h"

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "support/LogCapture.h"
#include "support/ProbeShapes.h"

namespace {

class VrexCacheParametricCurveCalculator3DTest : public testing::Test {
protected:
    std::shared_ptr<ProbeCurveCalculator> m_calculator = std::make_shared<ProbeCurveCalculator>();
    VrexCacheParametricCurveCalculator3D m_cache{m_calculator};
};

TEST_F(VrexCacheParametricCurveCalculator3DTest, AHitEvaluatesNothingAndReturnsTheSameElement) {
    const auto& first = m_cache.calculate(0.5, 1);
    ASSERT_EQ(first.size(), 2U);
    EXPECT_EQ(first[1].x(), 0.5);
    EXPECT_EQ(first[1].y(), 1.0);
    EXPECT_EQ(&m_cache.calculate(0.5, 1), &first);
    EXPECT_EQ(m_calculator->evaluations, 1);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, LowerOrderAfterAHigherOneReturnsTheLongerVector) {
    static_cast<void>(m_cache.calculate(0.5, 1));
    EXPECT_EQ(m_cache.calculate(0.5, 0).size(), 2U);
    EXPECT_EQ(m_cache.calculate(0.5, -5).size(), 2U);
    EXPECT_EQ(m_calculator->evaluations, 1);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, HigherOrderEvaluatesAgainAndReplacesTheEntry) {
    const auto& entry = m_cache.calculate(0.5, 0);
    EXPECT_EQ(entry.size(), 1U);
    EXPECT_EQ(m_cache.calculate(0.5, 1).size(), 2U);
    EXPECT_EQ(m_calculator->evaluations, 2);
    EXPECT_EQ(entry[0].z(), 2.0) << "all of the entry is of the second evaluation";
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, NegativeOrderOfANewParameterIsEmpty) {
    EXPECT_TRUE(m_cache.calculate(0.5, -1).empty());
    EXPECT_TRUE(m_cache.calculate(0.5, std::numeric_limits<int>::min()).empty());
    EXPECT_EQ(m_cache.calculate(0.5, 0).size(), 1U);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, KeysAreExactButForTheSignOfZero) {
    const auto& zero = m_cache.calculate(0.0, 0);
    EXPECT_EQ(&m_cache.calculate(-0.0, 0), &zero);
    EXPECT_EQ(m_calculator->evaluations, 1);
    static_cast<void>(m_cache.calculate(1.0, 0));
    EXPECT_EQ(m_cache.calculate(std::nextafter(1.0, 2.0), 0)[0].x(), std::nextafter(1.0, 2.0));
    EXPECT_EQ(m_calculator->evaluations, 3);
    static_cast<void>(m_cache.calculate(std::numeric_limits<double>::infinity(), 0));
    static_cast<void>(m_cache.calculate(std::numeric_limits<double>::infinity(), 0));
    EXPECT_EQ(m_calculator->evaluations, 4);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, NaNIsEvaluatedAtEachCallAndKeptInOnePlace) {
    const double nan = std::nan("");
    const auto& first = m_cache.calculate(nan, 1);
    EXPECT_EQ(first.size(), 2U);
    const auto& second = m_cache.calculate(nan, 0);
    EXPECT_EQ(m_calculator->evaluations, 2);
    EXPECT_EQ(&second, &first) << "a loop over NaN does not grow the cache";
    EXPECT_EQ(second.size(), 1U);
    EXPECT_TRUE(m_cache.calculate(nan, -1).empty());
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, ReferencesSurviveGrowth) {
    const auto& first = m_cache.calculate(0.0, 2);
    const auto* data = first.data();
    for (int i = 1; i < 1000; ++i) {
        static_cast<void>(m_cache.calculate(i, 2));
    }
    EXPECT_EQ(&m_cache.calculate(0.0, 2), &first);
    EXPECT_EQ(first.data(), data);
    EXPECT_EQ(m_calculator->evaluations, 1000);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, CopyTakesTheEntriesAndSharesTheCalculator) {
    static_cast<void>(m_cache.calculate(0.5, 1));
    const VrexCacheParametricCurveCalculator3D copy(m_cache);
    EXPECT_EQ(copy.calculate(0.5, 1)[0].z(), 1.0);
    EXPECT_NE(&copy.calculate(0.5, 1), &m_cache.calculate(0.5, 1));
    EXPECT_EQ(m_calculator->evaluations, 1);
    static_cast<void>(copy.calculate(0.75, 0));
    static_cast<void>(m_cache.calculate(0.75, 0));
    EXPECT_EQ(m_calculator->evaluations, 3) << "what one learns later the other does not know";

    VrexCacheParametricCurveCalculator3D assigned(std::make_shared<ProbeCurveCalculator>());
    assigned = copy;
    EXPECT_EQ(assigned.calculate(0.75, 0)[0].z(), 2.0);
    EXPECT_EQ(m_calculator->evaluations, 3);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, MoveTakesTheEntries) {
    static_cast<void>(m_cache.calculate(0.5, 1));
    const VrexCacheParametricCurveCalculator3D moved(std::move(m_cache));
    EXPECT_EQ(moved.calculate(0.5, 1)[0].z(), 1.0);
    EXPECT_EQ(m_calculator->evaluations, 1);
}

TEST_F(VrexCacheParametricCurveCalculator3DTest, FailedEvaluationIsNotTakenForAResult) {
    m_calculator->failure = std::make_exception_ptr(std::runtime_error("no"));
    EXPECT_THROW(static_cast<void>(m_cache.calculate(0.5, 1)), std::runtime_error);
    EXPECT_EQ(m_cache.calculate(0.5, 1).size(), 2U);
    m_calculator->failure = std::make_exception_ptr(std::runtime_error("no"));
    EXPECT_THROW(static_cast<void>(m_cache.calculate(0.5, 2)), std::runtime_error);
    EXPECT_EQ(m_cache.calculate(0.5, 1).size(), 2U) << "the lower order is still there";
    EXPECT_EQ(m_calculator->evaluations, 1);
}

TEST(VrexCacheParametricCurveCalculator3D, NothingInvalidatesIt) {
    const auto circle = VrexCircle3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    const VrexCacheParametricCurveCalculator3D cache(VrexParametricCurveCalculator3D::create(*circle));
    EXPECT_EQ(cache.calculate(0.0, 0)[0].x(), 1.0);
    circle->setRadius(2.0);
    EXPECT_EQ(cache.calculate(0.0, 0)[0].x(), 1.0);
    EXPECT_EQ(cache.calculate(0.0, 1)[0].x(), 2.0);
}

TEST(VrexCacheParametricCurveCalculator3D, CurvatureIsThatOfTheCurve) {
    for (const double radius : {0.25, 4.0, -4.0}) {
        const auto circle = VrexCircle3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, radius);
        const VrexCacheParametricCurveCalculator3D cache(VrexParametricCurveCalculator3D::create(*circle));
        EXPECT_NEAR(cache.curvature(0.7), 1.0 / std::fabs(radius), 1e-14);
    }
    const auto ellipse = VrexEllipse3D::create({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 3.0, 2.0);
    const VrexCacheParametricCurveCalculator3D cache(VrexParametricCurveCalculator3D::create(*ellipse));
    const double t = 0.7;
    const double speed = std::hypot(3.0 * std::sin(t), 2.0 * std::cos(t));
    EXPECT_NEAR(cache.curvature(t), 3.0 * 2.0 / (speed * speed * speed), 1e-14);
}

TEST(VrexCacheParametricCurveCalculator3D, CurvatureIsNotFiniteWhereTheFirstDerivativeVanishes) {
    const auto point = VrexCircle3D::create({1.0, 2.0, 3.0}, {2.0, -1.0, 2.0}, 0.0);
    const VrexCacheParametricCurveCalculator3D cache(VrexParametricCurveCalculator3D::create(*point));
    EXPECT_FALSE(std::isfinite(cache.curvature(0.7)));
}

TEST(VrexCacheParametricCurveCalculator3D, NeedsACalculator) {
    const LogCapture log;
    EXPECT_THAT([] { VrexCacheParametricCurveCalculator3D cache(nullptr); },
                testing::ThrowsMessage<std::invalid_argument>("A cache needs a calculator."));
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().level, 1U);
}

} // namespace
