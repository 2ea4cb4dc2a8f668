#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

#include "data/VrexLog.h"
#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexBallMate3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexCylinderMate3D.h"
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
#include "data/serialization/3d/VrexObject3DDeserializer.h"
#include "data/serialization/VrexJsonReading.h"
#include "data/serialization/VrexSystemDeserializer.h"

namespace keys = nsJsonKeys;
using nsJsonReading::findAs;
using nsJsonReading::findBoolean;
using nsJsonReading::findEnum;
using nsJsonReading::findNumber;
using nsJsonReading::readEnum;
using nsJsonReading::readIntegers;
using nsJsonReading::readNumber;

namespace {

VrexDimensionLimits findLimits(const LumoJson& json, const keys::RangeKeys& limits) {
    return {findNumber(json, limits.lower), findNumber(json, limits.upper)};
}

/// Stays without parameters unless both are told.
std::optional<VrexVector2DT<double>> findHelpParameter(const LumoJson& json,
                                                       const keys::ParameterKeys& parameter) {
    const auto u = findNumber(json, parameter.u);
    const auto v = findNumber(json, parameter.v);
    return u.has_value() && v.has_value() ? std::optional(VrexVector2DT<double>(*u, *v)) : std::nullopt;
}

void readHelpData(VrexConstraint3D& constraint, const LumoJson& json) {
    constraint.helpPoint1() = findAs(json, keys::HELP_POINT_1, nsJsonReading::toVector);
    constraint.helpPoint2() = findAs(json, keys::HELP_POINT_2, nsJsonReading::toVector);
    constraint.helpParam1() = findHelpParameter(json, keys::HELP_PARAMETER_1);
    constraint.helpParam2() = findHelpParameter(json, keys::HELP_PARAMETER_2);
    if (const auto isFixed = findBoolean(json, keys::FIX_HELP_PARAMETER_1)) {
        constraint.fixHelpParameter1(*isFixed);
    }
    if (const auto isFixed = findBoolean(json, keys::FIX_HELP_PARAMETER_2)) {
        constraint.fixHelpParameter2(*isFixed);
    }
}

/// Each key on its own; one that is missing leaves what there is.
void readDegree(VrexMateDimension3D& degree, const LumoJson& json, const keys::DegreeKeys& key) {
    const auto [lower, upper] = findLimits(json, key.limits);
    degree.limits.first = lower.has_value() ? lower : degree.limits.first;
    degree.limits.second = upper.has_value() ? upper : degree.limits.second;
    degree.setFixed(findBoolean(json, key.fix).value_or(degree.fixed()));
    degree.value = findNumber(json, key.value).value_or(degree.value);
}

} // namespace

const LumoJson& VrexObject3DDeserializer::readConstraint(VrexConstraint3D& constraint) {
    const LumoJson& json = deserializeConstraint(constraint);
    readHelpData(constraint, json);
    return json;
}

const LumoJson& VrexObject3DDeserializer::readDimension(VrexDimension3D& dimension) {
    const LumoJson& json = readConstraint(dimension);
    if (const auto isRigid = findBoolean(json, keys::RIGID)) {
        dimension.setRigid(*isRigid);
    }
    dimension.setValue(readNumber(json, keys::VALUE));
    dimension.setLimits(findLimits(json, keys::LIMITS));
    // Behind the value: that of the variable stays its own.
    if (const auto variable = findAs(json, keys::VARIABLE, nsJsonReading::toInteger<std::uint64_t>)) {
        dimension.bindVariable(system().variable(*variable));
    }
    return json;
}

void VrexObject3DDeserializer::visitDistance3D(VrexDistance3D& distance) { readDimension(distance); }

void VrexObject3DDeserializer::visitDirectionDistance3D(VrexDirectionDistance3D& distance) {
    const LumoJson& json = readDimension(distance);
    distance.setDirectionVector(getVector3D(json, keys::DIRECTION));
}

void VrexObject3DDeserializer::visitParallelDistance3D(VrexParallelDistance3D& distance) {
    readDimension(distance);
}

void VrexObject3DDeserializer::visitAngle3D(VrexAngle3D& angle) { readDimension(angle); }

void VrexObject3DDeserializer::visitPlanarAngle3D(VrexPlanarAngle3D& angle) { readDimension(angle); }

// Kept: the type of the radius comes from the kind, whatever its key says.
void VrexObject3DDeserializer::visitRadius3D(VrexRadius3D& radius) { readDimension(radius); }

void VrexObject3DDeserializer::visitCurveLength3D(VrexCurveLength3D& length) {
    const LumoJson& json = readDimension(length);
    length.setWindingAngle(findNumber(json, keys::WINDING_ANGLE));
}

void VrexObject3DDeserializer::visitHalfAngle3D(VrexHalfAngle3D& angle) { readDimension(angle); }

void VrexObject3DDeserializer::visitPatternValue3D(VrexPatternValue3D& value) { readDimension(value); }

void VrexObject3DDeserializer::visitEqualDimensionValue3D(VrexEqualDimensionValue3D& value) {
    readDimension(value);
}

void VrexObject3DDeserializer::visitIncidence3D(VrexIncidence3D& incidence) {
    const LumoJson& json = readConstraint(incidence);
    if (const auto type = findEnum<VrexIncidence3DType>(json, keys::INC_TYPE)) {
        incidence.setIncidenceType(*type);
    }
}

void VrexObject3DDeserializer::visitFixation3D(VrexFixation3D& fixation) {
    const LumoJson& json = readConstraint(fixation);
    if (const auto type = findEnum<VrexFixation3DType>(json, keys::FIX_TYPE)) {
        fixation.setFixationType(*type);
    }
}

void VrexObject3DDeserializer::visitParallelism3D(VrexParallelism3D& parallelism) {
    readConstraint(parallelism);
}

void VrexObject3DDeserializer::visitPerpendicularity3D(VrexPerpendicularity3D& perpendicularity) {
    readConstraint(perpendicularity);
}

void VrexObject3DDeserializer::visitConcentricity3D(VrexConcentricity3D& concentricity) {
    readConstraint(concentricity);
}

void VrexObject3DDeserializer::visitIncidenceToCenter3D(VrexIncidenceToCenter3D& incidence) {
    readConstraint(incidence);
}

void VrexObject3DDeserializer::visitTangency3D(VrexTangency3D& tangency) { readConstraint(tangency); }

void VrexObject3DDeserializer::visitSurfaceNormal3D(VrexSurfaceNormal3D& normal) { readConstraint(normal); }

void VrexObject3DDeserializer::visitEqualCurveProperty3D(VrexEqualCurveProperty3D& property) {
    readConstraint(property);
}

void VrexObject3DDeserializer::visitSymmetry3D(VrexSymmetry3D& symmetry) { readConstraint(symmetry); }

void VrexObject3DDeserializer::visitMidPoint3D(VrexMidPoint3D& midPoint) { readConstraint(midPoint); }

void VrexObject3DDeserializer::visitEqualRadius3D(VrexEqualRadius3D& equality) {
    const LumoJson& json = readConstraint(equality);
    equality.setRadiusType(0, readEnum<VrexRadius3DType>(json, keys::RAD_TYPE_1));
    equality.setRadiusType(1, readEnum<VrexRadius3DType>(json, keys::RAD_TYPE_2));
}

void VrexObject3DDeserializer::visitInstance3D(VrexInstance3D& instance) {
    const LumoJson& json = readConstraint(instance);
    instance.setCoefficients(readIntegers<std::int32_t>(json, keys::COEFFICIENTS));
    if (!instance.checkData()) {
        VREX_RAISE(std::runtime_error, "Instance3D constraint data is incorrect!");
    }
}

void VrexObject3DDeserializer::visitVariableFixation3D(VrexVariableFixation3D& fixation) {
    readConstraint(fixation);
}

void VrexObject3DDeserializer::visitFastenedMate3D(VrexFastenedMate3D& mate) { readConstraint(mate); }

void VrexObject3DDeserializer::visitSliderMate3D(VrexSliderMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getDistance(), json, keys::DISTANCE);
}

void VrexObject3DDeserializer::visitRevoluteMate3D(VrexRevoluteMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitBallMate3D(VrexBallMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitCylinderMate3D(VrexCylinderMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getDistance(), json, keys::DISTANCE);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitPinSlotMate3D(VrexPinSlotMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getDistance(), json, keys::DISTANCE);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitPlanarMate3D(VrexPlanarMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getDistanceX(), json, keys::DISTANCE_X);
    readDegree(mate.getDistanceY(), json, keys::DISTANCE_Y);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitParallelMate3D(VrexParallelMate3D& mate) {
    const LumoJson& json = readConstraint(mate);
    readDegree(mate.getDistanceX(), json, keys::DISTANCE_X);
    readDegree(mate.getDistanceY(), json, keys::DISTANCE_Y);
    readDegree(mate.getDistanceZ(), json, keys::DISTANCE_Z);
    readDegree(mate.getAngle(), json, keys::ANGLE);
}

void VrexObject3DDeserializer::visitMateDimensionInterval3D(VrexMateDimensionInterval3D& interval) {
    const LumoJson& json = readConstraint(interval);
    interval.limit() = findLimits(json, keys::LIMITS);
    interval.setMateDimensionType(readEnum<VrexMateDimensionInterval3DType>(json, keys::DIMENSION_TYPE));
}

void VrexObject3DDeserializer::visitEqualDimension3D(VrexEqualDimension3D& equality) {
    readConstraint(equality);
}

void VrexObject3DDeserializer::visitEqualParameter3D(VrexEqualParameter3D& equality) {
    readConstraint(equality);
}

void VrexObject3DDeserializer::visitMateRelation3D(VrexMateRelation3D& relation) {
    const LumoJson& json = readConstraint(relation);
    relation.setMateParameterIndexs(readIntegers<std::uint64_t>(json, keys::MATE_PARAMETER_INDEXS));
    if (const auto ratio = findNumber(json, keys::RATIO)) {
        relation.setRatio(*ratio);
    }
}
