#include "data/serialization/3d/VrexObject3DSerializer.h"

#include <cstdint>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVariableDescriptorInterface.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexJsonWriting.h"

namespace keys = nsJsonKeys;
using nsJsonWriting::toArray;
using nsJsonWriting::toJson;

VrexObject3DSerializer::VrexObject3DSerializer(const VrexSerializationParameters& parameters, LumoJson& root)
    : VrexBaseObjectSerializer(parameters, root) {}

VrexObject3DSerializer::~VrexObject3DSerializer() = default;

void VrexObject3DSerializer::visitGeometryVariable(VrexGeometryVariable& variable) {
    LumoJson json;
    json[keys::VAL] = variable.getValue();
    serializeVariable(variable, json);
}

void VrexObject3DSerializer::visitExpressionEquation(VrexExpressionEquation& equation) {
    LumoJson json;
    json[keys::TYPE] = nsJsonTypes::EXPRESSION_EQUATION;
    json[keys::EXPRESSION] = equation.expression();
    json[keys::DESCRIPTORS] = descriptorsOf(equation, Names::Written);
    serializeEquation(equation, json);
}

void VrexObject3DSerializer::visitCallbackEquation(VrexCallbackEquation& equation) {
    LumoJson json;
    if (const auto* const linear = equation.callback().target<VrexLinearEquationCallback>()) {
        json[keys::TYPE] = nsJsonTypes::LINEAR_EQUATION;
        json[keys::COEF] = linear->constant();
        json[keys::MULTIPLIERS] = toJson(linear->coefficients());
    } else {
        json[keys::TYPE] = nsJsonTypes::GENERIC_CALLBACK;
        json[keys::CALLBACK] = std::uint64_t{reinterpret_cast<std::uintptr_t>(&equation.callback())};
    }
    json[keys::DESCRIPTORS] = descriptorsOf(equation, Names::LeftOut);
    serializeEquation(equation, json);
}

LumoJson VrexObject3DSerializer::descriptorsOf(const VrexVariableDescriptorInterface& object,
                                               Names names) const {
    return toArray(object.descriptors(), [&](const VrexVariableDescriptor& descriptor) {
        LumoJson json;
        if (names == Names::Written) {
            json[keys::NAME] = descriptor.variableName();
        }
        serializeVariableDescriptor(descriptor, json);
        return json;
    });
}
