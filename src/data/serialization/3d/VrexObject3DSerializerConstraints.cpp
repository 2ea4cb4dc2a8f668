#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "data/constraint/3d/VrexAngle3D.h"
#include "data/constraint/3d/VrexConcentricity3D.h"
#include "data/constraint/3d/VrexCurveLength3D.h"
#include "data/constraint/3d/VrexDirectionDistance3D.h"
#include "data/constraint/3d/VrexDistance3D.h"
#include "data/constraint/3d/VrexEqualCurveProperty3D.h"
#include "data/constraint/3d/VrexEqualDimension3D.h"
#include "data/constraint/3d/VrexEqualDimensionValue3D.h"
#include "data/constraint/3d/VrexEqualParameter3D.h"
#include "data/constraint/3d/VrexEqualRadius3D.h"
#include "data/constraint/3d/VrexFixation3D.h"
#include "data/constraint/3d/VrexHalfAngle3D.h"
#include "data/constraint/3d/VrexIncidence3D.h"
#include "data/constraint/3d/VrexIncidenceToCenter3D.h"
#include "data/constraint/3d/VrexInstance3D.h"
#include "data/constraint/3d/VrexMidPoint3D.h"
#include "data/constraint/3d/VrexParallelDistance3D.h"
#include "data/constraint/3d/VrexParallelism3D.h"
#include "data/constraint/3d/VrexPatternValue3D.h"
#include "data/constraint/3d/VrexPerpendicularity3D.h"
#include "data/constraint/3d/VrexPlanarAngle3D.h"
#include "data/constraint/3d/VrexRadius3D.h"
#include "data/constraint/3d/VrexSurfaceNormal3D.h"
#include "data/constraint/3d/VrexSymmetry3D.h"
#include "data/constraint/3d/VrexTangency3D.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/geometry/3d/VrexGeometry3D.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/3d/VrexObject3DSerializer.h"
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonObject.h"

namespace keys = nsJsonKeys;

namespace {

void putHelpParameter(VrexJsonObject& json, const nsJsonKeys::ParameterKeys& parameterKeys,
                      const std::optional<VrexVector2DT<double>>& parameter) {
    if (parameter.has_value()) {
        json.put(parameterKeys.u, parameter->x());
        json.put(parameterKeys.v, parameter->y());
    }
}

/// Of the geometries that a constraint binds, a null is refused where it is looked up.
bool isArgument(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    return geometry == nullptr || geometry->baseType() != VrexObjectType::Variable;
}

} // namespace

void VrexObject3DSerializer::visitDistance3D(VrexDistance3D& distance) { serializePlainDimension(distance); }

void VrexObject3DSerializer::visitDirectionDistance3D(VrexDirectionDistance3D& distance) {
    VrexJsonObject json = withArguments(distance);
    json.put(keys::DIRECTION, distance.getDirectionVector());
    serializeDimension(distance, json);
}

void VrexObject3DSerializer::visitParallelDistance3D(VrexParallelDistance3D& distance) {
    serializePlainDimension(distance);
}

void VrexObject3DSerializer::visitAngle3D(VrexAngle3D& angle) { serializePlainDimension(angle); }

void VrexObject3DSerializer::visitPlanarAngle3D(VrexPlanarAngle3D& angle) { serializePlainDimension(angle); }

void VrexObject3DSerializer::visitRadius3D(VrexRadius3D& radius) {
    VrexJsonObject json = withArguments(radius);
    json.put(keys::RAD_TYPE, radius.getRadiusType());
    serializeDimension(radius, json);
}

void VrexObject3DSerializer::visitCurveLength3D(VrexCurveLength3D& length) {
    VrexJsonObject json = withArguments(length);
    json.putIfSet(keys::WINDING_ANGLE, length.getWindingAngle());
    serializeDimension(length, json);
}

void VrexObject3DSerializer::visitHalfAngle3D(VrexHalfAngle3D& angle) { serializePlainDimension(angle); }

void VrexObject3DSerializer::visitPatternValue3D(VrexPatternValue3D& value) {
    serializePlainDimension(value);
}

void VrexObject3DSerializer::visitEqualDimensionValue3D(VrexEqualDimensionValue3D& value) {
    serializePlainDimension(value);
}

void VrexObject3DSerializer::visitIncidence3D(VrexIncidence3D& incidence) {
    VrexJsonObject json = withArguments(incidence);
    json.put(keys::INC_TYPE, incidence.getIncidenceType());
    serializeConstraint3D(incidence, json);
}

void VrexObject3DSerializer::visitFixation3D(VrexFixation3D& fixation) {
    VrexJsonObject json = withArguments(fixation);
    json.put(keys::FIX_TYPE, fixation.getFixationType());
    serializeConstraint3D(fixation, json);
}

void VrexObject3DSerializer::visitParallelism3D(VrexParallelism3D& parallelism) {
    serializePlain(parallelism);
}

void VrexObject3DSerializer::visitPerpendicularity3D(VrexPerpendicularity3D& perpendicularity) {
    serializePlain(perpendicularity);
}

void VrexObject3DSerializer::visitConcentricity3D(VrexConcentricity3D& concentricity) {
    serializePlain(concentricity);
}

void VrexObject3DSerializer::visitIncidenceToCenter3D(VrexIncidenceToCenter3D& incidence) {
    serializePlain(incidence);
}

void VrexObject3DSerializer::visitTangency3D(VrexTangency3D& tangency) { serializePlain(tangency); }

void VrexObject3DSerializer::visitSurfaceNormal3D(VrexSurfaceNormal3D& normal) { serializePlain(normal); }

void VrexObject3DSerializer::visitEqualCurveProperty3D(VrexEqualCurveProperty3D& property) {
    serializePlain(property);
}

void VrexObject3DSerializer::visitSymmetry3D(VrexSymmetry3D& symmetry) { serializePlain(symmetry); }

void VrexObject3DSerializer::visitMidPoint3D(VrexMidPoint3D& midPoint) { serializePlain(midPoint); }

void VrexObject3DSerializer::visitEqualRadius3D(VrexEqualRadius3D& equality) {
    VrexJsonObject json = withArguments(equality);
    json.put(keys::RAD_TYPE_1, equality.getRadiusType(0));
    json.put(keys::RAD_TYPE_2, equality.getRadiusType(1));
    serializeConstraint3D(equality, json);
}

void VrexObject3DSerializer::visitInstance3D(VrexInstance3D& instance) {
    VrexJsonObject json = withArguments(instance);
    json.putArray(keys::COEFFICIENTS, instance.getCoefficients(), std::identity());
    serializeConstraint3D(instance, json);
}

void VrexObject3DSerializer::visitVariableFixation3D(VrexVariableFixation3D& fixation) {
    VrexJsonObject json = withVariable(fixation.variable());
    serializeConstraint3D(fixation, json);
}

void VrexObject3DSerializer::visitEqualDimension3D(VrexEqualDimension3D& equality) {
    VrexJsonObject json = withArguments(equality);
    json.putArray(keys::CONSTRAINTS, equality.getDimensions(), toConstraintIndex());
    serializeConstraint3D(equality, json);
}

void VrexObject3DSerializer::visitEqualParameter3D(VrexEqualParameter3D& equality) {
    VrexJsonObject json = withArguments(equality);
    auto constraints = equality.getConstraints();
    constraints.resize(
        equality.getParameterIndices().size()); // One that is missing is refused as the null that it is.
    json.putArray(keys::CONSTRAINTS, constraints, toConstraintIndex());
    json.putArray(keys::HELP_PARAMETERS, equality.getParameterIndices(), [](const auto& indices) {
        return std::array{indices.first, indices.second};
    });
    serializeConstraint3D(equality, json);
}

VrexJsonObject VrexObject3DSerializer::withArguments(const VrexConstraint3D& constraint) {
    return {lines().nextLine(VrexJsonLines::CONSTRAINTS), [&](VrexJsonObject& json) {
                json.putArray(keys::ARGUMENTS, constraint.getGeometries(), toGeometryIndex(), isArgument);
            }};
}

VrexJsonObject VrexObject3DSerializer::withVariable(const std::shared_ptr<VrexGeometryVariable>& variable) {
    return {lines().nextLine(VrexJsonLines::CONSTRAINTS),
            [&](VrexJsonObject& json) { json.put(keys::ARGUMENTS, std::array{variableIndex(variable)}); }};
}

void VrexObject3DSerializer::serializePlain(VrexConstraint3D& constraint) {
    VrexJsonObject json = withArguments(constraint);
    serializeConstraint3D(constraint, json);
}

void VrexObject3DSerializer::serializePlainDimension(VrexDimension3D& dimension) {
    VrexJsonObject json = withArguments(dimension);
    serializeDimension(dimension, json);
}

void VrexObject3DSerializer::serializeDimension(VrexDimension3D& dimension, VrexJsonObject& json) {
    json.put(keys::VALUE, dimension.value());
    json.putIfTrue(keys::RIGID, dimension.isRigid());
    json.putIfSet(keys::LIMITS, dimension.getLimits());
    if (const auto variable = dimension.getVariable()) {
        json.put(keys::VARIABLE, variableIndex(variable));
    }
    serializeConstraint3D(dimension, json);
}

void VrexObject3DSerializer::serializeConstraint3D(VrexConstraint3D& constraint, VrexJsonObject& json) {
    using enum VrexGeometryComponentType;
    serializeConstraint(constraint, json);
    json.put(keys::TYPE, constraint.type());
    json.putIfSet(keys::HELP_POINT_1, constraint.helpPoint1());
    json.putIfSet(keys::HELP_POINT_2, constraint.helpPoint2());
    putHelpParameter(json, keys::HELP_PARAMETER_1, constraint.helpParam1());
    putHelpParameter(json, keys::HELP_PARAMETER_2, constraint.helpParam2());
    json.putIfTrue(keys::FIX_HELP_PARAMETER_1, constraint.fixHelpParameter1());
    json.putIfTrue(keys::FIX_HELP_PARAMETER_2, constraint.fixHelpParameter2());
    json.putUnless(UNKNOWN, keys::GEOM_COMPONENT_1, constraint.getGeomComponentType(1));
    json.putUnless(UNKNOWN, keys::GEOM_COMPONENT_2, constraint.getGeomComponentType(2));
}
