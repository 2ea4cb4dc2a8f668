#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexKeptAxisFrame3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

class VrexCone3D;

/// Evaluates a cone: o + v sin(alpha) cos u X + v sin(alpha) sin u Y + v cos(alpha) Z, with X, Y, Z the frame
/// of its direction. Where sin(alpha) is negative, all of it but o is reflected through the apex.
///
/// Of the second order, what lies outside the three second derivatives is not filled.
class VREX_DATA_EXPORT VrexConeCalculator3D final : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexConeCalculator3D(const VrexCone3D& cone) : m_cone(cone) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;
    /// cos(alpha) cos u X + cos(alpha) sin u Y - sin(alpha) Z, whatever v is, and not reflected with the
    /// surface; zero for an aperture within 1e-12 of 0 or of half a turn.
    VrexVector3DT<VrexVariable> calculateNormal(const std::vector<VrexVariable>& parameters,
                                                const VrexVariable& u, const VrexVariable& v) override;
    VrexVector3DT<double> calculateNormal(double u, double v) override;

private:
    const VrexCone3D& m_cone;
    VrexKeptAxisFrame3D m_frame;
};
