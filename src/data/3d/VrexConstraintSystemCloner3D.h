#pragma once

#include <memory>
#include <vector>

#include "data/VrexConstraintSystemCloner.h"
#include "data/VrexExport.h"

/// An independent copy of geometries and constraints, made by the constructor.
///
/// An entity that others are built on, a variable that a constraint binds and an object that a descriptor
/// names is cloned, and listed, whether it is in the input or not. What a constraint binds besides has to be:
/// otherwise, and where a rigid set or a connector needs itself or an instance is not valid,
/// `std::runtime_error` is thrown.
///
/// Also the number that a bound dimension holds for the time after is that of the variable.
class VREX_DATA_EXPORT VrexConstraintSystemCloner3D : public VrexConstraintSystemCloner {
public:
    /// Nulls are left out, and what is given twice is cloned once.
    VrexConstraintSystemCloner3D(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                                 const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints);

    void visitCylinder3D(VrexCylinder3D& cylinder) override;
    void visitSphere3D(VrexSphere3D& sphere) override;
    void visitPoint3D(VrexPoint3D& point) override;
    void visitLine3D(VrexLine3D& line) override;
    void visitPlane3D(VrexPlane3D& plane) override;
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override;
    void visitCircle3D(VrexCircle3D& circle) override;
    void visitEllipse3D(VrexEllipse3D& ellipse) override;
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override;
    void visitPattern3D(VrexPattern3D& pattern) override;
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override;
    void visitRigidSet3D(VrexRigidSet3D& set) override;
    void visitConnector3D(VrexConnector3D& connector) override;
    void visitSpline3D(VrexSpline3D& spline) override;
    void visitCone3D(VrexCone3D& cone) override;
    void visitTorus3D(VrexTorus3D& torus) override;
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override;
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override;
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override;
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override;

    void visitDistance3D(VrexDistance3D& dimension) override;
    void visitDirectionDistance3D(VrexDirectionDistance3D& dimension) override;
    void visitParallelDistance3D(VrexParallelDistance3D& dimension) override;
    void visitIncidence3D(VrexIncidence3D& constraint) override;
    void visitFixation3D(VrexFixation3D& constraint) override;
    void visitAngle3D(VrexAngle3D& dimension) override;
    void visitPlanarAngle3D(VrexPlanarAngle3D& dimension) override;
    void visitParallelism3D(VrexParallelism3D& constraint) override;
    void visitPerpendicularity3D(VrexPerpendicularity3D& constraint) override;
    void visitConcentricity3D(VrexConcentricity3D& constraint) override;
    void visitIncidenceToCenter3D(VrexIncidenceToCenter3D& constraint) override;
    void visitSymmetry3D(VrexSymmetry3D& constraint) override;
    void visitMidPoint3D(VrexMidPoint3D& constraint) override;
    void visitTangency3D(VrexTangency3D& constraint) override;
    void visitRadius3D(VrexRadius3D& dimension) override;
    void visitEqualRadius3D(VrexEqualRadius3D& constraint) override;
    void visitSurfaceNormal3D(VrexSurfaceNormal3D& constraint) override;
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& constraint) override;
    void visitSliderMate3D(VrexSliderMate3D& mate) override;
    void visitRevoluteMate3D(VrexRevoluteMate3D& mate) override;
    void visitFastenedMate3D(VrexFastenedMate3D& mate) override;
    void visitCylinderMate3D(VrexCylinderMate3D& mate) override;
    void visitPlanarMate3D(VrexPlanarMate3D& mate) override;
    void visitPinSlotMate3D(VrexPinSlotMate3D& mate) override;
    void visitParallelMate3D(VrexParallelMate3D& mate) override;
    void visitBallMate3D(VrexBallMate3D& mate) override;
    void visitVariableFixation3D(VrexVariableFixation3D& constraint) override;
    void visitEqualParameter3D(VrexEqualParameter3D& constraint) override;
    void visitHalfAngle3D(VrexHalfAngle3D& dimension) override;
    void visitInstance3D(VrexInstance3D& instance) override;
    void visitPatternValue3D(VrexPatternValue3D& dimension) override;
    void visitCurveLength3D(VrexCurveLength3D& dimension) override;
    void visitEqualCurveProperty3D(VrexEqualCurveProperty3D& constraint) override;
    void visitEqualDimension3D(VrexEqualDimension3D& constraint) override;
    void visitEqualDimensionValue3D(VrexEqualDimensionValue3D& dimension) override;
    void visitMateRelation3D(VrexMateRelation3D& constraint) override;

private:
    void cloneConstraint(VrexConstraint3D& constraint);
    void cloneDimension(VrexDimension3D& dimension);
};
