#include "data/constraint/3d/VrexGeometryCombination3D.h"

#include <vector>

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexGeometryPairTable3D.h"

namespace {

using enum VrexGeometry3DType;
using Types = std::vector<VrexGeometry3DType>;

constexpr auto ANY = VrexGeometryCombination3D::ANY;

TEST(VrexGeometryCombination3D, AnyOrderTakesEachPlaceOnce) {
    constexpr VrexGeometryCombination3D twoPointsAndLine{POINT, POINT, LINE};
    EXPECT_TRUE(twoPointsAndLine.fitsInAnyOrder(Types{POINT, POINT, LINE}));
    EXPECT_TRUE(twoPointsAndLine.fitsInAnyOrder(Types{LINE, POINT, POINT}));
    EXPECT_FALSE(twoPointsAndLine.fitsInAnyOrder(Types{POINT, LINE, LINE}));
    EXPECT_FALSE(twoPointsAndLine.fitsInAnyOrder(Types{POINT, POINT, POINT}));
    EXPECT_FALSE(twoPointsAndLine.fitsInAnyOrder(Types{POINT, POINT, PLANE}));
}

TEST(VrexGeometryCombination3D, PositionsAreHeldOneByOne) {
    constexpr VrexGeometryCombination3D twoPointsAndLine{POINT, POINT, LINE};
    EXPECT_TRUE(twoPointsAndLine.fitsByPosition(Types{POINT, POINT, LINE}));
    EXPECT_FALSE(twoPointsAndLine.fitsByPosition(Types{LINE, POINT, POINT}));
    EXPECT_FALSE(twoPointsAndLine.fitsByPosition(Types{POINT, POINT, POINT}));
}

TEST(VrexGeometryCombination3D, WildcardHoldsEveryType) {
    constexpr VrexGeometryCombination3D pointAndAny{POINT, ANY};
    EXPECT_TRUE(pointAndAny.fitsInAnyOrder(Types{POINT, RIGID_SET}));
    EXPECT_TRUE(pointAndAny.fitsInAnyOrder(Types{RIGID_SET, POINT}));
    EXPECT_TRUE(pointAndAny.fitsInAnyOrder(Types{POINT, POINT}));
    EXPECT_TRUE(pointAndAny.fitsInAnyOrder(Types{POINT, UNKNOWN}));
    EXPECT_FALSE(pointAndAny.fitsInAnyOrder(Types{LINE, RIGID_SET}));
    EXPECT_TRUE(pointAndAny.fitsByPosition(Types{POINT, RIGID_SET}));
    EXPECT_FALSE(pointAndAny.fitsByPosition(Types{RIGID_SET, POINT}));
}

TEST(VrexGeometryCombination3D, PlaceTakenByAnEarlierTypeIsNotGivenBack) {
    constexpr VrexGeometryCombination3D anyAndPoint{ANY, POINT};
    EXPECT_TRUE(anyAndPoint.fitsInAnyOrder(Types{RIGID_SET, POINT}));
    EXPECT_FALSE(anyAndPoint.fitsInAnyOrder(Types{POINT, RIGID_SET}));
}

TEST(VrexGeometryPairTable3D, HoldsThePairsOfTheListInBothOrdersAndNoOthers) {
    static constexpr VrexGeometryCombination3D LIST[] = {{POINT, LINE}, {TORUS, TORUS}};
    static constexpr VrexGeometryPairTable3D TABLE{LIST};
    for (int first = -2; first <= 21; ++first) {
        for (int second = -2; second <= 21; ++second) {
            const bool listed =
                (first == 0 && second == 1) || (first == 1 && second == 0) || (first == 11 && second == 11);
            EXPECT_EQ(TABLE.contains(static_cast<VrexGeometry3DType>(first),
                                     static_cast<VrexGeometry3DType>(second)),
                      listed)
                << first << ", " << second;
        }
    }
}

} // namespace
