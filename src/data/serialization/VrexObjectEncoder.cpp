#include "data/serialization/VrexObjectEncoder.h"

#include <cstdint>
#include <optional>

#include "data/VrexLog.h"
#include "data/constraint/equation/VrexCallbackEquation.h"
#include "data/constraint/equation/VrexEquationCallback.h"
#include "data/constraint/equation/VrexExpressionEquation.h"
#include "data/geometry/VrexGeometryVariable.h"

using nsPacked::number;

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

template <class Fields>
void putHead(Fields& fields, const VrexBaseEquation& equation, bool isCallback) {
    fields.values(number(equation.baseType()), isCallback, number(equation.conditionType()));
    fields.descriptors(equation.descriptors());
}

} // namespace

VrexObjectEncoder::VrexObjectEncoder(VrexStreamEncoder* stream) : m_stream(stream) {}

VrexObjectEncoder::~VrexObjectEncoder() = default;

void VrexObjectEncoder::encodeVariable(const VrexGeometryVariable& variable) {
    encode([&](auto& fields) {
        fields.values(number(variable.baseType()), variable.getValue());
        putCommon(fields, variable);
    });
}

void VrexObjectEncoder::encodeCallbackEquation(const VrexCallbackEquation& equation) {
    const auto address = addressOf(equation.callback());
    if (!address) {
        VREX_LOG(nsLog::FAILURE, "The callback of equation %llu is no plain function and cannot be encoded.",
                 static_cast<unsigned long long>(equation.getID()));
        return setDone(false);
    }
    encode([&](auto& fields) {
        putHead(fields, equation, true);
        fields.values(*address);
        putCommon(fields, equation);
    });
}

void VrexObjectEncoder::encodeExpressionEquation(const VrexExpressionEquation& equation) {
    encode([&](auto& fields) {
        putHead(fields, equation, false);
        fields.string(equation.expression());
        putCommon(fields, equation);
    });
}
