#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexKeptAxisFrame3D.h"
#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

class VrexCylinder3D;

/// Evaluates a cylinder: o + r cos u X + r sin u Y + v Z, with X, Y, Z the frame of its direction.
///
/// A negative radius puts the point on the other side of the axis.
class VREX_DATA_EXPORT VrexCylinderCalculator3D final : public VrexParametricSurfaceCalculator3D {
public:
    explicit VrexCylinderCalculator3D(const VrexCylinder3D& cylinder) : m_cylinder(cylinder) {}

    VrexSurfaceSample<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                             const VrexVariable& u, const VrexVariable& v,
                                                             int order) override;
    VrexSurfaceSample<VrexVector3DT<double>> calculate(double u, double v, int order) override;
    /// Away from the axis, through the point, of unit length; zero for a radius below 1e-08 in size.
    VrexVector3DT<VrexVariable> calculateNormal(const std::vector<VrexVariable>& parameters,
                                                const VrexVariable& u, const VrexVariable& v) override;
    VrexVector3DT<double> calculateNormal(double u, double v) override;

private:
    const VrexCylinder3D& m_cylinder;
    VrexKeptAxisFrame3D m_frame;
};
