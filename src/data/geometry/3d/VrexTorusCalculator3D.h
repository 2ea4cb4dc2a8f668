#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexKeptAxisFrame3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

class VrexTorus3D;

/// Evaluates a torus: c + (R + r cos v) (cos u X + sin u Y) + r sin v Z, with X, Y, Z the frame of its
/// normal.
class VREX_DATA_EXPORT VrexTorusCalculator3D final : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexTorusCalculator3D(const VrexTorus3D& torus) : m_torus(torus) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;

private:
    const VrexTorus3D& m_torus;
    VrexKeptAxisFrame3D m_frame;
};
