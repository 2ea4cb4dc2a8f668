#include "data/operation/VrexOperation.h"

#include <cstdint>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/operation/VrexConstraintOperationData.h"
#include "data/operation/VrexGeometryOperationData.h"
#include "support/SamplesRelations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr VrexOperationType MOVED{42};

static_assert(sizeof(VrexOperationType) == 4 && sizeof(VrexOperationDataType) == 4);

TEST(VrexOperationData, TellsWhichClassOfObjectItNames) {
    const auto point = makeSample<VrexPoint3D>();
    const auto constraint = makeSample<VrexParallelism3D>();
    const auto equation = makeSample<VrexExpressionEquation>();
    const VrexGeometryOperationData ofPoint(point);
    const VrexConstraintOperationData ofConstraint(constraint);
    EXPECT_EQ(static_cast<std::int32_t>(ofPoint.getType()), 0);
    EXPECT_EQ(static_cast<std::int32_t>(ofConstraint.getType()), 1);
    EXPECT_EQ(ofPoint.getGeometry(), point);
    EXPECT_EQ(ofConstraint.getConstraint(), constraint);
    EXPECT_EQ(VrexGeometryOperationData(makeSample<VrexGeometryVariable>()).getType(), ofPoint.getType());
    EXPECT_EQ(VrexConstraintOperationData(equation).getConstraint(), equation);
}

TEST(VrexOperationData, CopiesShareTheObject) {
    const auto point = makeSample<VrexPoint3D>();
    const VrexGeometryOperationData data(point);
    const VrexGeometryOperationData copy = data;
    VrexGeometryOperationData assigned(nullptr);
    EXPECT_EQ(assigned.getGeometry(), nullptr);
    assigned = data;
    EXPECT_EQ(copy.getGeometry(), point);
    EXPECT_EQ(assigned.getGeometry(), point);
    EXPECT_EQ(point.use_count(), 4);
}

TEST(VrexOperation, HoldsTypeDataAndParams) {
    const auto data = std::make_shared<VrexGeometryOperationData>(makeSample<VrexPoint3D>());
    const auto other = std::make_shared<VrexConstraintOperationData>(makeSample<VrexParallelism3D>());
    const VrexOperation alone(MOVED, data);
    EXPECT_EQ(alone.operatoinType(), MOVED);
    EXPECT_EQ(alone.operationData(), data);
    EXPECT_THAT(alone.operationParams(), IsEmpty());

    std::vector<std::shared_ptr<VrexOperationData>> params{other, nullptr, data};
    const VrexOperation operation(MOVED, data, params);
    params.clear();
    EXPECT_THAT(operation.operationParams(), ElementsAre(other, nullptr, data));
}

TEST(VrexOperation, CopiesShareTheData) {
    const auto data = std::make_shared<VrexGeometryOperationData>(makeSample<VrexPoint3D>());
    VrexOperation operation(VrexOperationType{-7}, data, {data});
    const VrexOperation copy = operation;
    operation = VrexOperation(MOVED, nullptr);
    EXPECT_EQ(copy.operatoinType(), VrexOperationType{-7});
    EXPECT_EQ(copy.operationData(), data);
    EXPECT_THAT(copy.operationParams(), ElementsAre(data));
    EXPECT_EQ(operation.operationData(), nullptr);
}

} // namespace
