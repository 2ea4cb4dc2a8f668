#include "data/VrexExprSteps.h"

#include "data/VrexExprDoubles.h"
#include "data/VrexExprVariables.h"
#include "data/VrexExprWalk.h"

VrexExprSteps::VrexExprSteps(const VrexExpr& root, Reading reading)
    : m_program(VrexExprCompiler().compile(root, reading)) {}

VrexExprSteps::VrexExprSteps(const VrexExpr& root, const VrexExprCompiler::Known& known)
    : m_program(VrexExprCompiler(known).compile(root, Reading::Value)) {}

VrexExprSteps::~VrexExprSteps() = default;

VrexExprDoubles& VrexExprSteps::doubles() {
    if (m_doubles == nullptr) {
        m_doubles = std::make_unique<VrexExprDoubles>(m_program);
    }
    return *m_doubles;
}

double VrexExprSteps::eval() {
    VrexExprDoubles& registers = doubles();
    return registers.run();
}

VrexVariable VrexExprSteps::evalVar() {
    if (m_variables == nullptr) {
        m_variables = std::make_unique<VrexExprVariables>(m_program, doubles());
    }
    return m_variables->run();
}

double VrexExpr::eval() const {
    double result = 0.0;
    return VrexExprWalk::evaluate(*this, result) ? result : VrexExprSteps(*this).eval();
}

VrexVariable VrexExpr::evalVar() const { return VrexExprSteps(*this).evalVar(); }

bool VrexExpr::evalBool() const {
    return VrexExprSteps(*this, VrexExprSteps::Reading::Condition).eval() != 0.0;
}
