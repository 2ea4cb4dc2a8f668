#pragma once

#include "data/VrexVisitor3D.h"

class VrexSolverBuilder;

/// Sends each kind of constraint to the family that knows its residuals. What no family knows is refused by
/// name.
class VrexSolverResiduals final : public VrexVisitor3D {
public:
    explicit VrexSolverResiduals(VrexSolverBuilder& builder) : m_builder(builder) {}

    void visitBaseConstraint(VrexBaseConstraint& constraint) override;
    void visitDistance3D(VrexDistance3D& constraint) override;
    void visitDirectionDistance3D(VrexDirectionDistance3D& constraint) override;
    void visitParallelDistance3D(VrexParallelDistance3D& constraint) override;
    void visitIncidence3D(VrexIncidence3D& constraint) override;
    void visitFixation3D(VrexFixation3D& constraint) override;
    void visitTangency3D(VrexTangency3D& constraint) override;
    void visitFastenedMate3D(VrexFastenedMate3D& mate) override;
    void visitSliderMate3D(VrexSliderMate3D& mate) override;
    void visitRevoluteMate3D(VrexRevoluteMate3D& mate) override;
    void visitCylinderMate3D(VrexCylinderMate3D& mate) override;
    void visitPinSlotMate3D(VrexPinSlotMate3D& mate) override;
    void visitPlanarMate3D(VrexPlanarMate3D& mate) override;
    void visitParallelMate3D(VrexParallelMate3D& mate) override;
    void visitBallMate3D(VrexBallMate3D& mate) override;

private:
    VrexSolverBuilder& m_builder;
};
