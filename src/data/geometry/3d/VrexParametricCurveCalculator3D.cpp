#include "data/geometry/3d/VrexParametricCurveCalculator3D.h"

#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCalculatorVisit.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCircleCalculator3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEllipseCalculator3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedCurveCalculator3D.h"
#include "data/geometry/3d/VrexParametricCurve3D.h"
#include "data/geometry/3d/VrexSpline3D.h"
#include "data/geometry/3d/VrexSplineCalculator3D.h"
#include "data/geometry/3d/VrexZeroDerivatives.h"

namespace {

/// Makes the calculator of the visited curve.
class VrexCurveCalculatorVisitor : public VrexVisitor3D {
public:
    /// Throws for a curve that let itself be visited as none of those below.
    std::shared_ptr<VrexParametricCurveCalculator3D> takeResult() {
        if (m_result == nullptr) {
            refuse();
        }
        return std::move(m_result);
    }

    void visitCircle3D(VrexCircle3D& circle) override { make<VrexCircleCalculator3D>(circle); }
    void visitEllipse3D(VrexEllipse3D& ellipse) override { make<VrexEllipseCalculator3D>(ellipse); }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override {
        make<VrexEvaluatedCurveCalculator3D>(curve);
    }
    void visitSpline3D(VrexSpline3D& spline) override { make<VrexSplineCalculator3D>(spline); }
    void visitParametricCurve3D(VrexParametricCurve3D& /*curve*/) override { refuse(); }

private:
    [[noreturn]] static void refuse() { VREX_RAISE(std::runtime_error, "This curve type is unsupported"); }
    template <class Calculator, class Curve>
    void make(const Curve& curve) {
        m_result = std::make_shared<Calculator>(curve);
    }

    std::shared_ptr<VrexParametricCurveCalculator3D> m_result;
};

} // namespace

VrexParametricCurveCalculator3D::~VrexParametricCurveCalculator3D() = default;

std::shared_ptr<VrexParametricCurveCalculator3D>
VrexParametricCurveCalculator3D::create(const VrexParametricCurve3D& curve) {
    VrexCurveCalculatorVisitor visitor;
    nsCalculator::visit(curve, visitor);
    auto calculator = visitor.takeResult();
    calculator->m_owner = curve.weak_from_this().lock();
    return calculator;
}

void VrexParametricCurveCalculator3D::addZeroDerivatives(const std::vector<VrexVariable>& parameters,
                                                         std::vector<VrexVector3DT<VrexVariable>>& result) {
    nsCalculator::addZeroDerivatives(parameters, result);
}
