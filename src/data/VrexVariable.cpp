#include "data/VrexVariable.h"

#include <ostream>

#include "data/VrexVariableLog.h"

int VrexVariable::m_tmpVariableCount = 0;
bool VrexVariable::m_useMoreDigits = false;

void VrexVariable::LogDeleter::operator()(VrexVariableLog* log) const noexcept { delete log; }

VrexVariable::VrexVariable(double value, const VrexVariable& like) : m_value(value) {
    m_derivatives.reserve(like.m_derivatives.size());
    if (like.m_log != nullptr) {
        nameTemporary();
    }
}

VrexVariable::VrexVariable(double value, const std::vector<double>& derivatives) : m_value(value) {
    m_derivatives.reserve(derivatives.size());
    for (std::size_t i = 0; i < derivatives.size(); ++i) {
        m_derivatives.append(i, derivatives[i]);
    }
}

void VrexVariable::enableLog(const char* name) {
    VrexVariableLog log;
    log.appendNamedVariable(name != nullptr ? name : "", m_value);
    setLog(std::move(log));
}

std::size_t VrexVariable::logSize() const noexcept { return m_log != nullptr ? m_log->size() : 0; }

void VrexVariable::logUseMoreDigits(bool use) noexcept { m_useMoreDigits = use; }

std::string VrexVariable::convertLogToString() const {
    if (m_log == nullptr) {
        return {};
    }
    std::string text = "[";
    text += m_log->toPrefix();
    text += "]";
    return text;
}

std::string VrexVariable::convertLogToStringInfix() const {
    return m_log != nullptr ? m_log->toInfix() : std::string();
}

void VrexVariable::initializeDerivatives(std::vector<VrexVariable>& vars) {
    for (std::size_t i = 0; i < vars.size(); ++i) {
        vars[i].derivatives().set(i, 1.0);
    }
}

void VrexVariable::copyLog(const VrexVariable& other) { setLog(*other.m_log); }

VrexVariable& VrexVariable::assignWithLog(const VrexVariable& other) {
    if (this == &other) {
        return *this;
    }
    std::unique_ptr<VrexVariableLog, LogDeleter> log;
    if (other.m_log != nullptr) {
        log.reset(new VrexVariableLog(*other.m_log));
    }
    m_derivatives = other.m_derivatives;
    m_value = other.m_value;
    m_log = std::move(log);
    return *this;
}

void VrexVariable::setLog(VrexVariableLog log) { m_log.reset(new VrexVariableLog(std::move(log))); }

void VrexVariable::countTemporary() noexcept {
    // Through unsigned, because the count only grows and may pass the largest int.
    m_tmpVariableCount = static_cast<int>(static_cast<unsigned>(m_tmpVariableCount) + 1U);
}

void VrexVariable::nameTemporary() {
    countTemporary();
    std::string name = "tmp_var_";
    name += std::to_string(m_tmpVariableCount);
    name += "[";
    name += VrexVariableLog::formatNumber(m_value);
    name += "]";
    enableLog(name.c_str());
}

std::ostream& operator<<(std::ostream& stream, const std::vector<VrexVariable>& variables) {
    stream << "[\n";
    const char* separator = "";
    for (const VrexVariable& variable : variables) {
        stream << separator << variable.value();
        separator = ",\n";
    }
    return stream << "\n]";
}
