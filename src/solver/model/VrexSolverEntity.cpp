#include "solver/model/VrexSolverEntity.h"

#include <memory>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVisitor3D.h"
#include "data/geometry/3d/VrexCircle3D.h"
#include "data/geometry/3d/VrexCone3D.h"
#include "data/geometry/3d/VrexConnector3D.h"
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

constexpr std::array<bool, 3> NONE{false, false, false};
constexpr std::array<bool, 3> ALL{true, true, true};
constexpr std::array<bool, 3> ACROSS{true, true, false}; ///< Across the third axis, or tilting it.
constexpr std::array<bool, 3> ALONG{false, false, true};

/// The stored origin, moved along the normal to the distance that the parameter tells: the plane is where its
/// parameters are.
VrexVector3DT<double> footOf(VrexPlane3D& plane) {
    const auto self = std::static_pointer_cast<VrexPlane3D>(plane.shared_from_this());
    const double distance = VrexVariableDescriptor(self, VrexPlane3D::DIST, nullptr).getValue();
    const auto normal = plane.getNormal();
    return plane.getOrigin() + normal * (distance - normal.dotProduct(plane.getOrigin()));
}

/// In space: what the connector stores is where it is on its set.
VrexSolverFrame frameOf(const VrexConnector3D& connector) {
    const auto stored = VrexSolverFrame::turned(connector.getOrigin(), connector.getRotation());
    const auto& set = connector.getRigidSet();
    return set != nullptr ? VrexSolverFrame::turned(set->getOrigin(), set->getRotation()).compose(stored)
                          : stored;
}

/// Reads the entity that it visits.
class Reader final : public VrexVisitor3D {
public:
    std::optional<VrexSolverEntity> entity;

    void visitPoint3D(VrexPoint3D& point) override {
        set(VrexSolverFrame::at(point.getPosition()), ALL, NONE);
    }
    void visitLine3D(VrexLine3D& line) override {
        set(VrexSolverFrame::along(line.getOrigin(), line.getDirection()), ACROSS, ACROSS);
    }
    void visitPlane3D(VrexPlane3D& plane) override {
        set(VrexSolverFrame::along(footOf(plane), plane.getNormal()), ALONG, ACROSS);
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        set(VrexSolverFrame::at(sphere.getCenter()), ALL, NONE);
        addLength(0, sphere.getRadius());
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        set(VrexSolverFrame::along(cylinder.getOrigin(), cylinder.getDirection()), ACROSS, ACROSS);
        addLength(0, cylinder.getRadius());
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        set(VrexSolverFrame::along(circle.getCenter(), circle.getNormal()), ALL, ACROSS);
        addLength(0, circle.getRadius());
    }
    void visitCone3D(VrexCone3D& cone) override {
        set(VrexSolverFrame::along(cone.getOrigin(), cone.getDirection()), ALL, ACROSS);
        addNumber(0, cone.getAperture());
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        set(VrexSolverFrame::along(torus.getCenter(), torus.getNormal()), ALL, ACROSS);
        addLength(0, torus.getMajorRadius());
        addLength(1, torus.getMinorRadius());
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        set(VrexSolverFrame::turned(ellipse.getCenter(), ellipse.getRotation()), ALL, ALL);
        addLength(0, ellipse.getMajorRadius());
        addLength(1, ellipse.getMinorRadius());
    }
    void visitRigidSet3D(VrexRigidSet3D& set3D) override {
        set(VrexSolverFrame::turned(set3D.getOrigin(), set3D.getRotation()), ALL, ALL);
    }
    void visitConnector3D(VrexConnector3D& connector) override { set(frameOf(connector), ALL, ALL); }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override {
        set(VrexSolverFrame::turned(curve.getOrigin(), curve.getRotation()), ALL, ALL);
    }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override {
        set(VrexSolverFrame::turned(surface.getOrigin(), surface.getRotation()), ALL, ALL);
    }
    void visitPattern3D(VrexPattern3D& pattern) override {
        set({}, NONE, NONE);
        addNumber(0, pattern.getValue());
    }
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override {
        set({}, NONE, NONE);
        addNumber(0, element.getValue());
    }
    void visitGeometryVariable(VrexGeometryVariable& variable) override {
        set({}, NONE, NONE);
        addNumber(0, variable.getValue());
    }

private:
    void set(const VrexSolverFrame& frame, const std::array<bool, 3>& translations,
             const std::array<bool, 3>& rotations) {
        entity.emplace();
        entity->frame = frame;
        entity->mobility.translations = translations;
        entity->mobility.rotations = rotations;
    }
    void addLength(std::size_t index, double size) {
        entity->sizes[index] = size;
        entity->mobility.sizes[index] = true;
    }
    void addNumber(std::size_t index, double size) {
        addLength(index, size);
        entity->isLength[index] = false;
    }
};

/// Writes a body into the entity that it visits.
class Writer final : public VrexVisitor3D {
public:
    explicit Writer(const VrexSolverBody& body) : m_body(body) {}

    void visitPoint3D(VrexPoint3D& point) override { point.setPosition(origin()); }
    void visitLine3D(VrexLine3D& line) override { setOriginAndDirection(line); }
    void visitPlane3D(VrexPlane3D& plane) override {
        plane.setNormal(axis());
        plane.setOrigin(origin());
    }
    void visitSphere3D(VrexSphere3D& sphere) override {
        sphere.setCenter(origin());
        sphere.setRadius(m_body.size(0));
    }
    void visitCylinder3D(VrexCylinder3D& cylinder) override {
        setOriginAndDirection(cylinder);
        cylinder.setRadius(m_body.size(0));
    }
    void visitCircle3D(VrexCircle3D& circle) override {
        setCenterAndNormal(circle);
        circle.setRadius(m_body.size(0));
    }
    void visitCone3D(VrexCone3D& cone) override {
        setOriginAndDirection(cone);
        cone.setAperture(m_body.size(0));
    }
    void visitTorus3D(VrexTorus3D& torus) override {
        setCenterAndNormal(torus);
        torus.setMajorRadius(m_body.size(0));
        torus.setMinorRadius(m_body.size(1));
    }
    void visitEllipse3D(VrexEllipse3D& ellipse) override {
        ellipse.setCenter(origin());
        ellipse.setRotation(m_body.frame().rotation());
        ellipse.setMajorRadius(m_body.size(0));
        ellipse.setMinorRadius(m_body.size(1));
    }
    void visitRigidSet3D(VrexRigidSet3D& set) override { setOriginAndRotation(set); }
    void visitConnector3D(VrexConnector3D& connector) override {
        connector.setTransformation({origin(), m_body.frame().rotation()});
    }
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override { setOriginAndRotation(curve); }
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override { setOriginAndRotation(surface); }
    void visitPattern3D(VrexPattern3D& pattern) override { pattern.setValue(m_body.size(0)); }
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override {
        element.setValue(m_body.size(0));
    }
    void visitGeometryVariable(VrexGeometryVariable& variable) override { variable.setValue(m_body.size(0)); }

private:
    const VrexVector3DT<double>& origin() const { return m_body.frame().origin; }
    const VrexVector3DT<double>& axis() const { return m_body.frame().axes[2]; }
    template <class Entity>
    void setOriginAndDirection(Entity& entity) const {
        entity.setOrigin(origin());
        entity.setDirection(axis());
    }
    template <class Entity>
    void setCenterAndNormal(Entity& entity) const {
        entity.setCenter(origin());
        entity.setNormal(axis());
    }
    template <class Entity>
    void setOriginAndRotation(Entity& entity) const {
        entity.setOrigin(origin());
        entity.setRotation(m_body.frame().rotation());
    }

    const VrexSolverBody& m_body;
};

} // namespace

std::optional<VrexSolverEntity> VrexSolverEntity::of(VrexBaseGeometry& geometry) {
    Reader reader;
    geometry.accept(reader);
    return reader.entity;
}

void VrexSolverEntity::write(const VrexSolverBody& body, VrexBaseGeometry& geometry) {
    Writer writer(body);
    geometry.accept(writer);
}
