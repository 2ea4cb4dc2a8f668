#include "data/3d/VrexTransformation3DCalculator.h"

#include <functional>
#include <stdexcept>

#include "data/VrexLog.h"
#include "data/VrexVisitor3D.h"
#include "data/geometry/3d/VrexCalculatorVisit.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexTorus3D.h"

namespace {

using Vector = VrexVector3DT<double>;
using Quaternion = VrexQuaternionT<double>;

/// Visits the entity to arrive at; `source` is the one to be moved.
class VrexTransformation3DCalculatorVisitor final : public VrexVisitor3D {
public:
    VrexTransformation3DCalculatorVisitor(const VrexGeometry3D& source, double tolerance)
        : m_source(source), m_tolerance(tolerance) {}

    const VrexTransformation3DT<double>& getResult() const { return m_result; }

    void visitCircle3D(VrexCircle3D& target) override {
        carryDirection(target, &VrexCircle3D::getCenter, &VrexCircle3D::getNormal);
    }
    void visitCone3D(VrexCone3D& target) override {
        carryDirection(target, &VrexCone3D::getOrigin, &VrexCone3D::getDirection);
    }
    void visitCylinder3D(VrexCylinder3D& target) override {
        carryDirection(target, &VrexCylinder3D::getOrigin, &VrexCylinder3D::getDirection);
    }
    void visitLine3D(VrexLine3D& target) override {
        carryDirection(target, &VrexLine3D::getOrigin, &VrexLine3D::getDirection);
    }
    void visitPlane3D(VrexPlane3D& target) override {
        carryDirection(target, &VrexPlane3D::getOrigin, &VrexPlane3D::getNormal);
    }
    void visitTorus3D(VrexTorus3D& target) override {
        carryDirection(target, &VrexTorus3D::getCenter, &VrexTorus3D::getNormal);
    }
    void visitConnector3D(VrexConnector3D& target) override {
        carryFrame(target, &VrexConnector3D::getOrigin);
    }
    void visitEllipse3D(VrexEllipse3D& target) override { carryFrame(target, &VrexEllipse3D::getCenter); }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& target) override {
        carryFrame(target, &VrexEvaluatedCurve3D::getOrigin);
    }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& target) override {
        carryFrame(target, &VrexEvaluatedSurface3D::getOrigin);
    }
    void visitPoint3D(VrexPoint3D& target) override { translate(target, &VrexPoint3D::getPosition); }
    void visitSphere3D(VrexSphere3D& target) override { translate(target, &VrexSphere3D::getCenter); }
    void visitNURBSSurface3D(VrexNURBSSurface3D&) override {}
    void visitSpline3D(VrexSpline3D&) override {}
    void visitSpinSurface3D(VrexSpinSurface3D&) override {}
    void visitSweepSurface3D(VrexSweepSurface3D&) override {}
    void visitGeometry3D(VrexGeometry3D&) override { fail(); }

private:
    [[noreturn]] static void fail() {
        VREX_RAISE(std::runtime_error, "VrexTransformation3DCalculatorVisitor: geometry not handled");
    }

    /// The source as what the target is.
    template <class Geometry>
    const Geometry& sourceLike(const Geometry&) const {
        const auto* const source = dynamic_cast<const Geometry*>(&m_source);
        if (source == nullptr) {
            fail();
        }
        return *source;
    }

    template <class Geometry, class PointGetter, class DirectionGetter>
    void carryDirection(const Geometry& target, PointGetter point, DirectionGetter direction) {
        const Geometry& source = sourceLike(target);
        carry(Quaternion::makeRotation(std::invoke(direction, source), std::invoke(direction, target),
                                       m_tolerance, Vector::OX()),
              std::invoke(point, source), std::invoke(point, target));
    }

    template <class Geometry, class PointGetter>
    void carryFrame(const Geometry& target, PointGetter point) {
        const Geometry& source = sourceLike(target);
        carry(target.getRotation() * source.getRotation().conjugate(), std::invoke(point, source),
              std::invoke(point, target));
    }

    template <class Geometry, class PointGetter>
    void translate(const Geometry& target, PointGetter point) {
        m_result.setTranslation(std::invoke(point, target) - std::invoke(point, sourceLike(target)));
    }

    /// Turns by `rotation`, then takes the turned `from` to `to`.
    void carry(const Quaternion& rotation, const Vector& from, const Vector& to) {
        m_result = {to - Quaternion::rotate(from, rotation, true), rotation};
    }

    const VrexGeometry3D& m_source;
    double m_tolerance;
    VrexTransformation3DT<double> m_result;
};

} // namespace

VrexTransformation3DT<double> VrexTransformation3DCalculator::operator()(const VrexGeometry3D& a,
                                                                         const VrexGeometry3D& b,
                                                                         double tolerance) const {
    VrexTransformation3DCalculatorVisitor visitor(a, tolerance);
    nsCalculator::visit(b, visitor);
    return visitor.getResult();
}
