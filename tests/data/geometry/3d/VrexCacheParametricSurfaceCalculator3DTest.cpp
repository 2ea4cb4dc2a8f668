#include "data/geometry/3d/VrexCacheParametricSurfaceCalculator3D.h"

#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/geometry/3d/VrexCylinder3D.h"
#include "support/LogCapture.h"
#include "support/ProbeShapes.h"

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

class VrexCacheParametricSurfaceCalculator3DTest : public testing::Test {
protected:
    std::shared_ptr<ProbeSurfaceCalculator> m_calculator = std::make_shared<ProbeSurfaceCalculator>();
    VrexCacheParametricSurfaceCalculator3D m_cache{m_calculator, 1e-6};

    int evaluations() const { return m_calculator->evaluations; }
};

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, AHitEvaluatesNothingAndReturnsTheSameElement) {
    const auto& first = m_cache.calculate(0.5, 0.25, 1);
    EXPECT_EQ(first[3].x(), 0.5);
    EXPECT_EQ(first[3].y(), 0.25);
    EXPECT_EQ(first[3].z(), 103.0);
    EXPECT_EQ(&m_cache.calculate(0.5, 0.25, 1), &first);
    EXPECT_EQ(&m_cache.calculate(0.5, 0.25, 0), &first);
    EXPECT_EQ(&m_cache.calculate(0.5, 0.25, -7), &first);
    EXPECT_EQ(evaluations(), 1);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, OrderZeroOfANewKeyIsEvaluated) {
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 0)[0].z(), 100.0);
    EXPECT_EQ(evaluations(), 1);
    EXPECT_EQ(m_calculator->lastOrder, 0);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, NegativeOrderOfANewKeyIsNotEvaluated) {
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, -1)[0].z(), 0.0);
    EXPECT_EQ(evaluations(), 0);
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 0)[0].z(), 100.0);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, HigherOrderEvaluatesAgainAndReplacesTheEntry) {
    const auto& entry = m_cache.calculate(0.5, 0.25, 0);
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 2)[0].z(), 200.0);
    EXPECT_EQ(m_calculator->lastOrder, 2);
    EXPECT_EQ(entry[0].z(), 200.0);
    static_cast<void>(m_cache.calculate(0.5, 0.25, 1));
    EXPECT_EQ(evaluations(), 2);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, SignOfZeroIsNoPartOfAKey) {
    const auto& zero = m_cache.calculate(0.0, 0.0, 0);
    EXPECT_EQ(&m_cache.calculate(-0.0, 0.0, 0), &zero);
    EXPECT_EQ(&m_cache.calculate(0.0, -0.0, 0), &zero);
    const auto& normal = m_cache.calculateNormal(0.0, 0.0);
    EXPECT_EQ(&m_cache.calculateNormal(-0.0, -0.0), &normal);
    EXPECT_EQ(evaluations(), 2) << "a sample and a normal";
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, NearKeysMeetOnlyInOneBucket) {
    const std::unordered_map<int, int> table(8);
    const VrexParameterHash hash;
    const auto bucket = [&](double u, double v) {
        return hash(VrexVector2DT<double>(u, v)) % table.bucket_count();
    };
    int met = 0;
    int missed = 0;
    for (int i = 1; i <= 100; ++i) {
        const double v = 1.0 + 1e-9 * i;
        const VrexCacheParametricSurfaceCalculator3D cache(m_calculator, 1e-6);
        const auto& first = cache.calculate(1.0, 1.0, 0);
        const bool inOneBucket = bucket(1.0, v) == bucket(1.0, 1.0);
        EXPECT_EQ(&cache.calculate(1.0, v, 0) == &first, inOneBucket) << v;
        EXPECT_EQ(cache.calculate(1.0, v, 0)[0].y(), inOneBucket ? 1.0 : v) << v;
        const auto& normal = cache.calculateNormal(1.0, 1.0);
        EXPECT_EQ(&cache.calculateNormal(1.0, v) == &normal, inOneBucket) << v;
        ++(inOneBucket ? met : missed);
    }
    EXPECT_GT(met, 0);
    EXPECT_GT(missed, 0);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, KeysThatDifferByTheToleranceNeverMeet) {
    for (int i = 0; i < 100; ++i) {
        const VrexCacheParametricSurfaceCalculator3D cache(m_calculator, 0.25);
        const double u = i;
        const auto& first = cache.calculate(u, 0.0, 0);
        EXPECT_NE(&cache.calculate(u, 0.25, 0), &first);
        EXPECT_NE(&cache.calculate(u + 0.25, 0.0, 0), &first);
        EXPECT_NE(&cache.calculate(u + 0.125, 0.5, 0), &first) << "both coordinates have to be near";
    }
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, KeysThatCannotBeFoundAreEvaluatedAtEachCall) {
    const auto& sample = m_cache.calculate(NOT_A_NUMBER, 0.5, 1);
    EXPECT_EQ(sample[0].z(), 100.0);
    EXPECT_EQ(&m_cache.calculate(0.5, NOT_A_NUMBER, 0), &sample) << "a loop over NaN does not grow the cache";
    EXPECT_EQ(sample[0].z(), 200.0);
    EXPECT_EQ(m_cache.calculate(NOT_A_NUMBER, NOT_A_NUMBER, -1)[0].z(), 0.0);
    for (const double tolerance : {0.0, -1.0, NOT_A_NUMBER}) {
        const int before = evaluations();
        const VrexCacheParametricSurfaceCalculator3D exact(m_calculator, tolerance);
        static_cast<void>(exact.calculate(0.5, 0.25, 0));
        static_cast<void>(exact.calculate(0.5, 0.25, 0));
        EXPECT_EQ(evaluations(), before + 2);
    }
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, NormalOfAKeyThatCannotBeFoundThrows) {
    const LogCapture log;
    const auto expectThrow = [](const auto& call) {
        EXPECT_THAT(call, testing::ThrowsMessage<std::out_of_range>("invalid unordered_map<K, T> key"));
    };
    expectThrow([&] { static_cast<void>(m_cache.calculateNormal(NOT_A_NUMBER, 0.5)); });
    expectThrow([&] { static_cast<void>(m_cache.calculateNormal(0.5, NOT_A_NUMBER)); });
    const VrexCacheParametricSurfaceCalculator3D exact(m_calculator, 0.0);
    expectThrow([&] { static_cast<void>(exact.calculateNormal(0.5, 0.25)); });
    ASSERT_EQ(log.lines().size(), 3U);
    EXPECT_EQ(log.lines().front().level, 1U);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, NormalIsEvaluatedOnceAndApartFromTheSample) {
    const auto& normal = m_cache.calculateNormal(0.5, 0.25);
    // (0.5, 0.25, 103) x (0.5, 0.25, 101)
    EXPECT_EQ(normal.x(), 0.25 * 101.0 - 0.25 * 103.0);
    EXPECT_EQ(normal.y(), 103.0 * 0.5 - 0.5 * 101.0);
    EXPECT_EQ(normal.z(), 0.0);
    EXPECT_EQ(&m_cache.calculateNormal(0.5, 0.25), &normal);
    EXPECT_EQ(evaluations(), 1);
    EXPECT_EQ(m_calculator->lastOrder, 1);
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 0)[0].z(), 200.0);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, ReferencesSurviveGrowth) {
    const auto& sample = m_cache.calculate(0.0, 0.0, 2);
    const auto& normal = m_cache.calculateNormal(0.0, 0.0);
    for (int i = 1; i < 1000; ++i) {
        static_cast<void>(m_cache.calculate(i, -i, 2));
        static_cast<void>(m_cache.calculateNormal(i, -i));
    }
    EXPECT_EQ(&m_cache.calculate(0.0, 0.0, 2), &sample);
    EXPECT_EQ(&m_cache.calculateNormal(0.0, 0.0), &normal);
    EXPECT_EQ(evaluations(), 2000);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, CopyAndMoveTakeTheEntriesAndTheTolerance) {
    static_cast<void>(m_cache.calculate(0.5, 0.25, 1));
    static_cast<void>(m_cache.calculateNormal(0.5, 0.25));
    const VrexCacheParametricSurfaceCalculator3D copy(m_cache);
    EXPECT_EQ(copy.calculate(0.5, 0.25, 1)[0].z(), 100.0);
    EXPECT_EQ(&copy.calculateNormal(0.5, 0.25), &copy.calculateNormal(0.5, 0.25));
    EXPECT_NE(&copy.calculate(0.5, 0.25, 1), &m_cache.calculate(0.5, 0.25, 1));
    VrexCacheParametricSurfaceCalculator3D assigned(m_calculator, 0.0);
    assigned = copy;
    EXPECT_EQ(assigned.calculate(0.5, 0.25, 1)[0].z(), 100.0);
    const VrexCacheParametricSurfaceCalculator3D moved(std::move(m_cache));
    EXPECT_EQ(moved.calculate(0.5, 0.25, 1)[0].z(), 100.0);
    static_cast<void>(moved.calculateNormal(0.5, 0.25));
    EXPECT_EQ(evaluations(), 2);
}

TEST_F(VrexCacheParametricSurfaceCalculator3DTest, FailedEvaluationLeavesNoValidEntry) {
    const auto fail = [&] { m_calculator->failure = std::make_exception_ptr(std::runtime_error("no")); };
    fail();
    EXPECT_THROW(static_cast<void>(m_cache.calculate(0.5, 0.25, 1)), std::runtime_error);
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 1)[0].z(), 100.0);
    fail();
    EXPECT_THROW(static_cast<void>(m_cache.calculate(0.5, 0.25, 2)), std::runtime_error);
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 1)[0].z(), 100.0) << "the lower order is still there";
    EXPECT_EQ(m_cache.calculate(0.5, 0.25, 2)[0].z(), 200.0);
    fail();
    EXPECT_THROW(static_cast<void>(m_cache.calculateNormal(0.5, 0.25)), std::runtime_error);
    EXPECT_NE(m_cache.calculateNormal(0.5, 0.25).x(), 0.0);
}

TEST(VrexCacheParametricSurfaceCalculator3D, NothingInvalidatesIt) {
    const auto cylinder = VrexCylinder3D::create({0.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, 1.0);
    const VrexCacheParametricSurfaceCalculator3D cache(VrexParametricSurfaceCalculator3D::create(*cylinder),
                                                       1e-6);
    EXPECT_EQ(cache.calculate(0.0, 0.0, 0)[0].x(), 1.0);
    EXPECT_EQ(cache.calculateNormal(0.0, 0.0).x(), 1.0);
    cylinder->setRadius(-2.0);
    EXPECT_EQ(cache.calculate(0.0, 0.0, 0)[0].x(), 1.0);
    EXPECT_EQ(cache.calculateNormal(0.0, 0.0).x(), 1.0);
}

TEST(VrexCacheParametricSurfaceCalculator3D, NeedsACalculator) {
    EXPECT_THAT([] { VrexCacheParametricSurfaceCalculator3D cache(nullptr, 1e-6); },
                testing::ThrowsMessage<std::invalid_argument>("A cache needs a calculator."));
}

} // namespace
