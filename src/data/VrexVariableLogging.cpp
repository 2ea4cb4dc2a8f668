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

/// A variable has no log while this lives.
template <typename Pointer>
class SuspendedLog {
public:
    explicit SuspendedLog(Pointer& log) : m_place(log), m_log(std::move(log)) {}
    SuspendedLog(const SuspendedLog&) = delete;
    SuspendedLog& operator=(const SuspendedLog&) = delete;
    ~SuspendedLog() { m_place = std::move(m_log); }

private:
    Pointer& m_place;
    Pointer m_log;
};

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

void VrexVariableLogging::recordCompound(VrexVariable& target, double right, VrexLogOperationType operation) {
    VrexVariableLog more = constantLog(right);
    more.appendOperation(operation, 2);
    target.m_log->reserveMore(more.size());
    target.m_log->appendAll(std::move(more));
}

void VrexVariableLogging::applyCompound(VrexVariable& target, const VrexVariable& right,
                                        VrexLogOperationType operation,
                                        VrexVariable& (VrexVariable::*apply)(const VrexVariable&)) {
    VrexVariableLog more;
    if (right.hasLog()) {
        more.collapse(*right.m_log);
        more.appendOperation(operation, 2);
        target.m_log->reserveMore(more.size());
    }
    {
        const SuspendedLog suspended(target.m_log);
        (target.*apply)(right);
    }
    target.m_log->appendAll(std::move(more));
}
