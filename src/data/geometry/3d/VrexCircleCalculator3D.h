#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexKeptAxisFrame3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

class VrexCircle3D;

/// Evaluates a circle: c + r cos t X + r sin t Y, with X and Y those of the frame of its normal.
///
/// A negative radius leaves the point where |r| puts it, while the derivatives keep the sign of r.
class VREX_DATA_EXPORT VrexCircleCalculator3D final : public VrexParametricCurveCalculator3D {
public:
    explicit VrexCircleCalculator3D(const VrexCircle3D& circle) : m_circle(circle) {}

    std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                       const VrexVariable& t, int order) override;
    std::vector<VrexVector3DT<double>> calculate(double t, int order) override;

    /// The circle. Kept: the name is that of all calculators of curves which hold one entity.
    const VrexCircle3D& getSpline() const { return m_circle; }

private:
    const VrexCircle3D& m_circle;
    VrexKeptAxisFrame3D m_frame;
};
