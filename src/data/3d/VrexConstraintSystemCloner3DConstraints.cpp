#include "data/3d/VrexConstraintSystemCloner3D.h"

#include <stdexcept>

#include "data/VrexLog.h"
#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexDimension3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualCurveProperty3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/VrexGeometryVariable.h"

void VrexConstraintSystemCloner3D::cloneConstraint(VrexConstraint3D& constraint) {
    if (isDue(constraint)) {
        setClone(boundCopyOf(constraint));
    }
}

void VrexConstraintSystemCloner3D::cloneDimension(VrexDimension3D& dimension) {
    if (!isDue(dimension)) {
        return;
    }
    const auto clone = boundCopyOf(dimension);
    if (const auto variable = dimension.getVariable()) {
        clone->bindVariable(nullptr);
        clone->setValue(dimension.value());
        clone->bindVariable(cloneOf(variable));
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitDistance3D(VrexDistance3D& dimension) { cloneDimension(dimension); }

void VrexConstraintSystemCloner3D::visitDirectionDistance3D(VrexDirectionDistance3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitParallelDistance3D(VrexParallelDistance3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitIncidence3D(VrexIncidence3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitFixation3D(VrexFixation3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitAngle3D(VrexAngle3D& dimension) { cloneDimension(dimension); }

void VrexConstraintSystemCloner3D::visitPlanarAngle3D(VrexPlanarAngle3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitParallelism3D(VrexParallelism3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitPerpendicularity3D(VrexPerpendicularity3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitConcentricity3D(VrexConcentricity3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitIncidenceToCenter3D(VrexIncidenceToCenter3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitSymmetry3D(VrexSymmetry3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitMidPoint3D(VrexMidPoint3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitTangency3D(VrexTangency3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitRadius3D(VrexRadius3D& dimension) { cloneDimension(dimension); }

void VrexConstraintSystemCloner3D::visitEqualRadius3D(VrexEqualRadius3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitSurfaceNormal3D(VrexSurfaceNormal3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitSliderMate3D(VrexSliderMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitRevoluteMate3D(VrexRevoluteMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitFastenedMate3D(VrexFastenedMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitCylinderMate3D(VrexCylinderMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitPlanarMate3D(VrexPlanarMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitPinSlotMate3D(VrexPinSlotMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitParallelMate3D(VrexParallelMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitBallMate3D(VrexBallMate3D& mate) { cloneConstraint(mate); }

void VrexConstraintSystemCloner3D::visitVariableFixation3D(VrexVariableFixation3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitEqualParameter3D(VrexEqualParameter3D& constraint) {
    if (!isDue(constraint)) {
        return;
    }
    const auto clone = boundCopyOf(constraint);
    for (auto& tied : clone->m_constraints) {
        tied = cloneOf(tied);
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitHalfAngle3D(VrexHalfAngle3D& dimension) { cloneDimension(dimension); }

void VrexConstraintSystemCloner3D::visitInstance3D(VrexInstance3D& instance) {
    if (!isDue(instance)) {
        return;
    }
    const auto clone = boundCopyOf(instance);
    if (!clone->checkData()) {
        VREX_RAISE(std::runtime_error, "VrexConstraintSystemCloner: instance was not created");
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitPatternValue3D(VrexPatternValue3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitCurveLength3D(VrexCurveLength3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitEqualCurveProperty3D(VrexEqualCurveProperty3D& constraint) {
    cloneConstraint(constraint);
}

void VrexConstraintSystemCloner3D::visitEqualDimension3D(VrexEqualDimension3D& constraint) {
    if (!isDue(constraint)) {
        return;
    }
    const auto clone = boundCopyOf(constraint);
    for (auto& dimension : clone->m_dimensions) {
        dimension = cloneOf(dimension);
    }
    setClone(clone);
}

void VrexConstraintSystemCloner3D::visitEqualDimensionValue3D(VrexEqualDimensionValue3D& dimension) {
    cloneDimension(dimension);
}

void VrexConstraintSystemCloner3D::visitMateRelation3D(VrexMateRelation3D& constraint) {
    if (!isDue(constraint)) {
        return;
    }
    const auto clone = boundCopyOf(constraint);
    clone->m_mates = getNewObjects(constraint.getMates());
    setClone(clone);
}
