#include <gtest/gtest.h>

#include "data/VrexQuaternionT.h"
#include "data/VrexVector3DT.h"
#include "support/AllocationCounter.h"
#include "support/VectorSamples.h"

using namespace nsVectorSamples;

namespace {

/// Every part depends on the same ten variables.
VrexVariable tenfold(double value) {
    VrexVariable variable(value);
    for (std::uint64_t key = 0; key < 10; ++key) {
        variable.derivatives().set((key * 7) % 10, value + static_cast<double>(key));
    }
    return variable;
}

} // namespace

TEST(VrexVectorsInOneStep, CompositesOfUpToTenVariablesAllocateNothing) {
    const VrexVector3DT<VrexVariable> v(tenfold(1.0), tenfold(-2.0), tenfold(0.5));
    const auto q = VrexQuaternionT<VrexVariable>::makeFromScalarAndVector(tenfold(0.3), v * 0.25);
    const auto spread = vector3<VrexVariable>(0.3, 0.4, 0.5, 3);
    const auto turn = quaternion<VrexVariable>(0.3, 0.4, 0.5, 0.6, 6);
    const AllocationCounter allocations;
    const auto turned = VrexQuaternionT<VrexVariable>::rotate(v, q, true);
    const auto alike = (turned - v).crossProduct(turned).makeNormalized(1e-9, {}).distanceTo(v);
    const auto apart = VrexQuaternionT<VrexVariable>::rotate(spread, turn * turn, false).magnitude();
    EXPECT_EQ(allocations.count(), 0U);
    EXPECT_EQ(alike.derivatives().size(), 10U);
    EXPECT_EQ(apart.derivatives().size(), 7U);
}
