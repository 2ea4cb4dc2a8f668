#include "data/constraint/3d/VrexParallelism3D.h"

#include <gtest/gtest.h>

#include "support/TypeChecks.h"

namespace {

TEST(VrexParallelism3D, CanCreateBetweenTypesWithADirection) {
    nsTypeChecks::expectAdmitsBothOf(VrexParallelism3D::canCreate,
                                     "ln pl cy ci co el to spin eval_surf_3d evac_3d sweep");
}

} // namespace
