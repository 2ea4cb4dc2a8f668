#pragma once

#include <cstdint>

#include "data/VrexVisitor3D.h"

class VrexBaseObject;

/// Hidden: visits the object whose state is copied; `target` receives it. What has no row here climbs, so
/// that constraints share one row and a class without any fails at the root.
class VrexAssigner3DImpl final : public VrexVisitor3D {
public:
    explicit VrexAssigner3DImpl(VrexBaseObject& target) : m_target(&target) {}

    void visitBaseObject(VrexBaseObject& source) override;
    void visitGeometryVariable(VrexGeometryVariable& source) override;
    void visitCylinder3D(VrexCylinder3D& source) override;
    void visitSphere3D(VrexSphere3D& source) override;
    void visitPoint3D(VrexPoint3D& source) override;
    void visitLine3D(VrexLine3D& source) override;
    void visitPlane3D(VrexPlane3D& source) override;
    void visitNURBSSurface3D(VrexNURBSSurface3D& source) override;
    void visitCircle3D(VrexCircle3D& source) override;
    void visitEllipse3D(VrexEllipse3D& source) override;
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& source) override;
    void visitPattern3D(VrexPattern3D& source) override;
    void visitArrayPattern3D(VrexArrayPattern3D& source) override;
    void visitConstraint3D(VrexConstraint3D& source) override;
    void visitRigidSet3D(VrexRigidSet3D& source) override;
    void visitConnector3D(VrexConnector3D& source) override;
    void visitSliderMate3D(VrexSliderMate3D& source) override;
    void visitRevoluteMate3D(VrexRevoluteMate3D& source) override;
    void visitFastenedMate3D(VrexFastenedMate3D& source) override;
    void visitCylinderMate3D(VrexCylinderMate3D& source) override;
    void visitPlanarMate3D(VrexPlanarMate3D& source) override;
    void visitParallelMate3D(VrexParallelMate3D& source) override;
    void visitBallMate3D(VrexBallMate3D& source) override;
    void visitSpline3D(VrexSpline3D& source) override;
    void visitCone3D(VrexCone3D& source) override;
    void visitTorus3D(VrexTorus3D& source) override;
    void visitSpinSurface3D(VrexSpinSurface3D& source) override;
    void visitSweepSurface3D(VrexSweepSurface3D& source) override;
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& source) override;

private:
    [[noreturn]] static void fail();
    template <class Object>
    Object& targetAs() const;
    /// Runs `copy` on the target as what the source is, then copies the status.
    template <class Object, class Copy>
    void assign(const Object& source, Copy copy);
    template <class Object>
    void assignStatus(const Object& source);
    template <class Mate>
    void assignDimensions(const Mate& source);

    VrexBaseObject* m_target;
};
