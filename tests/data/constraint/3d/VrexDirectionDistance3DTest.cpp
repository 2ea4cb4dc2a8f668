#include "data/constraint/3d/VrexDirectionDistance3D.h"

#include <gtest/gtest.h>

#include "support/Samples.h"
#include "support/VectorSamples.h"

namespace {

using nsVectorSamples::Values3;
using nsVectorSamples::valuesOf;

TEST(VrexDirectionDistance3D, CanCreateNeedsBothPoints) {
    const auto point = makeSample<VrexPoint3D>();
    EXPECT_TRUE(VrexDirectionDistance3D::canCreate(point, makeSample<VrexPoint3D>()));
    EXPECT_TRUE(VrexDirectionDistance3D::canCreate(point, point));
    EXPECT_FALSE(VrexDirectionDistance3D::canCreate(nullptr, point));
    EXPECT_FALSE(VrexDirectionDistance3D::canCreate(point, nullptr));
    EXPECT_FALSE(VrexDirectionDistance3D::canCreate(nullptr, nullptr));
}

TEST(VrexDirectionDistance3D, DirectionIsStoredAsGiven) {
    const auto distance = VrexDirectionDistance3D::create(makeSample<VrexPoint3D>(),
                                                          makeSample<VrexPoint3D>(), {0.0, 3.0, 4.0}, 1.0);
    EXPECT_EQ(valuesOf(distance->getDirectionVector()), (Values3{0.0, 3.0, 4.0}));
    distance->setDirectionVector({0.0, 0.0, 0.0});
    EXPECT_EQ(valuesOf(distance->getDirectionVector()), (Values3{0.0, 0.0, 0.0}));
    EXPECT_EQ(VrexDirectionDistance3D::m_defaultTolerance, 1e-6);
}

TEST(VrexDirectionDistance3D, DirectionTravelsWithUpdateAndRestore) {
    const auto make = [](const VrexVector3DT<double>& direction) {
        return VrexDirectionDistance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                               direction, 1.0);
    };
    const auto distance = make({1.0, 0.0, 0.0});
    distance->backup();
    const auto other = make({0.0, 2.0, 0.0});
    distance->setDirectionVector({5.0, 5.0, 5.0});
    distance->restore();
    EXPECT_EQ(valuesOf(distance->getDirectionVector()), (Values3{1.0, 0.0, 0.0}));
    distance->updateFrom(other);
    EXPECT_EQ(valuesOf(distance->getDirectionVector()), (Values3{0.0, 2.0, 0.0}));
}

} // namespace
