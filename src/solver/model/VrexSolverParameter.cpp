#include "solver/model/VrexSolverParameter.h"

#include <cmath>
#include <cstdint>
#include <numbers>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexCylinder3D.h"
#include "data/geometry/3d/VrexEllipse3D.h"
#include "data/geometry/3d/VrexEqualDimensionElement3D.h"
#include "data/geometry/3d/VrexEvaluatedCurve3D.h"
#include "data/geometry/3d/VrexEvaluatedSurface3D.h"
#include "data/geometry/3d/VrexLine3D.h"
#include "data/geometry/3d/VrexPattern3D.h"
#include "data/geometry/3d/VrexPlane3D.h"
#include "data/geometry/3d/VrexPoint3D.h"
#include "data/geometry/3d/VrexRigidSet3D.h"
#include "data/geometry/3d/VrexSphere3D.h"
#include "data/geometry/3d/VrexTorus3D.h"
#include "data/geometry/VrexGeometryVariable.h"

namespace {

using Measure = VrexSolverBuilder::Measure;
using Vector = VrexSolverShape::Vector;

/// Below this the sine of the polar angle says nothing about the azimuthal one.
constexpr double LEAST_SINE = 1e-12;

VrexVariable polarAngle(const Vector& direction) {
    if (std::hypot(direction.x().value(), direction.y().value()) < LEAST_SINE) {
        return direction.z().value() > 0.0 ? direction.x() : std::numbers::pi - direction.x();
    }
    return atan2(hypot(direction.x(), direction.y()), direction.z());
}

VrexVariable azimuthalAngle(const Vector& direction) {
    if (std::hypot(direction.x().value(), direction.y().value()) < LEAST_SINE) {
        return {};
    }
    return atan2(direction.y(), direction.x());
}

/// Finds the parameter of this index of the entity that it visits.
class ParameterFinder final : public VrexVisitor3D {
public:
    ParameterFinder(const VrexSolverShape& shape, std::uint32_t index)
        : m_shape(shape), m_index(static_cast<int>(index)) {}

    Measure measure;

    void visitPoint3D(VrexPoint3D& /*point*/) override { findPlace(VrexPoint3D::X); }
    void visitLine3D(VrexLine3D& /*line*/) override {
        findPlace(VrexLine3D::X);
        findDirection(VrexLine3D::POLAR);
    }
    void visitPlane3D(VrexPlane3D& /*plane*/) override {
        findDirection(VrexPlane3D::POLAR);
        if (m_index == VrexPlane3D::DIST) {
            measure = [&shape = m_shape] { return shape.axisZ().dotProduct(shape.origin()); };
        }
    }
    void visitSphere3D(VrexSphere3D& /*sphere*/) override {
        findSize(VrexSphere3D::RADIUS, 0);
        findPlace(VrexSphere3D::X);
    }
    void visitCylinder3D(VrexCylinder3D& /*cylinder*/) override {
        findSize(VrexCylinder3D::RADIUS, 0);
        findPlace(VrexCylinder3D::X);
        findDirection(VrexCylinder3D::POLAR);
    }
    void visitCircle3D(VrexCircle3D& /*circle*/) override {
        findSize(VrexCircle3D::RADIUS, 0);
        findPlace(VrexCircle3D::X);
        findDirection(VrexCircle3D::POLAR);
    }
    void visitCone3D(VrexCone3D& /*cone*/) override {
        findSize(VrexCone3D::ALPHA, 0);
        findPlace(VrexCone3D::X);
        findDirection(VrexCone3D::POLAR);
    }
    void visitTorus3D(VrexTorus3D& /*torus*/) override {
        findSize(VrexTorus3D::MAJOR_RAD, 0);
        findSize(VrexTorus3D::MINOR_RAD, 1);
        findPlace(VrexTorus3D::X);
        findDirection(VrexTorus3D::POLAR);
    }
    void visitEllipse3D(VrexEllipse3D& /*ellipse*/) override {
        findSize(VrexEllipse3D::R1, 0);
        findSize(VrexEllipse3D::R2, 1);
        findPlace(VrexEllipse3D::X);
    }
    void visitRigidSet3D(VrexRigidSet3D& /*set*/) override { findPlace(VrexRigidSet3D::X); }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& /*curve*/) override {
        findPlace(VrexEvaluatedCurve3D::X);
    }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& /*surface*/) override {
        findPlace(VrexEvaluatedSurface3D::X);
    }
    void visitPattern3D(VrexPattern3D& /*pattern*/) override { findSize(VrexPattern3D::VALUE, 0); }
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& /*element*/) override {
        findSize(VrexEqualDimensionElement3D::VALUE, 0);
    }
    void visitGeometryVariable(VrexGeometryVariable& /*variable*/) override {
        findSize(VrexGeometryVariable::V, 0);
    }

private:
    void findPlace(int x) {
        if (m_index >= x && m_index < x + 3) {
            measure = [&shape = m_shape, component = m_index - x] { return shape.origin()[component]; };
        }
    }
    void findDirection(int polar) {
        if (m_index == polar) {
            measure = [&shape = m_shape] { return polarAngle(shape.axisZ()); };
        } else if (m_index == polar + 1) {
            measure = [&shape = m_shape] { return azimuthalAngle(shape.axisZ()); };
        }
    }
    void findSize(int slot, std::size_t size) {
        if (m_index == slot) {
            measure = [&shape = m_shape, size] { return shape.size(size); };
        }
    }

    const VrexSolverShape& m_shape;
    int m_index;
};

} // namespace

Measure nsSolverParameter::measureOf(const VrexSolverBuilder& builder,
                                     const VrexVariableDescriptor& descriptor) {
    const auto entity = std::dynamic_pointer_cast<VrexBaseGeometry>(descriptor.object());
    const VrexSolverShape* const shape = builder.shape(entity);
    if (shape == nullptr) {
        return {};
    }
    ParameterFinder finder(*shape, descriptor.index());
    entity->accept(finder);
    return finder.measure;
}
