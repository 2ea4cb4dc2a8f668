#include "data/constraint/3d/VrexMate3D.h"

#include <limits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RecordingVisitor.h"
#include "support/SamplesConstraints.h"

namespace {

using testing::ElementsAre;

using Connector = std::shared_ptr<VrexConnector3D>;
using Limits = std::vector<VrexDimensionLimits>;

struct Case {
    std::shared_ptr<VrexMate3D> mate;
    VrexConstraint3DType kind;
    int doc;
    int declaredSize;
    Limits limits;
};

const VrexDimensionLimits A{-1.0, 2.0};
const VrexDimensionLimits B{std::nullopt, 4.0};
const VrexDimensionLimits C{6.0, -5.0};
const VrexDimensionLimits D{0.25, std::nullopt};

/// One mate of each class, each pair of limits different.
std::vector<Case> allMates(const Connector& first, const Connector& second) {
    using enum VrexConstraint3DType;
    return {
        {VrexSliderMate3D::create(first, second, A),
         SliderMate3D,
         5,
         VrexSliderMate3D::DIMENSIONS_AMOUNT,
         {A}},
        {VrexRevoluteMate3D::create(first, second, A),
         RevoluteMate3D,
         5,
         VrexRevoluteMate3D::DIMENSIONS_AMOUNT,
         {A}},
        {VrexCylinderMate3D::create(first, second, A, B),
         CylinderMate3D,
         4,
         VrexCylinderMate3D::DIMENSIONS_AMOUNT,
         {A, B}},
        {VrexPinSlotMate3D::create(first, second, A, B),
         PinSlotMate3D,
         4,
         VrexPinSlotMate3D::DIMENSIONS_AMOUNT,
         {A, B}},
        {VrexPlanarMate3D::create(first, second, A, B, C),
         PlanarMate3D,
         3,
         VrexPlanarMate3D::DIMENSIONS_AMOUNT,
         {A, B, C}},
        {VrexParallelMate3D::create(first, second, A, B, C, D),
         ParallelMate3D,
         2,
         VrexParallelMate3D::DIMENSIONS_AMOUNT,
         {A, B, C, D}},
        {VrexBallMate3D::create(first, second, A), BallMate3D, 3, VrexBallMate3D::DIMENSIONS_AMOUNT, {A}},
        {VrexFastenedMate3D::create(first, second),
         FastenedMate3D,
         6,
         VrexFastenedMate3D::DIMENSIONS_AMOUNT,
         {}},
    };
}

std::vector<Case> allMates() {
    return allMates(makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>());
}

TEST(VrexMate3D, TableOfTheClasses) {
    for (const Case& row : allMates()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        EXPECT_EQ(row.mate->type(), row.kind);
        EXPECT_EQ(row.mate->doc(), row.doc);
        EXPECT_EQ(row.mate->getDimensionSize(), row.limits.size());
        EXPECT_EQ(static_cast<std::size_t>(row.declaredSize), row.limits.size());
        EXPECT_FALSE(row.mate->isHelpPointSupported());
        EXPECT_FALSE(row.mate->isHelpParameterSupported());
        EXPECT_FALSE(row.mate->isRigid());
        EXPECT_THAT(row.mate->getConstraints(), testing::IsEmpty());
    }
}

TEST(VrexMate3D, FastenedMateHasNoDimension) {
    EXPECT_EQ(makeSample<VrexFastenedMate3D>()->getDimensionSize(), 0U);
}

TEST(VrexMate3D, NewMateHoldsItsConnectorsAndUntestedLimits) {
    const auto first = makeSample<VrexConnector3D>();
    const auto second = makeSample<VrexConnector3D>();
    for (const Case& row : allMates(first, second)) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        EXPECT_THAT(row.mate->getGeometries(), ElementsAre(first, second));
        EXPECT_TRUE(row.mate->areGeometriesChanged());
        EXPECT_EQ(row.mate->getGeomComponentType(1), VrexGeometryComponentType::UNKNOWN);
        EXPECT_EQ(row.mate->getGeomComponentType(2), VrexGeometryComponentType::UNKNOWN);
        for (std::size_t i = 0; i < row.limits.size(); ++i) {
            const VrexMateDimension3D& dimension = row.mate->getDimension(i);
            EXPECT_EQ(dimension.value, 0.0);
            EXPECT_EQ(dimension.limits, row.limits[i]);
            EXPECT_FALSE(dimension.fixed());
        }
    }
}

TEST(VrexMate3D, NullConnectorsAreStored) {
    for (const Case& row : allMates(nullptr, nullptr)) {
        EXPECT_THAT(row.mate->getGeometries(), ElementsAre(nullptr, nullptr)) << nsEnum::toText(row.kind);
        EXPECT_EQ(row.mate->getGeometries3DCount(), 0U);
    }
}

/// Writes through the mutable accessor and looks for it under the index, through the constant one as well.
template <class Mate>
void expectDimension(const std::shared_ptr<Mate>& mate, std::uint64_t index,
                     VrexMateDimension3D& (Mate::*get)(), const VrexMateDimension3D& (Mate::*read)() const) {
    (mate.get()->*get)().value = 10.0 + static_cast<double>(index);
    EXPECT_EQ(mate->getDimension(index).value, 10.0 + static_cast<double>(index));
    EXPECT_EQ(&(std::as_const(*mate).*read)(), &mate->getDimension(index));
}

#define EXPECT_DIMENSION(MATE, INDEX, GETTER)                                                                \
    expectDimension(makeSample<MATE>(), INDEX, &MATE::GETTER, &MATE::GETTER)

TEST(VrexMate3D, AccessorsReachTheirDimensions) {
    EXPECT_DIMENSION(VrexSliderMate3D, 0, getDistance);
    EXPECT_DIMENSION(VrexRevoluteMate3D, 0, getAngle);
    EXPECT_DIMENSION(VrexCylinderMate3D, 0, getDistance);
    EXPECT_DIMENSION(VrexCylinderMate3D, 1, getAngle);
    EXPECT_DIMENSION(VrexPinSlotMate3D, 0, getDistance);
    EXPECT_DIMENSION(VrexPinSlotMate3D, 1, getAngle);
    EXPECT_DIMENSION(VrexPlanarMate3D, 0, getDistanceX);
    EXPECT_DIMENSION(VrexPlanarMate3D, 1, getDistanceY);
    EXPECT_DIMENSION(VrexPlanarMate3D, 2, getAngle);
    EXPECT_DIMENSION(VrexParallelMate3D, 0, getDistanceX);
    EXPECT_DIMENSION(VrexParallelMate3D, 1, getDistanceY);
    EXPECT_DIMENSION(VrexParallelMate3D, 2, getDistanceZ);
    EXPECT_DIMENSION(VrexParallelMate3D, 3, getAngle);
    EXPECT_DIMENSION(VrexBallMate3D, 0, getAngle);
}

#undef EXPECT_DIMENSION

TEST(VrexMate3D, IndicesOfTheDimensions) {
    EXPECT_EQ(VrexSliderMate3D::DISTANCE, 0);
    EXPECT_EQ(VrexRevoluteMate3D::ANGLE, 0);
    EXPECT_EQ(VrexCylinderMate3D::DISTANCE, 0);
    EXPECT_EQ(VrexCylinderMate3D::ANGLE, 1);
    EXPECT_EQ(VrexPinSlotMate3D::DISTANCE, 0);
    EXPECT_EQ(VrexPinSlotMate3D::ANGLE, 1);
    EXPECT_EQ(VrexPlanarMate3D::DISTANCE_X, 0);
    EXPECT_EQ(VrexPlanarMate3D::DISTANCE_Y, 1);
    EXPECT_EQ(VrexPlanarMate3D::ANGLE, 2);
    EXPECT_EQ(VrexParallelMate3D::DISTANCE_X, 0);
    EXPECT_EQ(VrexParallelMate3D::DISTANCE_Y, 1);
    EXPECT_EQ(VrexParallelMate3D::DISTANCE_Z, 2);
    EXPECT_EQ(VrexParallelMate3D::ANGLE, 3);
    EXPECT_EQ(VrexBallMate3D::ANGLE, 0);
}

TEST(VrexMate3D, AllButTheBallAcceptAnyLimits) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Case& row : allMates()) {
        if (row.kind == VrexConstraint3DType::BallMate3D) {
            continue;
        }
        SCOPED_TRACE(nsEnum::toText(row.kind));
        for (const VrexDimensionLimits& limits : {A, B, C, D, VrexDimensionLimits{nan, nan}}) {
            EXPECT_TRUE(row.mate->checkDimensionLimits(0, limits));
            EXPECT_TRUE(row.mate->checkDimensionLimits(99, limits));
        }
    }
}

TEST(VrexMate3D, UpdateTakesTheDimensionsAndKeepsTheConnectors) {
    const auto first = makeSample<VrexConnector3D>();
    const auto second = makeSample<VrexConnector3D>();
    const auto mate = VrexCylinderMate3D::create(first, second, A, B);
    const auto other = makeSample<VrexCylinderMate3D>();
    mate->updateFrom(other);
    EXPECT_THAT(mate->getGeometries(), ElementsAre(first, second));
    EXPECT_EQ(mate->getDistance(), other->getDistance());
    EXPECT_EQ(mate->getAngle(), other->getAngle());
    EXPECT_EQ(mate->getAngle().value, 1.5);
    EXPECT_TRUE(mate->getAngle().fixed());
}

TEST(VrexMate3D, CopyHasDimensionsOfItsOwn) {
    const auto mate = makeSample<VrexCylinderMate3D>();
    const auto copy = std::static_pointer_cast<VrexCylinderMate3D>(mate->makeCopy());
    EXPECT_EQ(copy->getAngle(), mate->getAngle());
    copy->getAngle().value = 77.0;
    EXPECT_EQ(mate->getAngle().value, 1.5);
}

TEST(VrexMate3D, RestoreBringsBackTheDimensions) {
    const auto mate = makeSample<VrexCylinderMate3D>();
    mate->backup();
    mate->getAngle() = {};
    mate->restore();
    EXPECT_EQ(mate->getAngle().value, 1.5);
    EXPECT_EQ(mate->getAngle().limits, VrexDimensionLimits(-0.5, 1.5));
    EXPECT_TRUE(mate->getAngle().fixed());
}

TEST(VrexMate3D, FailedUpdateChangesNothing) {
    for (const Case& row : allMates()) {
        SCOPED_TRACE(nsEnum::toText(row.kind));
        const auto before = row.mate->getGeometries();
        const bool isSlider = row.kind == VrexConstraint3DType::SliderMate3D;
        const std::shared_ptr<VrexMate3D> other =
            isSlider ? std::static_pointer_cast<VrexMate3D>(makeSample<VrexRevoluteMate3D>())
                     : makeSample<VrexSliderMate3D>();
        EXPECT_THROW(row.mate->updateFrom(other), std::bad_cast);
        EXPECT_EQ(row.mate->getGeometries(), before);
        EXPECT_EQ(row.mate->getDimensionSize(), row.limits.size());
    }
}

TEST(VrexMate3D, EveryClassClimbsThroughTheBase) {
    for (const Case& row : allMates()) {
        RecordingVisitor visitor;
        row.mate->accept(visitor);
        ASSERT_EQ(visitor.visits.size(), 6U) << nsEnum::toText(row.kind);
        EXPECT_EQ(visitor.visits[1], "visitMate3D");
        EXPECT_EQ(visitor.visits[2], "visitConstraint3D");
    }
    RecordingVisitor visitor;
    makeSample<VrexBallMate3D>()->VrexMate3D::accept(visitor);
    EXPECT_EQ(visitor.visits.front(), "visitMate3D");
}

} // namespace
