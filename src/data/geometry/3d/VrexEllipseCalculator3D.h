#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

class VrexEllipse3D;

/// Evaluates an ellipse: c + q (a cos t, b sin t, 0), with q its rotation.
class VREX_DATA_EXPORT VrexEllipseCalculator3D final : public VrexParametricCurveCalculator3D {
public:
    explicit VrexEllipseCalculator3D(const VrexEllipse3D& ellipse) : m_ellipse(ellipse) {}

    std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                       const VrexVariable& t, int order) override;
    std::vector<VrexVector3DT<double>> calculate(double t, int order) override;

    /// The ellipse. Kept: the name is that of all calculators of curves which hold one entity.
    const VrexEllipse3D& getSpline() const { return m_ellipse; }

private:
    const VrexEllipse3D& m_ellipse;
};
