#include <array>
#include <memory>
#include <utility>

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
#include "data/serialization/VrexJsonWriting.h"

namespace keys = nsJsonKeys;
using nsJsonWriting::putIfSet;
using nsJsonWriting::putIfTrue;
using nsJsonWriting::putText;
using nsJsonWriting::putTextUnless;
using nsJsonWriting::toArray;
using nsJsonWriting::toJson;

namespace {

void putHelpPoint(LumoJson& json, nsJsonKeys::Key key, const std::optional<VrexVector3DT<double>>& point) {
    if (point.has_value()) {
        json[key] = toJson(*point);
    }
}

void putHelpParameter(LumoJson& json, const nsJsonKeys::ParameterKeys& parameterKeys,
                      const std::optional<VrexVector2DT<double>>& parameter) {
    if (parameter.has_value()) {
        json[parameterKeys.u] = parameter->x();
        json[parameterKeys.v] = parameter->y();
    }
}

/// The null that stands for a variable makes a document impossible; only bound ones are no arguments.
bool isArgument(const std::shared_ptr<VrexBaseGeometry>& geometry) {
    return geometry == nullptr || geometry->baseType() != VrexObjectType::Variable;
}

} // namespace

void VrexObject3DSerializer::visitDistance3D(VrexDistance3D& distance) { serializePlainDimension(distance); }

void VrexObject3DSerializer::visitDirectionDistance3D(VrexDirectionDistance3D& distance) {
    LumoJson json = withArguments(distance);
    json[keys::DIRECTION] = toJson(distance.getDirectionVector());
    serializeDimension(distance, json);
}

void VrexObject3DSerializer::visitParallelDistance3D(VrexParallelDistance3D& distance) {
    serializePlainDimension(distance);
}

void VrexObject3DSerializer::visitAngle3D(VrexAngle3D& angle) { serializePlainDimension(angle); }

void VrexObject3DSerializer::visitPlanarAngle3D(VrexPlanarAngle3D& angle) { serializePlainDimension(angle); }

void VrexObject3DSerializer::visitRadius3D(VrexRadius3D& radius) {
    LumoJson json = withArguments(radius);
    putText(json, keys::RAD_TYPE, radius.getRadiusType());
    serializeDimension(radius, json);
}

void VrexObject3DSerializer::visitCurveLength3D(VrexCurveLength3D& length) {
    LumoJson json = withArguments(length);
    putIfSet(json, keys::WINDING_ANGLE, length.getWindingAngle());
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
    LumoJson json = withArguments(incidence);
    putText(json, keys::INC_TYPE, incidence.getIncidenceType());
    serializeConstraint3D(incidence, json);
}

void VrexObject3DSerializer::visitFixation3D(VrexFixation3D& fixation) {
    LumoJson json = withArguments(fixation);
    putText(json, keys::FIX_TYPE, fixation.getFixationType());
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
    LumoJson json = withArguments(equality);
    putText(json, keys::RAD_TYPE_1, equality.getRadiusType(0));
    putText(json, keys::RAD_TYPE_2, equality.getRadiusType(1));
    serializeConstraint3D(equality, json);
}

void VrexObject3DSerializer::visitInstance3D(VrexInstance3D& instance) {
    LumoJson json = withArguments(instance);
    json[keys::COEFFICIENTS] =
        toArray(instance.getCoefficients(), [](int coefficient) { return coefficient; });
    serializeConstraint3D(instance, json);
}

void VrexObject3DSerializer::visitVariableFixation3D(VrexVariableFixation3D& fixation) {
    LumoJson json = withVariable(fixation.variable());
    serializeConstraint3D(fixation, json);
}

void VrexObject3DSerializer::visitEqualDimension3D(VrexEqualDimension3D& equality) {
    LumoJson json = withArguments(equality);
    json[keys::CONSTRAINTS] = toArray(equality.getDimensions(), toConstraintIndex());
    serializeConstraint3D(equality, json);
}

void VrexObject3DSerializer::visitEqualParameter3D(VrexEqualParameter3D& equality) {
    LumoJson json = withArguments(equality);
    auto constraints = equality.getConstraints();
    constraints.resize(
        equality.getParameterIndices().size()); // One that is missing is refused as the null that it is.
    json[keys::CONSTRAINTS] = toArray(constraints, toConstraintIndex());
    json[keys::HELP_PARAMETERS] = toArray(equality.getParameterIndices(), [](const auto& indices) {
        return LumoJson::array({indices.first, indices.second});
    });
    serializeConstraint3D(equality, json);
}

LumoJson VrexObject3DSerializer::withArguments(const VrexConstraint3D& constraint) const {
    LumoJson arguments = LumoJson::array();
    for (const auto& geometry : constraint.getGeometries()) {
        if (isArgument(geometry)) {
            arguments.push_back(geometryIndex(geometry));
        }
    }
    LumoJson json;
    json[keys::ARGUMENTS] = std::move(arguments);
    return json;
}

LumoJson VrexObject3DSerializer::withVariable(const std::shared_ptr<VrexGeometryVariable>& variable) const {
    LumoJson json;
    json[keys::ARGUMENTS] = LumoJson::array({variableIndex(variable)});
    return json;
}

void VrexObject3DSerializer::serializePlain(VrexConstraint3D& constraint) {
    LumoJson json = withArguments(constraint);
    serializeConstraint3D(constraint, json);
}

void VrexObject3DSerializer::serializePlainDimension(VrexDimension3D& dimension) {
    LumoJson json = withArguments(dimension);
    serializeDimension(dimension, json);
}

void VrexObject3DSerializer::serializeDimension(VrexDimension3D& dimension, LumoJson& json) {
    json[keys::VALUE] = dimension.value();
    putIfTrue(json, keys::RIGID, dimension.isRigid());
    putIfSet(json, keys::LIMITS, dimension.getLimits());
    if (const auto variable = dimension.getVariable()) {
        json[keys::VARIABLE] = variableIndex(variable);
    }
    serializeConstraint3D(dimension, json);
}

void VrexObject3DSerializer::serializeConstraint3D(VrexConstraint3D& constraint, LumoJson& json) {
    using enum VrexGeometryComponentType;
    LumoJson& written = serializeConstraint(constraint, json);
    putText(written, keys::TYPE, constraint.type());
    putHelpPoint(written, keys::HELP_POINT_1, constraint.helpPoint1());
    putHelpPoint(written, keys::HELP_POINT_2, constraint.helpPoint2());
    putHelpParameter(written, keys::HELP_PARAMETER_1, constraint.helpParam1());
    putHelpParameter(written, keys::HELP_PARAMETER_2, constraint.helpParam2());
    putIfTrue(written, keys::FIX_HELP_PARAMETER_1, constraint.fixHelpParameter1());
    putIfTrue(written, keys::FIX_HELP_PARAMETER_2, constraint.fixHelpParameter2());
    putTextUnless(UNKNOWN, written, keys::GEOM_COMPONENT_1, constraint.getGeomComponentType(1));
    putTextUnless(UNKNOWN, written, keys::GEOM_COMPONENT_2, constraint.getGeomComponentType(2));
}
