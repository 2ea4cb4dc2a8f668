#include "data/geometry/3d/VrexParametricSurface3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

VREX_OBJECT_ACCEPT(VrexParametricSurface3D)

bool VrexParametricSurface3D::isParametricSurface() const { return true; }

VrexSurfaceSample<VrexVector3DT<double>> VrexParametricSurface3D::evaluate(double u, double v,
                                                                           int order) const {
    return VrexParametricSurfaceCalculator3D::create(*this)->calculate(u, v, order);
}

// NOLINTBEGIN(performance-unnecessary-value-param): a calculator may write into its u and v
VrexSurfaceSample<VrexVector3DT<VrexVariable>>
VrexParametricSurface3D::evaluate(const std::vector<VrexVariable>& parameters, VrexVariable u, VrexVariable v,
                                  int order) const {
    return VrexParametricSurfaceCalculator3D::create(*this)->calculate(parameters, u, v, order);
}
// NOLINTEND(performance-unnecessary-value-param)
