#include "solver/VrexSolverResiduals.h"

#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "solver/VrexDistanceResiduals.h"
#include "solver/VrexFixationResiduals.h"
#include "solver/VrexIncidenceResiduals.h"
#include "solver/VrexMateResiduals.h"
#include "solver/VrexSolverBuilder.h"
#include "solver/VrexTangencyResiduals.h"

void VrexSolverResiduals::visitBaseConstraint(VrexBaseConstraint& /*constraint*/) {
    m_builder.refuse("This kind of constraint is not supported.");
}

void VrexSolverResiduals::visitDistance3D(VrexDistance3D& constraint) {
    nsDistanceResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitDirectionDistance3D(VrexDirectionDistance3D& constraint) {
    nsDistanceResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitParallelDistance3D(VrexParallelDistance3D& constraint) {
    nsDistanceResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitIncidence3D(VrexIncidence3D& constraint) {
    nsIncidenceResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitFixation3D(VrexFixation3D& constraint) {
    nsFixationResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitTangency3D(VrexTangency3D& constraint) {
    nsTangencyResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitFastenedMate3D(VrexFastenedMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_X, SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y, TWIST}, {});
}

void VrexSolverResiduals::visitSliderMate3D(VrexSliderMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_X, SHIFT_Y, TILT_X, TILT_Y, TWIST}, {SHIFT_Z});
}

void VrexSolverResiduals::visitRevoluteMate3D(VrexRevoluteMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_X, SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y}, {TWIST});
}

void VrexSolverResiduals::visitCylinderMate3D(VrexCylinderMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_X, SHIFT_Y, TILT_X, TILT_Y}, {SHIFT_Z, TWIST});
}

void VrexSolverResiduals::visitPinSlotMate3D(VrexPinSlotMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_Y, SHIFT_Z, TILT_X, TILT_Y}, {SHIFT_X, TWIST});
}

void VrexSolverResiduals::visitPlanarMate3D(VrexPlanarMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_Z, TILT_X, TILT_Y}, {SHIFT_X, SHIFT_Y, TWIST});
}

void VrexSolverResiduals::visitParallelMate3D(VrexParallelMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {TILT_X, TILT_Y}, {SHIFT_X, SHIFT_Y, SHIFT_Z, TWIST});
}

void VrexSolverResiduals::visitBallMate3D(VrexBallMate3D& mate) {
    using enum nsMateResiduals::Degree;
    nsMateResiduals::add(m_builder, mate, {SHIFT_X, SHIFT_Y, SHIFT_Z}, {SWING});
}
