#include "data/serialization/3d/VrexObject3DDeserializer.h"

#include <string>

#include "data/VrexVariableDescriptor.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexJsonReading.h"

namespace keys = nsJsonKeys;
using nsJsonReading::readArray;
using nsJsonReading::readNumber;

VrexObject3DDeserializer::VrexObject3DDeserializer(const LumoJson& root, VrexSystemDeserializer& system,
                                                   VrexIDGenerator& idGenerator,
                                                   const VrexSerializationParameters& parameters)
    : VrexBaseObjectDeserializer(root, system, idGenerator, parameters) {}

void VrexObject3DDeserializer::visitGeometryVariable(VrexGeometryVariable& variable) {
    const LumoJson& json = deserializeVariable(variable);
    variable.setValue(readNumber(json, keys::VAL));
}

void VrexObject3DDeserializer::visitExpressionEquation(VrexExpressionEquation& equation) {
    const LumoJson& json = deserializeEquation(equation);
    equation.setDescriptors(createDescriptors(readArray(json, keys::DESCRIPTORS)));
    // Kept: a text that is refused is stored all the same; the log tells.
    equation.setExpression(std::string(getString(json, keys::EXPRESSION)));
}

void VrexObject3DDeserializer::visitCallbackEquation(VrexCallbackEquation& equation) {
    const LumoJson& json = deserializeEquation(equation);
    equation.setDescriptors(createDescriptors(readArray(json, keys::DESCRIPTORS)));
}
