#include "data/constraint/3d/VrexIncidenceToCenter3D.h"

#include <gtest/gtest.h>

#include "support/TypeChecks.h"

namespace {

TEST(VrexIncidenceToCenter3D, CanCreateBetweenTypesWithACentre) {
    nsTypeChecks::expectAdmitsBothOf(VrexIncidenceToCenter3D::canCreate, "pt s ci co el to");
}

} // namespace
