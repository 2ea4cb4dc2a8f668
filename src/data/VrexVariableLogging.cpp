#include "data/VrexVariableLogging.h"

#include <utility>

#include "data/VrexVariable.h"
#include "data/VrexVariableLog.h"

// A result's log is replaced only when the new one is complete, so that a failure to print leaves nothing
// half done.

namespace {

VrexVariableLog combined(const VrexVariableLog& a, const VrexVariableLog& b, VrexLogOperationType operation) {
    VrexVariableLog log;
    log.collapse(a);
    log.collapse(b);
    log.appendOperation(operation, 2);
    return log;
}

VrexVariableLog constantLog(double value) {
    VrexVariableLog log;
    log.appendConstant(value);
    return log;
}

} // namespace

void VrexVariableLogging::recordUnary(VrexVariable& result, const VrexVariable& a,
                                      VrexLogOperationType operation) {
    VrexVariable::countTemporary();
    VrexVariableLog log;
    log.collapse(*a.m_log);
    log.appendOperation(operation, 1);
    result.setLog(std::move(log));
}

void VrexVariableLogging::recordRightConstant(VrexVariable& result, const VrexVariable& a, double c,
                                              VrexLogOperationType operation) {
    VrexVariable::countTemporary();
    result.setLog(combined(*a.m_log, constantLog(c), operation));
}

void VrexVariableLogging::recordLeftConstant(VrexVariable& result, double c, const VrexVariable& a,
                                             VrexLogOperationType operation) {
    VrexVariable::countTemporary();
    result.setLog(combined(constantLog(c), *a.m_log, operation));
}

void VrexVariableLogging::recordRightFactor(VrexVariable& result, const VrexVariable& a, double c) {
    result.setLog(combined(*a.m_log, constantLog(c), VrexLogOperationType::Multiply));
}

void VrexVariableLogging::recordLeftFactor(VrexVariable& result, double c, const VrexVariable& a) {
    result.setLog(combined(constantLog(c), *a.m_log, VrexLogOperationType::Multiply));
}

void VrexVariableLogging::recordBinary(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                                       VrexLogOperationType operation) {
    result.nameTemporary();
    if (b.hasLog()) {
        recordChoice(result, a, b, operation);
    }
}

void VrexVariableLogging::recordChoice(VrexVariable& result, const VrexVariable& a, const VrexVariable& b,
                                       VrexLogOperationType operation) {
    result.setLog(combined(*a.m_log, *b.m_log, operation));
}

void VrexVariableLogging::recordCompound(VrexVariable& target, const VrexVariable& right,
                                         VrexLogOperationType operation) {
    if (right.hasLog()) {
        target.m_log->collapse(*right.m_log);
        target.m_log->appendOperation(operation, 2);
    }
}

void VrexVariableLogging::recordCompound(VrexVariable& target, double right, VrexLogOperationType operation) {
    target.m_log->appendConstant(right);
    target.m_log->appendOperation(operation, 2);
}
