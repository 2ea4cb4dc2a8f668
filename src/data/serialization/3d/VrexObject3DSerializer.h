#pragma once

#include <initializer_list>
#include <memory>

#include "data/VrexExport.h"
#include "data/serialization/VrexBaseObjectSerializer.h"
#include "data/serialization/VrexJsonKeys.h"

class VrexVariableDescriptorInterface;

/// Turns the objects of a system in space into JSON, kind by kind; `docs/formats.md` tells every key.
///
/// A reader keeps the same order of kinds and keys.
class VREX_DATA_EXPORT VrexObject3DSerializer final : public VrexBaseObjectSerializer {
public:
    /// The lines must outlive the serializer.
    VrexObject3DSerializer(const VrexSerializationParameters& parameters, VrexJsonLines& lines);
    ~VrexObject3DSerializer() override;

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
    friend class VrexSystem3DSerializer;

    enum class Names { LeftOut, Written };

    auto toGeometryIndex() const {
        return [this](const std::shared_ptr<VrexBaseGeometry>& geometry) { return geometryIndex(geometry); };
    }
    auto toConstraintIndex() const {
        return [this](const std::shared_ptr<VrexBaseConstraint>& constraint) {
            return constraintIndex(constraint);
        };
    }
    void putDescriptors(const VrexVariableDescriptorInterface& object, Names names,
                        VrexJsonObject& json) const;

    /// The object of an entity so far: its kind.
    VrexJsonObject typed(const VrexGeometry3D& geometry);
    template <class Shape>
    void serializeEvaluated(Shape& shape);

    /// The object of a constraint so far: the entities, or the variable, that it binds.
    VrexJsonObject withArguments(const VrexConstraint3D& constraint);
    VrexJsonObject withVariable(const std::shared_ptr<VrexGeometryVariable>& variable);
    /// The ends of the objects of dimensions and of all other constraints.
    void serializeDimension(VrexDimension3D& dimension, VrexJsonObject& json);
    void serializeConstraint3D(VrexConstraint3D& constraint, VrexJsonObject& json);
    /// A constraint that is no more than what it binds.
    void serializePlain(VrexConstraint3D& constraint);
    void serializePlainDimension(VrexDimension3D& dimension);
    /// One entry a degree, in the order of the degrees.
    void serializeMate(VrexMate3D& mate, std::initializer_list<nsJsonKeys::DegreeKeys> degrees);
};
