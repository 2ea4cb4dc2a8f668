#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSurfaceSample.h"

/// Evaluates a spin surface: S(u, v) = o + M(v) (C(u) - o), where M(v) turns by v about the axis line.
///
/// Kept: element 3 i + j is the derivative of order i by v and j by u, the other way round than elsewhere,
/// and where i is 2 its sign is the opposite one; so the normal is dS/dv x dS/du.
///
/// Differentiable parameters are those that the profile's calculator reads, then, as the last five of the
/// list, the slots of the line. Throws `std::invalid_argument` where profile or line is missing.
class VREX_DATA_EXPORT VrexSpinSurfaceCalculator3D : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexSpinSurfaceCalculator3D(const VrexSpinSurface3D& surface) : m_surface(surface) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;

private:
    void requireCurves() const;

    const VrexSpinSurface3D& m_surface;
};
