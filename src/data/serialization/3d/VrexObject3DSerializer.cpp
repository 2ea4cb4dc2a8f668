#include "data/serialization/3d/VrexObject3DSerializer.h"

#include <cstdint>

#include "data/VrexVariableDescriptor.h"
#include "data/VrexVariableDescriptorInterface.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexJsonLines.h"
#include "data/serialization/VrexJsonObject.h"

namespace keys = nsJsonKeys;

VrexObject3DSerializer::VrexObject3DSerializer(const VrexSerializationParameters& parameters,
                                               VrexJsonLines& lines)
    : VrexBaseObjectSerializer(parameters, lines) {}

VrexObject3DSerializer::~VrexObject3DSerializer() = default;

void VrexObject3DSerializer::visitGeometryVariable(VrexGeometryVariable& variable) {
    VrexJsonObject json(lines().nextLine(VrexJsonLines::VARIABLES),
                        [&](VrexJsonObject& start) { start.put(keys::VAL, variable.getValue()); });
    serializeVariable(variable, json);
}

void VrexObject3DSerializer::visitExpressionEquation(VrexExpressionEquation& equation) {
    VrexJsonObject json(lines().nextLine(VrexJsonLines::EQUATIONS), [&](VrexJsonObject& start) {
        start.put(keys::TYPE, nsJsonTypes::EXPRESSION_EQUATION);
        start.put(keys::EXPRESSION, equation.expression());
        putDescriptors(equation, Names::Written, start);
    });
    serializeEquation(equation, json);
}

void VrexObject3DSerializer::visitCallbackEquation(VrexCallbackEquation& equation) {
    VrexJsonObject json(lines().nextLine(VrexJsonLines::EQUATIONS), [&](VrexJsonObject& start) {
        if (const auto* const linear = equation.callback().target<VrexLinearEquationCallback>()) {
            start.put(keys::TYPE, nsJsonTypes::LINEAR_EQUATION);
            start.put(keys::COEF, linear->constant());
            start.put(keys::MULTIPLIERS, linear->coefficients());
        } else {
            start.put(keys::TYPE, nsJsonTypes::GENERIC_CALLBACK);
            start.put(keys::CALLBACK, reinterpret_cast<std::uintptr_t>(&equation.callback()));
        }
        putDescriptors(equation, Names::LeftOut, start);
    });
    serializeEquation(equation, json);
}

void VrexObject3DSerializer::putDescriptors(const VrexVariableDescriptorInterface& object, Names names,
                                            VrexJsonObject& json) const {
    json.putObjects(keys::DESCRIPTORS, object.descriptors(),
                    [&](const VrexVariableDescriptor& descriptor, VrexJsonObject& entry) {
                        if (names == Names::Written) {
                            entry.put(keys::NAME, descriptor.variableName());
                        }
                        serializeVariableDescriptor(descriptor, entry);
                    });
}
