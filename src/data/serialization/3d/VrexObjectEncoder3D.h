#pragma once

#include <cstdint>

#include "data/VrexExport.h"
#include "data/VrexVisitor3D.h"
#include "data/serialization/VrexObjectEncoder.h"

enum class VrexObjectType : std::uint64_t;

/// Writes the object that it visits to the compact stream; `docs/stream-format.md` has the layouts.
///
/// References are identifiers. A link that a kind cannot do without and that is null, as the line of a
/// pattern, makes the visit fail. A class without a layout, such as `VrexEvaluatedSurface3D`, throws
/// `VrexInvalidArgumentException` "Not supported object type.".
class VREX_DATA_EXPORT VrexObjectEncoder3D : public VrexVisitor3D, public VrexObjectEncoder {
public:
    using VrexObjectEncoder::VrexObjectEncoder;
    ~VrexObjectEncoder3D() override;

    void visitBaseObject(VrexBaseObject& object) override;
    void visitGeometryVariable(VrexGeometryVariable& variable) override;
    void visitCallbackEquation(VrexCallbackEquation& equation) override;
    void visitExpressionEquation(VrexExpressionEquation& equation) override;

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
    void visitPattern3D(VrexPattern3D& pattern) override;
    void visitArrayPattern3D(VrexArrayPattern3D& pattern) override;
    void visitEqualDimensionElement3D(VrexEqualDimensionElement3D& element) override;

    /// The kinds without fields of their own.
    void visitConstraint3D(VrexConstraint3D& constraint) override;
    void visitDimension3D(VrexDimension3D& dimension) override;
    void visitMate3D(VrexMate3D& mate) override;
    void visitDirectionDistance3D(VrexDirectionDistance3D& distance) override;
    void visitIncidence3D(VrexIncidence3D& incidence) override;
    void visitFixation3D(VrexFixation3D& fixation) override;
    void visitEqualRadius3D(VrexEqualRadius3D& constraint) override;
    void visitInstance3D(VrexInstance3D& instance) override;
    void visitEqualDimension3D(VrexEqualDimension3D& constraint) override;
    void visitEqualParameter3D(VrexEqualParameter3D& constraint) override;
    void visitMateRelation3D(VrexMateRelation3D& relation) override;
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) override;
    void visitVariableFixation3D(VrexVariableFixation3D& fixation) override;

private:
    template <class Put>
    void encodeGeometry(const VrexGeometry3D& geometry, Put put);
    template <class Put, class PutTail>
    void encodeConstraint(const VrexConstraint3D& constraint, VrexObjectType arguments, Put put,
                          PutTail putTail);
    template <class Put>
    void encodeConstraint(const VrexConstraint3D& constraint, Put put);
    template <class Put>
    void encodeDimension(const VrexDimension3D& dimension, Put put);
    void encodeBinding(const VrexConstraint3D& constraint);
};
