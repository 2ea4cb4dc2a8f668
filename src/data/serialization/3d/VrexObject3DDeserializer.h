#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "data/VrexExport.h"
#include "data/serialization/VrexBaseObjectDeserializer.h"

/// Pours the values of a document into the objects of a system in space, kind by kind; `docs/formats.md`
/// tells every key. Keys that are required and missing, or of another type, end the reading.
///
/// Kinds and keys stand in the order of `VrexObject3DSerializer`.
class VREX_DATA_EXPORT VrexObject3DDeserializer final : public VrexBaseObjectDeserializer {
public:
    /// All three references must outlive the deserializer.
    VrexObject3DDeserializer(const LumoJson& root, VrexSystemDeserializer& system,
                             VrexIDGenerator& idGenerator, const VrexSerializationParameters& parameters);

    void visitPoint3D(VrexPoint3D& point) override;
    void visitLine3D(VrexLine3D& line) override;
    void visitPlane3D(VrexPlane3D& plane) override;
    void visitCircle3D(VrexCircle3D& circle) override;
    void visitEllipse3D(VrexEllipse3D& ellipse) override;
    void visitCylinder3D(VrexCylinder3D& cylinder) override;
    void visitCone3D(VrexCone3D& cone) override;
    void visitSphere3D(VrexSphere3D& sphere) override;
    void visitTorus3D(VrexTorus3D& torus) override;
    void visitRigidSet3D(VrexRigidSet3D& set) override;
    void visitConnector3D(VrexConnector3D& connector) override;
    void visitNURBSSurface3D(VrexNURBSSurface3D& surface) override;
    void visitSpline3D(VrexSpline3D& spline) override;
    void visitSpinSurface3D(VrexSpinSurface3D& surface) override;
    void visitSweepSurface3D(VrexSweepSurface3D& surface) override;
    void visitEvaluatedCurve3D(VrexEvaluatedCurve3D& curve) override;
    void visitEvaluatedSurface3D(VrexEvaluatedSurface3D& surface) override;
    void visitPattern3D(VrexPattern3D& pattern) override;
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override;
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override;

    void visitDistance3D(VrexDistance3D& distance) override;
    void visitDirectionDistance3D(VrexDirectionDistance3D& distance) override;
    void visitParallelDistance3D(VrexParallelDistance3D& distance) override;
    void visitAngle3D(VrexAngle3D& angle) override;
    void visitPlanarAngle3D(VrexPlanarAngle3D& angle) override;
    void visitRadius3D(VrexRadius3D& radius) override;
    void visitCurveLength3D(VrexCurveLength3D& length) override;
    void visitHalfAngle3D(VrexHalfAngle3D& angle) override;
    void visitPatternValue3D(VrexPatternValue3D& value) override;
    void visitEqualDimensionValue3D(VrexEqualDimensionValue3D& value) override;
    void visitIncidence3D(VrexIncidence3D& incidence) override;
    void visitFixation3D(VrexFixation3D& fixation) override;
    void visitParallelism3D(VrexParallelism3D& parallelism) override;
    void visitPerpendicularity3D(VrexPerpendicularity3D& perpendicularity) override;
    void visitConcentricity3D(VrexConcentricity3D& concentricity) override;
    void visitIncidenceToCenter3D(VrexIncidenceToCenter3D& incidence) override;
    void visitTangency3D(VrexTangency3D& tangency) override;
    void visitSurfaceNormal3D(VrexSurfaceNormal3D& normal) override;
    void visitEqualCurveProperty3D(VrexEqualCurveProperty3D& property) override;
    void visitSymmetry3D(VrexSymmetry3D& symmetry) override;
    void visitMidPoint3D(VrexMidPoint3D& midPoint) override;
    void visitEqualRadius3D(VrexEqualRadius3D& equality) override;
    void visitInstance3D(VrexInstance3D& instance) override;
    void visitVariableFixation3D(VrexVariableFixation3D& fixation) override;
    void visitFastenedMate3D(VrexFastenedMate3D& mate) override;
    void visitSliderMate3D(VrexSliderMate3D& mate) override;
    void visitRevoluteMate3D(VrexRevoluteMate3D& mate) override;
    void visitBallMate3D(VrexBallMate3D& mate) override;
    void visitCylinderMate3D(VrexCylinderMate3D& mate) override;
    void visitPinSlotMate3D(VrexPinSlotMate3D& mate) override;
    void visitPlanarMate3D(VrexPlanarMate3D& mate) override;
    void visitParallelMate3D(VrexParallelMate3D& mate) override;
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) override;
    void visitEqualDimension3D(VrexEqualDimension3D& equality) override;
    void visitEqualParameter3D(VrexEqualParameter3D& equality) override;
    void visitMateRelation3D(VrexMateRelation3D& relation) override;

    void visitGeometryVariable(VrexGeometryVariable& variable) override;

    void visitExpressionEquation(VrexExpressionEquation& equation) override;
    void visitCallbackEquation(VrexCallbackEquation& equation) override;

private:
    /// The points that a list of places names; throws for a place of anything else.
    std::vector<std::shared_ptr<VrexPoint3D>> readPoints(const LumoJson& json, std::string_view key) const;
    /// What a spline was fitted through, as far as it is told.
    void readInterpolation(VrexSpline3D& spline, const LumoJson& json) const;
    template <class Evaluated>
    void readEvaluated(Evaluated& evaluated);
    /// What all constraints have.
    const LumoJson& readConstraint(VrexConstraint3D& constraint);
    /// What all dimensions have.
    const LumoJson& readDimension(VrexDimension3D& dimension);
};
