#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSurfaceSample.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"

/// Evaluates a sweep surface: S(u, v) = C(u) + v d, where d is the direction of the trajectory line.
///
/// Kept: the derivatives of order 1 by v are d in every order by u, the mixed ones too, which are zero in
/// truth.
///
/// Differentiable parameters are those that the profile's calculator reads, then, as the last five of the
/// list, the slots of the line, of which the two angles are read. Throws `std::invalid_argument` where
/// profile or line is missing.
class VREX_DATA_EXPORT VrexSweepSurfaceCalculator3D : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexSweepSurfaceCalculator3D(const VrexSweepSurface3D& surface) : m_surface(surface) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;

private:
    void requireCurves() const;

    const VrexSweepSurface3D& m_surface;
};
