#pragma once

#include <cstdint>
#include <memory>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexFastenedMate3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexMateDimensionInterval3D.h"
#include "data/constraint/3d/VrexMateRelation3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelMate3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPinSlotMate3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexPlanarMate3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexRevoluteMate3D.h"
#include "data/constraint/3d/VrexSliderMate3D.h"
#include "support/Samples.h"

/// The samples of constraints.
namespace nsSamples {

/// Leaves no field that all constraints have at its default, but the parent, which is held weakly.
template <class Constraint>
std::shared_ptr<Constraint> filled(std::shared_ptr<Constraint> constraint) {
    constraint->status() = VrexConstraintStatus::Regular;
    constraint->satisfiedStatus() = VrexConstraintSatisfiedStatus::Satisfied;
    constraint->solveMethodStatus() = VrexSolveMethodStatus::Analytical;
    constraint->alignment() = VrexConstraintAlignment::Positive;
    constraint->orientation() = VrexConstraintOrientation::Negative;
    constraint->setHelpPoint1({1.0, 2.0, 3.0});
    constraint->setHelpPoint2({-1.0, -2.0, -3.0});
    constraint->setHelpParam1({0.25, 0.5});
    constraint->setHelpParam2({-0.25, -0.5});
    constraint->biasData() = VrexConstraintBiasData3D{{{7, 0.125}}, {{8, 0.25}, {9, 0.375}}};
    return constraint;
}

/// The same for what all dimensions have.
template <class Dimension>
std::shared_ptr<Dimension> filledDimension(std::shared_ptr<Dimension> dimension) {
    dimension->setRigid(true);
    dimension->setLimits({-1.5, 9.5});
    dimension->bindVariable(makeSample<VrexGeometryVariable>());
    return filled(dimension);
}

/// The same for what all mates have.
template <class Mate>
std::shared_ptr<Mate> filledMate(std::shared_ptr<Mate> mate) {
    for (std::uint64_t i = 0; i < mate->getDimensionSize(); ++i) {
        mate->getDimension(i).value = 0.5 + static_cast<double>(i);
        mate->getDimension(i).setFixed(true);
    }
    return filled(mate);
}

} // namespace nsSamples

template <>
inline std::shared_ptr<VrexDistance3D> makeSample() {
    auto distance =
        VrexDistance3D::create(makeSample<VrexPlane3D>(), makeSample<VrexTorus3D>(), 4.5,
                               VrexGeometryComponentType::UNKNOWN, VrexGeometryComponentType::CENTER);
    distance->fixHelpParameter1(true);
    return nsSamples::filledDimension(distance);
}

template <>
inline std::shared_ptr<VrexDirectionDistance3D> makeSample() {
    return nsSamples::filledDimension(VrexDirectionDistance3D::create(
        makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), {1.0, -2.0, 2.0}, 3.0));
}

template <>
inline std::shared_ptr<VrexParallelDistance3D> makeSample() {
    return nsSamples::filledDimension(VrexParallelDistance3D::create(
        makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(), makeSample<VrexLine3D>(), 2.0));
}

template <>
inline std::shared_ptr<VrexAngle3D> makeSample() {
    return nsSamples::filledDimension(
        VrexAngle3D::create(makeSample<VrexLine3D>(), makeSample<VrexPlane3D>(), 0.75));
}

template <>
inline std::shared_ptr<VrexPlanarAngle3D> makeSample() {
    return nsSamples::filledDimension(VrexPlanarAngle3D::create(
        makeSample<VrexLine3D>(), makeSample<VrexLine3D>(), makeSample<VrexPlane3D>(), 1.25));
}

template <>
inline std::shared_ptr<VrexRadius3D> makeSample() {
    return nsSamples::filledDimension(
        VrexRadius3D::create(makeSample<VrexEllipse3D>(), 2.5, VrexRadius3DType::MinorRadius3D));
}

template <>
inline std::shared_ptr<VrexHalfAngle3D> makeSample() {
    return nsSamples::filledDimension(VrexHalfAngle3D::create(makeSample<VrexCone3D>(), 0.5));
}

template <>
inline std::shared_ptr<VrexPatternValue3D> makeSample() {
    return nsSamples::filledDimension(VrexPatternValue3D::create(makeSample<VrexPattern3D>(), 0.375));
}

template <>
inline std::shared_ptr<VrexCurveLength3D> makeSample() {
    auto length = VrexCurveLength3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                            makeSample<VrexEllipse3D>(), 6.5);
    length->setWindingAngle(7.0);
    return nsSamples::filledDimension(length);
}

template <>
inline std::shared_ptr<VrexEqualDimensionValue3D> makeSample() {
    return nsSamples::filledDimension(
        VrexEqualDimensionValue3D::create(makeSample<VrexEqualDimensionElement3D>(), 5.5));
}

template <>
inline std::shared_ptr<VrexSliderMate3D> makeSample() {
    return nsSamples::filledMate(
        VrexSliderMate3D::create(makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), {-1.0, 2.0}));
}

template <>
inline std::shared_ptr<VrexRevoluteMate3D> makeSample() {
    return nsSamples::filledMate(VrexRevoluteMate3D::create(makeSample<VrexConnector3D>(),
                                                            makeSample<VrexConnector3D>(), {-0.5, 1.5}));
}

template <>
inline std::shared_ptr<VrexFastenedMate3D> makeSample() {
    return nsSamples::filledMate(
        VrexFastenedMate3D::create(makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>()));
}

template <>
inline std::shared_ptr<VrexCylinderMate3D> makeSample() {
    return nsSamples::filledMate(VrexCylinderMate3D::create(
        makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), {-1.0, 2.0}, {-0.5, 1.5}));
}

template <>
inline std::shared_ptr<VrexPlanarMate3D> makeSample() {
    return nsSamples::filledMate(VrexPlanarMate3D::create(
        makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), {-1.0, 2.0}, {-3.0, 4.0}, {-0.5, 1.5}));
}

template <>
inline std::shared_ptr<VrexPinSlotMate3D> makeSample() {
    return nsSamples::filledMate(VrexPinSlotMate3D::create(
        makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), {-1.0, 2.0}, {-0.5, 1.5}));
}

template <>
inline std::shared_ptr<VrexParallelMate3D> makeSample() {
    return nsSamples::filledMate(VrexParallelMate3D::create(makeSample<VrexConnector3D>(),
                                                            makeSample<VrexConnector3D>(), {-1.0, 2.0},
                                                            {-3.0, 4.0}, {-5.0, 6.0}, {-0.5, 1.5}));
}

template <>
inline std::shared_ptr<VrexBallMate3D> makeSample() {
    return nsSamples::filledMate(
        VrexBallMate3D::create(makeSample<VrexConnector3D>(), makeSample<VrexConnector3D>(), {0.25, 1.5}));
}

template <>
inline std::shared_ptr<VrexMateDimensionInterval3D> makeSample() {
    return nsSamples::filled(
        VrexMateDimensionInterval3D::create(makeSample<VrexGeometryVariable>(), {-2.0, 3.0}, 1,
                                            VrexMateDimensionInterval3DType::LinearDimension3D));
}

template <>
inline std::shared_ptr<VrexMateRelation3D> makeSample() {
    return nsSamples::filled(VrexMateRelation3D::create(
        {makeSample<VrexCylinderMate3D>(), makeSample<VrexSliderMate3D>()}, {1, 0}, -2.5));
}
