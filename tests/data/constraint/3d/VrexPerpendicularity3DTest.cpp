#include "data/constraint/3d/VrexPerpendicularity3D.h"

#include <gtest/gtest.h>

#include "support/TypeChecks.h"

namespace {

TEST(VrexPerpendicularity3D, CanCreateBetweenTypesWithADirection) {
    nsTypeChecks::expectAdmitsBothOf(VrexPerpendicularity3D::canCreate,
                                     "ln pl cy ci co el to spin eval_surf_3d evac_3d sweep");
}

} // namespace
