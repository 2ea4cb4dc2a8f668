#include "data/VrexExprVariables.h"

#include <cstddef>

#include "data/VrexExprRules.h"

namespace {

using Code = VrexExprProgram::Code;
using Kind = VrexExprProgram::Kind;
using Op = VrexExpr::Op;

std::size_t countCells(const VrexExprProgram& program) {
    auto count = static_cast<std::size_t>(program.temporaries);
    for (const VrexExprProgram::Fixed& fixed : program.fixed) {
        count += fixed.kind == Kind::Variable ? 0 : 1;
    }
    return count;
}

} // namespace

VrexExprVariables::VrexExprVariables(const VrexExprProgram& program, VrexExprDoubles& doubles)
    : m_program(program), m_doubles(doubles), m_cells(countCells(program)), m_calls(program) {
    VrexVariable* cell = m_cells.data();
    for (std::int32_t i = 0; i < program.temporaries; ++i) {
        m_addresses.push_back(cell++);
    }
    for (const VrexExprProgram::Fixed& fixed : program.fixed) {
        if (fixed.kind != Kind::Variable) {
            cell->setValue(fixed.constant);
        }
        m_addresses.push_back(fixed.kind == Kind::Variable ? fixed.variable : cell++);
    }
    m_registers = m_addresses.data() + program.temporaries;
}

const VrexVariable& VrexExprVariables::run() {
    if (m_program.hasConditions) {
        m_doubles.load();
    }
    m_calls.reset();
    for (std::int32_t place = 0; place != m_program.mainEnd;) {
        const Step& step = m_program.steps[static_cast<std::size_t>(place)];
        if (step.code < Code::Move) {
            compute(step);
            ++place;
        } else {
            place = control(step, place);
        }
    }
    return *m_registers[m_program.result];
}

void VrexExprVariables::compute(const Step& step) {
    const VrexVariable& a = *m_registers[step.a];
    VrexVariable& target = *m_registers[step.target];
    switch (VrexExprProgram::opOf(step.code)) {
    case Op::Add:
        target = a + *m_registers[step.b];
        break;
    case Op::Sub:
        target = a - *m_registers[step.b];
        break;
    case Op::Mul:
        target = a * *m_registers[step.b];
        break;
    case Op::Div:
        target = a / *m_registers[step.b];
        break;
    default: {
        const auto code = static_cast<std::size_t>(step.code);
        const auto rule = nsExprRules::UNARY_RULES<VrexVariable>[code];
        target = rule != nullptr ? rule(a)
                                 : nsExprRules::BINARY_RULES<VrexVariable>[code](a, *m_registers[step.b]);
    }
    }
}

std::int32_t VrexExprVariables::control(const Step& step, std::int32_t place) {
    switch (step.code) {
    case Code::Move:
        *m_registers[step.target] = *m_registers[step.a];
        return place + 1;
    case Code::Jump:
        return step.b;
    case Code::Condition:
        return choose(step, place);
    case Code::Call:
        return m_calls.call(step.b, place);
    case Code::Return:
        return m_calls.finish(step.b);
    default:
        return place + 1;
    }
}

std::int32_t VrexExprVariables::choose(const Step& step, std::int32_t place) {
    m_doubles.run(place + 1, step.b);
    const Step& jump = m_program.steps[static_cast<std::size_t>(step.b)];
    return m_doubles.at(jump.a) == 0.0 ? jump.b : step.b + 1;
}
