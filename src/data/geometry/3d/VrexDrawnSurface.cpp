#include "data/geometry/3d/VrexDrawnSurface.h"

#include <cstddef>

#include "data/geometry/3d/VrexCalculatorInput.h"
#include "data/geometry/3d/VrexCalculatorVisit.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexSpline3D.h"

namespace {

/// Counts the parameters that the calculator of the visited curve reads; a curve of no known class has none.
class VrexProfileParametersVisitor : public VrexVisitor3D {
public:
    std::size_t count() const { return m_count; }

    void visitCircle3D(VrexCircle3D& /*circle*/) override { m_count = VrexCircle3D::PARAMETERS_AMOUNT; }
    void visitEllipse3D(VrexEllipse3D& /*ellipse*/) override { m_count = VrexEllipse3D::PARAMETERS_AMOUNT; }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override {
        m_count = VrexEvaluatedCurve3D::PARAMETERS_AMOUNT + curve.descriptors().size();
    }
    void visitSpline3D(VrexSpline3D& spline) override { m_count = 3 * spline.controlPoints().size(); }

private:
    std::size_t m_count = 0;
};

} // namespace

void nsDrawn::requireParameters(const std::vector<VrexVariable>& parameters,
                                const VrexParametricCurve3D& profile) {
    VrexProfileParametersVisitor visitor;
    nsCalculator::visit(profile, visitor);
    nsCalculator::requireParameters(parameters, visitor.count() + VrexLine3D::PARAMETERS_AMOUNT);
}
