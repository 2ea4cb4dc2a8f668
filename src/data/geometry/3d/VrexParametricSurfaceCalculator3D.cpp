#include "data/geometry/3d/VrexParametricSurfaceCalculator3D.h"

#include <stdexcept>

#include "data/VrexLog.h"
#include "data/geometry/3d/VrexCalculatorVisit.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConeCalculator3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexCylinderCalculator3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexEvaluatedSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexNURBSSurface3D.h"
#include "data/geometry/3d/VrexNURBSSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexParametricSurface3D.h"
#include "data/geometry/3d/VrexSpinSurface3D.h"
#include "data/geometry/3d/VrexSpinSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexSweepSurface3D.h"
#include "data/geometry/3d/VrexSweepSurfaceCalculator3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "data/geometry/3d/VrexTorusCalculator3D.h"
#include "data/geometry/3d/VrexZeroDerivatives.h"

namespace {

/// Makes the calculator of the visited surface.
class VrexSurfaceCalculatorVisitor : public VrexVisitor3D {
public:
    /// Throws for a surface that let itself be visited as none of those below.
    std::shared_ptr<VrexParametricSurfaceCalculator3D> takeResult() {
        if (m_result == nullptr) {
            refuse();
        }
        return std::move(m_result);
    }

    void visitCone3D(VrexCone3D& cone) override { make<VrexConeCalculator3D>(cone); }
    void visitCylinder3D(VrexCylinder3D& cylinder) override { make<VrexCylinderCalculator3D>(cylinder); }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override {
        make<VrexEvaluatedSurfaceCalculator3D>(surface);
    }
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override {
        make<VrexSpinSurfaceCalculator3D>(surface);
    }
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override {
        make<VrexSweepSurfaceCalculator3D>(surface);
    }
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override {
        make<VrexNURBSSurfaceCalculator3D>(surface);
    }
    void visitTorus3D(VrexTorus3D& torus) override { make<VrexTorusCalculator3D>(torus); }
    void visitParametricSurface3D(VrexParametricSurface3D& /*surface*/) override { refuse(); }

private:
    [[noreturn]] static void refuse() { VREX_RAISE(std::runtime_error, "This surface type is unsupported"); }
    template <class Calculator, class Surface>
    void make(const Surface& surface) {
        m_result = std::make_shared<Calculator>(surface);
    }

    std::shared_ptr<VrexParametricSurfaceCalculator3D> m_result;
};

template <typename T>
VrexVector3DT<T> crossTangents(const VrexSurfaceSample<VrexVector3DT<T>>& sample) {
    using Sample = VrexSurfaceSample<VrexVector3DT<T>>;
    return sample[Sample::index(1, 0)].crossProduct(sample[Sample::index(0, 1)]);
}

} // namespace

VrexParametricSurfaceCalculator3D::~VrexParametricSurfaceCalculator3D() = default;

std::shared_ptr<VrexParametricSurfaceCalculator3D>
VrexParametricSurfaceCalculator3D::create(const VrexParametricSurface3D& surface) {
    VrexSurfaceCalculatorVisitor visitor;
    nsCalculator::visit(surface, visitor);
    auto calculator = visitor.takeResult();
    calculator->m_owner = surface.weak_from_this().lock();
    return calculator;
}

VrexVector3DT<VrexVariable>
VrexParametricSurfaceCalculator3D::calculateNormal(const std::vector<VrexVariable>& parameters,
                                                   const VrexVariable& u, const VrexVariable& v) {
    return crossTangents(calculate(parameters, u, v, 1));
}

VrexVector3DT<double> VrexParametricSurfaceCalculator3D::calculateNormal(double u, double v) {
    return crossTangents(calculate(u, v, 1));
}

void VrexParametricSurfaceCalculator3D::addZeroDerivatives(
    const std::vector<VrexVariable>& parameters, VrexSurfaceSample<VrexVector3DT<VrexVariable>>& result) {
    nsCalculator::addZeroDerivatives(parameters, result);
}
