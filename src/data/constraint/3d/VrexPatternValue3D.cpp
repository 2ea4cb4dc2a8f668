#include "data/constraint/3d/VrexPatternValue3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexPattern3D.h"

VREX_OBJECT_BODY(VrexPatternValue3D)

std::shared_ptr<VrexPatternValue3D> VrexPatternValue3D::create(const std::shared_ptr<VrexPattern3D>& pattern,
                                                               double value) {
    return VrexObjectAccess::make<VrexPatternValue3D>(pattern, value);
}

VrexPatternValue3D::VrexPatternValue3D(const std::shared_ptr<VrexPattern3D>& pattern, double value)
    : VrexDimension3D(VrexConstraint3DType::PatternValue3D, value) {
    addArguments(pattern);
}

int VrexPatternValue3D::doc() const { return 1; }
