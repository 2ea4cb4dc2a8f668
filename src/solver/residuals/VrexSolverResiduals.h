#pragma once

#include <cstddef>
#include <string>

#include "data/VrexVisitor3D.h"

class VrexSolverBuilder;

/// Sends each kind of constraint to the family that knows its residuals. What no family knows is refused by
/// name.
class VrexSolverResiduals final : public VrexVisitor3D {
public:
    /// Adds what the constraint at this place of the component's list asks for. Empty where that is done,
    /// else why it cannot be.
    static std::string add(VrexSolverBuilder& builder, std::size_t place, VrexBaseConstraint& constraint);

    void visitBaseConstraint(VrexBaseConstraint& constraint) override;
    void visitBaseEquation(VrexBaseEquation& constraint) override;
    void visitDistance3D(VrexDistance3D& constraint) override;
    void visitDirectionDistance3D(VrexDirectionDistance3D& constraint) override;
    void visitParallelDistance3D(VrexParallelDistance3D& constraint) override;
    void visitIncidence3D(VrexIncidence3D& constraint) override;
    void visitFixation3D(VrexFixation3D& constraint) override;
    void visitAngle3D(VrexAngle3D& constraint) override;
    void visitPlanarAngle3D(VrexPlanarAngle3D& constraint) override;
    void visitParallelism3D(VrexParallelism3D& constraint) override;
    void visitPerpendicularity3D(VrexPerpendicularity3D& constraint) override;
    void visitConcentricity3D(VrexConcentricity3D& constraint) override;
    void visitIncidenceToCenter3D(VrexIncidenceToCenter3D& constraint) override;
    void visitSymmetry3D(VrexSymmetry3D& constraint) override;
    void visitMidPoint3D(VrexMidPoint3D& constraint) override;
    void visitTangency3D(VrexTangency3D& constraint) override;
    void visitRadius3D(VrexRadius3D& constraint) override;
    void visitEqualRadius3D(VrexEqualRadius3D& constraint) override;
    void visitMate3D(VrexMate3D& constraint) override;
    void visitMateDimensionInterval3D(VrexMateDimensionInterval3D& constraint) override;
    void visitVariableFixation3D(VrexVariableFixation3D& constraint) override;
    void visitHalfAngle3D(VrexHalfAngle3D& constraint) override;
    void visitInstance3D(VrexInstance3D& constraint) override;
    void visitPatternValue3D(VrexPatternValue3D& constraint) override;
    void visitEqualDimension3D(VrexEqualDimension3D& constraint) override;
    void visitEqualDimensionValue3D(VrexEqualDimensionValue3D& constraint) override;
    void visitMateRelation3D(VrexMateRelation3D& constraint) override;

private:
    explicit VrexSolverResiduals(VrexSolverBuilder& builder) : m_builder(builder) {}

    VrexSolverBuilder& m_builder;
};
