#include "data/base/VrexBaseDataFactory.h"

#include <utility>

#include <gtest/gtest.h>

#include "data/base/VrexDefaultToleranceGetter.h"
#include "data/base/VrexIDGenerator.h"
#include "data/base/VrexLogRecorder.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

/// A factory of variables, as the library's own factories are made.
class VariableFactory final : public VrexBaseDataFactory {
public:
    using VrexBaseDataFactory::VrexBaseDataFactory;
    std::shared_ptr<VrexGeometryVariable> make() const {
        auto variable = VrexGeometryVariable::create(1.0);
        assignID(*variable);
        return variable;
    }
    VrexLogRecorder& recorder() const { return m_logRecorder; }
};

class CoarseTolerances final : public VrexToleranceGetter {
public:
    double getLinearTolerance() const override { return 1e-3; }
    double getAngularTolerance() const override { return 1e-4; }
};

TEST(VrexBaseDataFactory, GeneratorAtFiveGivesFiveAndSix) {
    VrexLogRecorder recorder(1);
    VrexIDGenerator generator(5);
    VariableFactory factory(recorder);
    factory.setIDGenerator(&generator);
    EXPECT_EQ(factory.make()->getID(), 5U);
    EXPECT_EQ(factory.make()->getID(), 6U);
    EXPECT_EQ(generator.getNext(), 7U);
}

TEST(VrexBaseDataFactory, WithoutGeneratorObjectsHaveNoIdAndNothingIsReported) {
    VrexLogRecorder recorder(1);
    const VariableFactory factory(recorder);
    EXPECT_EQ(factory.make()->getID(), 0U);
    EXPECT_EQ(factory.make()->getID(), 0U);
    EXPECT_TRUE(recorder.isNoError());
}

TEST(VrexBaseDataFactory, TolerancesAreTheGetters) {
    VrexLogRecorder recorder(1);
    VariableFactory factory(recorder);
    CoarseTolerances tolerances;
    factory.setToleranceGetter(&tolerances);
    EXPECT_EQ(factory.getLinearTolerance(), 1e-3);
    EXPECT_EQ(factory.getAngularTolerance(), 1e-4);
}

TEST(VrexBaseDataFactory, WithoutGetterTolerancesAreTheDefaults) {
    VrexLogRecorder recorder(1);
    const VariableFactory factory(recorder);
    EXPECT_EQ(factory.getLinearTolerance(), 1e-8);
    EXPECT_EQ(factory.getAngularTolerance(), 1e-11);
}

TEST(VrexBaseDataFactory, CopyAndMoveShareGeneratorGetterAndRecorder) {
    VrexLogRecorder recorder(1);
    VrexIDGenerator generator(5);
    CoarseTolerances tolerances;
    VariableFactory factory(recorder);
    factory.setIDGenerator(&generator);
    factory.setToleranceGetter(&tolerances);
    VariableFactory copy(factory);
    const VariableFactory moved(std::move(factory));
    EXPECT_EQ(copy.make()->getID(), 5U);
    EXPECT_EQ(moved.make()->getID(), 6U);
    EXPECT_EQ(copy.getLinearTolerance(), 1e-3);
    EXPECT_EQ(moved.getAngularTolerance(), 1e-4);
    EXPECT_EQ(&copy.recorder(), &recorder);
    EXPECT_EQ(&moved.recorder(), &recorder);
}

TEST(VrexDefaultToleranceGetter, HasTheDefaults) {
    const VrexDefaultToleranceGetter getter;
    EXPECT_EQ(getter.getLinearTolerance(), 1e-8);
    EXPECT_EQ(getter.getAngularTolerance(), 1e-11);
}

TEST(VrexIDGenerator, StartsAtOneAndRises) {
    VrexIDGenerator generator;
    EXPECT_EQ(generator.getNext(), 1U);
    EXPECT_EQ(generator.next(), 1U);
    EXPECT_EQ(generator.next(), 2U);
    generator.setNext(100);
    EXPECT_EQ(generator.next(), 100U);
}

TEST(VrexIDGenerator, NeverHandsOutZero) {
    VrexIDGenerator fromZero(0);
    EXPECT_EQ(fromZero.next(), 1U);
    VrexIDGenerator last(18446744073709551615ULL);
    EXPECT_EQ(last.next(), 18446744073709551615ULL);
    EXPECT_EQ(last.getNext(), 1U);
    EXPECT_EQ(last.next(), 1U);
}

} // namespace
