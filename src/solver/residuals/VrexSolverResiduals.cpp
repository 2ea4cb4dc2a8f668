#include "solver/residuals/VrexSolverResiduals.h"

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMate3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/constraint/equation/VrexBaseEquation.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/residuals/VrexCenterResiduals.h"
#include "solver/residuals/VrexDirectionResiduals.h"
#include "solver/residuals/VrexDistanceResiduals.h"
#include "solver/residuals/VrexEquationResiduals.h"
#include "solver/residuals/VrexFixationResiduals.h"
#include "solver/residuals/VrexImageResiduals.h"
#include "solver/residuals/VrexIncidenceResiduals.h"
#include "solver/residuals/VrexMateResiduals.h"
#include "solver/residuals/VrexRelationResiduals.h"
#include "solver/residuals/VrexSizeResiduals.h"
#include "solver/residuals/VrexTangencyResiduals.h"

std::string VrexSolverResiduals::add(VrexSolverBuilder& builder, std::size_t place,
                                     VrexBaseConstraint& constraint) {
    builder.begin(place, constraint);
    VrexSolverResiduals residuals(builder);
    constraint.accept(residuals);
    return builder.end();
}

void VrexSolverResiduals::visitBaseConstraint(VrexBaseConstraint& /*constraint*/) {
    m_builder.refuse("This kind of constraint is not supported.");
}

void VrexSolverResiduals::visitBaseEquation(VrexBaseEquation& constraint) {
    nsEquationResiduals::add(m_builder, constraint);
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

void VrexSolverResiduals::visitAngle3D(VrexAngle3D& constraint) {
    nsDirectionResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitPlanarAngle3D(VrexPlanarAngle3D& constraint) {
    nsDirectionResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitParallelism3D(VrexParallelism3D& constraint) {
    nsDirectionResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitPerpendicularity3D(VrexPerpendicularity3D& constraint) {
    nsDirectionResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitConcentricity3D(VrexConcentricity3D& constraint) {
    nsCenterResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitIncidenceToCenter3D(VrexIncidenceToCenter3D& constraint) {
    nsCenterResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitSymmetry3D(VrexSymmetry3D& constraint) {
    nsImageResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitMidPoint3D(VrexMidPoint3D& constraint) {
    nsCenterResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitTangency3D(VrexTangency3D& constraint) {
    nsTangencyResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitRadius3D(VrexRadius3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitEqualRadius3D(VrexEqualRadius3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitMate3D(VrexMate3D& constraint) { nsMateResiduals::add(m_builder, constraint); }

void VrexSolverResiduals::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& constraint) {
    nsRelationResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitVariableFixation3D(VrexVariableFixation3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitHalfAngle3D(VrexHalfAngle3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitInstance3D(VrexInstance3D& constraint) {
    nsImageResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitPatternValue3D(VrexPatternValue3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitEqualDimension3D(VrexEqualDimension3D& constraint) {
    nsRelationResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitEqualDimensionValue3D(VrexEqualDimensionValue3D& constraint) {
    nsSizeResiduals::add(m_builder, constraint);
}

void VrexSolverResiduals::visitMateRelation3D(VrexMateRelation3D& constraint) {
    nsRelationResiduals::add(m_builder, constraint);
}
