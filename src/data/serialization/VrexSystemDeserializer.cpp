#include "data/serialization/VrexSystemDeserializer.h"

#include <stdexcept>

#include "data/3d/VrexTransformInterface.h"
#include "data/VrexLog.h"
#include "data/VrexStandardTexts.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/constraint/equation/VrexLinearEquationCallback.h"
#include "data/serialization/VrexJsonReading.h"
#include "data/serialization/VrexReplay.h"

namespace keys = nsJsonKeys;
using nsJsonReading::findArray;
using nsJsonReading::findEnum;
using nsJsonReading::readIndex;
using nsJsonReading::readNumber;
using nsJsonReading::readNumbers;
using nsJsonReading::readType;

namespace {

std::shared_ptr<VrexBaseEquation> createEquation(const LumoJson& json) {
    const auto condition = findEnum<VrexEquationConditionType>(json, keys::CONDITION_TYPE)
                               .value_or(VrexEquationConditionType::equalToZero);
    const std::string_view type = readType(json, "Equation must contain a type!");
    if (type == nsJsonTypes::EXPRESSION_EQUATION) {
        return VrexExpressionEquation::create(condition);
    }
    if (type == nsJsonTypes::LINEAR_EQUATION) {
        const double constant = readNumber(json, keys::COEF);
        return VrexCallbackEquation::create(
            condition, VrexLinearEquationCallback(readNumbers(json, keys::MULTIPLIERS), constant));
    }
    if (type == nsJsonTypes::GENERIC_CALLBACK) {
        VREX_RAISE(std::runtime_error, "Can not replay callback equation.");
    }
    VREX_RAISE(std::runtime_error, "Unknown value of the equation type.");
}

} // namespace

VrexSystemDeserializer::VrexSystemDeserializer(VrexIDGenerator& idGenerator,
                                               const VrexSerializationParameters& parameters)
    : m_parameters(parameters), m_idGenerator(idGenerator) {}

VrexSystemDeserializer::~VrexSystemDeserializer() = default;

void VrexSystemDeserializer::clear() {
    m_constraints.clear();
    m_equations.clear();
    m_geometries.clear();
    m_variables.clear();
    m_referenceGeometries.clear();
}

void VrexSystemDeserializer::createVariables(const LumoJson& root) {
    const LumoJson* const array = findArray(root, keys::VARIABLES);
    const std::size_t count = array == nullptr ? 0 : array->size();
    m_variables.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        m_variables.push_back(nsReplay::created(VrexGeometryVariable::create(0.0),
                                                "Failed to replay: variable was not created!"));
    }
}

void VrexSystemDeserializer::createEquations(const LumoJson& root) {
    const LumoJson* const array = findArray(root, keys::EQUATIONS);
    if (array == nullptr) {
        return;
    }
    m_equations.reserve(array->size());
    for (const LumoJson& json : *array) {
        m_equations.push_back(
            nsReplay::created(createEquation(json), "Failed to replay: equation was not created!"));
    }
}

void VrexSystemDeserializer::createTransform(VrexTransformInterface& transform, const Variables& variables,
                                             const LumoJson& json) {
    const LumoJson* const array = findArray(json, keys::DRAG_VARIABLES);
    if (array == nullptr) {
        return;
    }
    for (const LumoJson& record : *array) {
        const std::uint64_t index = readIndex(record, keys::OBJECT_ID);
        const double value = readNumber(record, keys::TARGET_VALUE);
        if (index >= variables.size()) {
            VREX_RAISE(std::out_of_range, nsStandardTexts::VECTOR_SUBSCRIPT);
        }
        transform.applyVariableTransform(variables[index], value);
    }
}
