#include "data/geometry/VrexGeometryFactory.h"

#include <gtest/gtest.h>

#include "data/base/VrexIDGenerator.h"
#include "data/base/VrexLogRecorder.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

TEST(VrexGeometryFactory, VariablesGetTheGeneratorsIdentifiers) {
    VrexLogRecorder recorder(3);
    VrexIDGenerator generator(5);
    VrexGeometryFactory factory(recorder);
    factory.setIDGenerator(&generator);
    const auto first = factory.createVariable(2.5);
    const auto second = factory.createVariable(-1.0);
    EXPECT_EQ(first->getID(), 5U);
    EXPECT_EQ(first->getValue(), 2.5);
    EXPECT_EQ(second->getID(), 6U);
    EXPECT_EQ(second->getValue(), -1.0);
    EXPECT_TRUE(recorder.isNoError());
}

TEST(VrexGeometryFactory, WithoutAGeneratorVariablesHaveNoIdentifier) {
    VrexLogRecorder recorder(3);
    const VrexGeometryFactory factory(recorder);
    EXPECT_EQ(factory.createVariable(2.5)->getID(), 0U);
    EXPECT_EQ(factory.createVariable(2.5)->getID(), 0U);
}

} // namespace
