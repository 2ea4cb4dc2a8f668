#include "data/VrexEnumSetT.h"

#include <gtest/gtest.h>

#include "data/constraint/3d/VrexFixation3DType.h"
#include "data/geometry/3d/VrexGeometry3DTypeSet.h"

namespace {

using FixationSet = VrexEnumSetT<VrexFixation3DType>;

TEST(VrexEnumSetT, ContainsJustItsValues) {
    constexpr FixationSet set{VrexFixation3DType::Complete3D, VrexFixation3DType::EllipseDirection3D};
    for (int value = -40; value <= 80; ++value) {
        EXPECT_EQ(set.contains(VrexFixation3DType{value}), value == 0 || value == 7) << value;
    }
    EXPECT_FALSE(FixationSet().contains(VrexFixation3DType::Complete3D));
}

TEST(VrexEnumSetT, ValuesWithoutARowAndNegativeOnesAreInNoSet) {
    for (const int value : {-1, -2, -32, 8, 31, 32, 64, 2147483647}) {
        const FixationSet set{VrexFixation3DType{value}};
        EXPECT_EQ(set, FixationSet()) << value;
        EXPECT_FALSE(set.contains(VrexFixation3DType{value})) << value;
    }
}

TEST(VrexEnumSetT, UnionHasTheValuesOfBoth) {
    constexpr FixationSet some{VrexFixation3DType::Complete3D, VrexFixation3DType::Radius3D};
    constexpr FixationSet more{VrexFixation3DType::Radius3D, VrexFixation3DType::Aperture3D};
    EXPECT_EQ(some | more, (FixationSet{VrexFixation3DType::Aperture3D, VrexFixation3DType::Radius3D,
                                        VrexFixation3DType::Complete3D}));
}

TEST(VrexGeometry3DTypeSet, ContainsJustItsTypes) {
    constexpr VrexGeometry3DTypeSet set =
        VrexGeometry3DTypeSet{VrexGeometry3DType::POINT} |
        VrexGeometry3DTypeSet{VrexGeometry3DType::EQUAL_DIMENSION_ELEMENT, VrexGeometry3DType::UNKNOWN,
                              VrexGeometry3DType::TYPES_COUNT};
    for (int value = -40; value <= 80; ++value) {
        EXPECT_EQ(set.contains(VrexGeometry3DType{value}), value == 0 || value == 19) << value;
    }
}

} // namespace
