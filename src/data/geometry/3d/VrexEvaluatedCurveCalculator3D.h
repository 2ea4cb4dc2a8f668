#pragma once

#include <vector>

#include "data/VrexExport.h"
#include "data/VrexVariable.h"
#include "data/VrexVector3DT.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

/// Evaluates an evaluated curve: C(t) = q (X(t), Y(t), Z(t)) q* + o, derivatives by symbolic differentiation.
///
/// Differentiable parameters are the seven slots of the curve, then one value for each descriptor, in order.
/// Throws `std::runtime_error` where an expression is missing, cannot be parsed, or has other variables, and
/// `std::invalid_argument` for an order above 100000.
class VREX_DATA_EXPORT VrexEvaluatedCurveCalculator3D : public VrexParametricCurveCalculator3D {
public:
    explicit VrexEvaluatedCurveCalculator3D(const VrexEvaluatedCurve3D& curve) : m_curve(curve) {}

    std::vector<VrexVector3DT<VrexVariable>> calculate(const std::vector<VrexVariable>& parameters,
                                                       const VrexVariable& t, int order) override;
    std::vector<VrexVector3DT<double>> calculate(double t, int order) override;
    const VrexEvaluatedCurve3D& getCurve() const { return m_curve; }

private:
    const VrexEvaluatedCurve3D& m_curve;
};
