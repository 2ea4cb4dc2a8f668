#include "data/serialization/VrexObjectDecoder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexLog.h"
#include "data/VrexVariableDescriptor.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexStreamDecoder.h"
#include "data/serialization/VrexStreamReading.h"

namespace {

using Descriptors = std::vector<VrexVariableDescriptor>;
using Function = VrexEquationCallback::Function;

/// The two statuses are kept as they come.
template <class Object, class First, class Second>
bool readCommonFields(VrexStreamDecoder& stream, Object& object, First& first, Second& second) {
    std::uint64_t id = 0;
    bool isDirty = false;
    if (!stream.readPacked(id, first, second) || !stream.readString(object.label()) ||
        !stream.readBool(isDirty)) {
        return false;
    }
    object.setID(id);
    object.setDirty(isDirty);
    return true;
}

std::shared_ptr<VrexBaseEquation> readCallbackEquation(VrexStreamDecoder& stream,
                                                       VrexEquationConditionType condition) {
    static_assert(sizeof(Function) == sizeof(std::uint64_t));
    Descriptors descriptors;
    std::uint64_t address = 0;
    if (!stream.areCallbacksAllowed() || !stream.readDescriptorList(descriptors) ||
        !stream.readU64(address)) {
        return nullptr;
    }
    return VrexCallbackEquation::create(std::move(descriptors), condition,
                                        VrexEquationCallback(reinterpret_cast<Function>(address)));
}

/// Kept: a text that is refused comes along all the same, as the equation it was read from had it.
std::shared_ptr<VrexBaseEquation> readExpressionEquation(VrexStreamDecoder& stream,
                                                         VrexEquationConditionType condition) {
    Descriptors descriptors;
    std::string text;
    if (!stream.readDescriptorList(descriptors) || !stream.readString(text)) {
        return nullptr;
    }
    auto equation = VrexExpressionEquation::create(condition);
    equation->setDescriptors(std::move(descriptors));
    if (!text.empty()) {
        equation->setExpression(text);
    }
    return equation;
}

} // namespace

VrexObjectDecoder::~VrexObjectDecoder() = default;

std::shared_ptr<VrexBaseObject> VrexObjectDecoder::decode() {
    std::uint32_t kind = 0;
    if (!m_stream->readU32(kind)) {
        return nullptr;
    }
    switch (static_cast<VrexObjectType>(kind)) {
    case VrexObjectType::Constraint:
        return decodeConstraint();
    case VrexObjectType::Equation:
        return decodeEquation();
    case VrexObjectType::Geometry:
        return decodeGeometry();
    case VrexObjectType::Variable:
        return decodeVariable();
    }
    nsLog::writeFailure(VREX_HERE, __PRETTY_FUNCTION__, std::bad_optional_access().what());
    throw std::bad_optional_access();
}

std::shared_ptr<VrexBaseObject> VrexObjectDecoder::decodeEquation() {
    bool isCallback = false;
    VrexEquationConditionType condition{};
    if (!stream().readBool(isCallback) || !nsStreamReading::readKnown(stream(), condition)) {
        return nullptr;
    }
    const auto read = isCallback ? readCallbackEquation : readExpressionEquation;
    auto equation = read(stream(), condition);
    if (equation == nullptr || !readCommon(*equation) || !stream().isAtEnd()) {
        return nullptr;
    }
    stream().enterConstraint(equation);
    return equation;
}

std::shared_ptr<VrexBaseObject> VrexObjectDecoder::decodeVariable() {
    double value = 0.0;
    if (!stream().readF64(value)) {
        return nullptr;
    }
    auto variable = VrexGeometryVariable::create(value);
    if (!readCommon(*variable) || !stream().isAtEnd()) {
        return nullptr;
    }
    stream().enterGeometry(variable, nullptr);
    return variable;
}

bool VrexObjectDecoder::readCommon(VrexBaseGeometry& geometry) {
    VrexGeometryChangeStatus changeStatus{};
    if (!readCommonFields(stream(), geometry, geometry.status(), changeStatus)) {
        return false;
    }
    geometry.setChangeStatus(changeStatus);
    return true;
}

bool VrexObjectDecoder::readCommon(VrexBaseConstraint& constraint) {
    return readCommonFields(stream(), constraint, constraint.status(), constraint.satisfiedStatus());
}
