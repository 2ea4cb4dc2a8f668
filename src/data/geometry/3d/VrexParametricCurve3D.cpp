#include "data/geometry/3d/VrexParametricCurve3D.h"

#include "data/VrexObjectBody.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

VREX_OBJECT_ACCEPT(VrexParametricCurve3D)

bool VrexParametricCurve3D::isParametricCurve() const { return true; }

std::vector<VrexVector3DT<double>> VrexParametricCurve3D::evaluate(double t, int order) const {
    return VrexParametricCurveCalculator3D::create(*this)->calculate(t, order);
}

std::vector<VrexVector3DT<VrexVariable>>
VrexParametricCurve3D::evaluate(const std::vector<VrexVariable>& parameters, const VrexVariable& t,
                                int order) const {
    return VrexParametricCurveCalculator3D::create(*this)->calculate(parameters, t, order);
}
