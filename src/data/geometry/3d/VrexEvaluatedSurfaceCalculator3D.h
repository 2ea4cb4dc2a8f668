#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSurfaceSample.h"

/// Evaluates an evaluated surface: S(u, v) = q (X(u, v), Y(u, v), Z(u, v)) q* + o, derivatives by symbolic
/// differentiation.
///
/// Differentiable parameters are the seven slots of the surface, then one value for each descriptor, in
/// order. Throws `std::runtime_error` where an expression is missing, cannot be parsed, or has other
/// variables.
class VREX_DATA_EXPORT VrexEvaluatedSurfaceCalculator3D : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexEvaluatedSurfaceCalculator3D(const VrexEvaluatedSurface3D& surface) : m_surface(surface) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;

private:
    const VrexEvaluatedSurface3D& m_surface;
};
