#include "data/constraint/3d/VrexAngle3D.h"

#include <set>

#include <gtest/gtest.h>

namespace {

TEST(VrexAngle3D, CanCreateOverAllPairsOfKinds) {
    // All but point, rigid set, NURBS surface, sphere, spline, connector, patterns and element.
    const std::set<int> directed{1, 2, 5, 7, 9, 10, 11, 13, 14, 15, 16};
    for (int first = -1; first <= 20; ++first) {
        for (int second = -1; second <= 20; ++second) {
            EXPECT_EQ(VrexAngle3D::canCreate(VrexGeometry3DType{first}, VrexGeometry3DType{second}),
                      directed.contains(first) && directed.contains(second))
                << first << ", " << second;
        }
    }
}

} // namespace
