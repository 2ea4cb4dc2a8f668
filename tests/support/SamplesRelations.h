#pragma once

#include <memory>

#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexEqualCurveProperty3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "support/SamplesConstraints.h"

// The samples of constraints without a value.

template <>
inline std::shared_ptr<VrexIncidence3D> makeSample() {
    auto incidence = VrexIncidence3D::create(makeSample<VrexEllipse3D>(), makeSample<VrexSphere3D>(),
                                             VrexIncidence3DType::ToSpine, VrexGeometryComponentType::AXIS,
                                             VrexGeometryComponentType::CENTER);
    incidence->fixHelpParameter1(true);
    incidence->fixHelpParameter2(true);
    return nsSamples::filled(incidence);
}

template <>
inline std::shared_ptr<VrexTangency3D> makeSample() {
    auto tangency =
        VrexTangency3D::create(makeSample<VrexEllipse3D>(), makeSample<VrexSphere3D>(),
                               VrexGeometryComponentType::PLANE, VrexGeometryComponentType::EXTERIOR);
    tangency->fixHelpParameter1(true);
    tangency->fixHelpParameter2(true);
    return nsSamples::filled(tangency);
}

template <>
inline std::shared_ptr<VrexFixation3D> makeSample() {
    return nsSamples::filled(
        VrexFixation3D::create(makeSample<VrexCone3D>(), VrexFixation3DType::Aperture3D));
}

template <>
inline std::shared_ptr<VrexParallelism3D> makeSample() {
    return nsSamples::filled(VrexParallelism3D::create(makeSample<VrexLine3D>(), makeSample<VrexPlane3D>()));
}

template <>
inline std::shared_ptr<VrexPerpendicularity3D> makeSample() {
    return nsSamples::filled(
        VrexPerpendicularity3D::create(makeSample<VrexLine3D>(), makeSample<VrexCylinder3D>()));
}

template <>
inline std::shared_ptr<VrexConcentricity3D> makeSample() {
    return nsSamples::filled(
        VrexConcentricity3D::create(makeSample<VrexPoint3D>(), makeSample<VrexTorus3D>()));
}

template <>
inline std::shared_ptr<VrexIncidenceToCenter3D> makeSample() {
    return nsSamples::filled(
        VrexIncidenceToCenter3D::create(makeSample<VrexPoint3D>(), makeSample<VrexSphere3D>()));
}

template <>
inline std::shared_ptr<VrexVariableFixation3D> makeSample() {
    return nsSamples::filled(VrexVariableFixation3D::create(makeSample<VrexGeometryVariable>()));
}

template <>
inline std::shared_ptr<VrexSymmetry3D> makeSample() {
    return nsSamples::filled(VrexSymmetry3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                                    makeSample<VrexPlane3D>()));
}

template <>
inline std::shared_ptr<VrexMidPoint3D> makeSample() {
    return nsSamples::filled(VrexMidPoint3D::create(makeSample<VrexPlane3D>(), makeSample<VrexPlane3D>(),
                                                    makeSample<VrexPoint3D>()));
}

template <>
inline std::shared_ptr<VrexEqualRadius3D> makeSample() {
    return nsSamples::filled(VrexEqualRadius3D::create(
        makeSample<VrexTorus3D>(), VrexRadius3DType::MinorRadius3D, makeSample<VrexEllipse3D>(),
        VrexRadius3DType::MajorRadius3D, VrexGeometryComponentType::MINOR, VrexGeometryComponentType::MAJOR));
}

template <>
inline std::shared_ptr<VrexSurfaceNormal3D> makeSample() {
    return nsSamples::filled(
        VrexSurfaceNormal3D::create(makeSample<VrexCylinder3D>(), makeSample<VrexLine3D>()));
}

template <>
inline std::shared_ptr<VrexEqualParameter3D> makeSample() {
    const auto circle = makeSample<VrexCircle3D>();
    constexpr auto WHOLE = VrexGeometryComponentType::UNKNOWN;
    const auto incidence = VrexIncidence3D::create(makeSample<VrexPoint3D>(), circle,
                                                   VrexIncidence3DType::Default, WHOLE, WHOLE);
    const auto distance = VrexDistance3D::create(circle, makeSample<VrexPoint3D>(), 2.0, WHOLE, WHOLE);
    return nsSamples::filled(VrexEqualParameter3D::create(incidence, {8, 9}, distance, {6, 7}));
}

template <>
inline std::shared_ptr<VrexEqualCurveProperty3D> makeSample() {
    return nsSamples::filled(VrexEqualCurveProperty3D::create(
        makeSample<VrexEllipse3D>(), makeSample<VrexLine3D>(), VrexCurveProperty3DType::EqualCurvature3D));
}

template <>
inline std::shared_ptr<VrexEqualDimension3D> makeSample() {
    return nsSamples::filled(
        VrexEqualDimension3D::create({makeSample<VrexDistance3D>(), makeSample<VrexDistance3D>()},
                                     makeSample<VrexEqualDimensionElement3D>()));
}

template <>
inline std::shared_ptr<VrexInstance3D> makeSample() {
    return nsSamples::filled(VrexInstance3D::create(makeSample<VrexPoint3D>(), makeSample<VrexPoint3D>(),
                                                    makeSample<VrexArrayPattern3D>(), {3, -2}));
}
