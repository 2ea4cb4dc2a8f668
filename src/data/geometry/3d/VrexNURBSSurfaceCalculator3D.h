#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

class VrexNURBSSurface3D;

/// Evaluates a NURBS surface.
///
/// Each call starts from scratch. Both `calculate` throw `std::invalid_argument` when the knots do not fit
/// the degrees, or a control point that is needed is missing or null; weights that add up to zero give
/// results that are not finite.
class VREX_DATA_EXPORT VrexNURBSSurfaceCalculator3D final : public VrexParametricSurfaceCalculator3D {
public:
    /// A homogeneous point: the position times the weight, and the weight.
    template <typename T>
    struct WeightedPoint {
        VrexVector3DT<T> point;
        T weight = T(0.0);
    };

    explicit VrexNURBSSurfaceCalculator3D(const VrexNURBSSurface3D& surface) : m_surface(surface) {}

    /// The positions of the control points are the `parameters`, three each, row by row; the weights are the
    /// surface's. `u` and `v` may depend on any number of variables.
    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;

private:
    /// The derivatives of the weighted surface, in the grid of a sample, by algorithm A3.6 of Piegl and
    /// Tiller, The NURBS Book; zero above the degrees. `order` is from 0 to 2.
    VrexSurfaceSample<WeightedPoint<VrexVariable>> findAders(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) const;
    VrexSurfaceSample<WeightedPoint<double>> findAders(double u, double v, int order) const;

    const VrexNURBSSurface3D& m_surface;
};
