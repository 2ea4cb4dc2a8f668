#include "data/serialization/VrexObjectEncoder.h"

#include <cstdint>
#include <optional>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexLog.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"
#include "data/serialization/VrexPackedBytes.h"

using nsPacked::number;
using nsPacked::pack;

namespace {

/// Of the plain function behind the callback, 0 for an empty one; nothing for any other callable.
std::optional<std::uint64_t> addressOf(const VrexCallbackEquation::Callback& callback) {
    const auto* const adapter = callback.target<VrexEquationCallback>();
    if (adapter == nullptr) {
        return std::nullopt;
    }
    if (!adapter->callback()) {
        return 0;
    }
    const auto* const function = adapter->callback().target<VrexEquationCallback::Function>();
    if (function == nullptr) {
        return std::nullopt;
    }
    return reinterpret_cast<std::uintptr_t>(*function);
}

} // namespace

VrexObjectEncoder::VrexObjectEncoder(VrexStreamEncoder* stream) : m_stream(stream) {}

VrexObjectEncoder::~VrexObjectEncoder() = default;

void VrexObjectEncoder::encodeVariable(const VrexGeometryVariable& variable) {
    encode([&] {
        return m_stream->writePacked([&] {
            return pack(number(variable.baseType()), variable.getValue());
        }) && writeCommonFields(variable);
    });
}

void VrexObjectEncoder::encodeCallbackEquation(const VrexCallbackEquation& equation) {
    const auto address = addressOf(equation.callback());
    if (!address) {
        VREX_LOG(nsLog::FAILURE, "The callback of equation %llu is no plain function and cannot be encoded.",
                 static_cast<unsigned long long>(equation.getID()));
        setDone(false);
        return;
    }
    encode([&] {
        return writeEquationHead(equation, true) && m_stream->writeU64(*address) &&
               writeCommonFields(equation);
    });
}

void VrexObjectEncoder::encodeExpressionEquation(const VrexExpressionEquation& equation) {
    encode([&] {
        return writeEquationHead(equation, false) && m_stream->writeString(equation.expression()) &&
               writeCommonFields(equation);
    });
}

bool VrexObjectEncoder::writeCommonFields(const VrexBaseGeometry& geometry) {
    return m_stream->writePacked([&] {
        return pack(geometry.getID(), number(geometry.status()), number(geometry.getChangeStatus()));
    }) && m_stream->writeString(geometry.label()) &&
           m_stream->writeBool(geometry.isDirty());
}

bool VrexObjectEncoder::writeCommonFields(const VrexBaseConstraint& constraint) {
    return m_stream->writePacked([&] {
        return pack(constraint.getID(), number(constraint.status()), number(constraint.satisfiedStatus()));
    }) && m_stream->writeString(constraint.label()) &&
           m_stream->writeBool(constraint.isDirty());
}

bool VrexObjectEncoder::writeEquationHead(const VrexBaseEquation& equation, bool isCallback) {
    return m_stream->writePacked([&] {
        return pack(number(equation.baseType()), isCallback, number(equation.conditionType()));
    }) && m_stream->writeDescriptorList(equation.descriptors());
}
