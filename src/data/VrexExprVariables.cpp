#include "data/VrexExprVariables.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <new>

#include "data/VrexExprRules.h"

namespace {

using Code = VrexExprProgram::Code;
using Kind = VrexExprProgram::Kind;
using Op = VrexExpr::Op;

/// Makes a cell anew in its place, without a copy: what is made may have derivatives by the dozen. Nothing
/// that `make` reads may be the cell.
template <typename Make>
inline void construct(VrexVariable& cell, const Make& make) {
    std::destroy_at(&cell);
    try {
        ::new (&cell) VrexVariable(make());
    } catch (...) {
        ::new (&cell) VrexVariable();
        throw;
    }
}

/// One for each register that is no variable.
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
    m_operands.reserve(program.steps.size());
    for (const Step& step : program.steps) {
        m_operands.push_back(operandsOf(step));
    }
}

VrexExprVariables::Operands VrexExprVariables::operandsOf(const Step& step) const {
    const auto isConstant = [this](std::int32_t index) {
        return index >= 0 && m_program.fixed[static_cast<std::size_t>(index)].kind == Kind::Constant;
    };
    if (step.code >= Code::Move) {
        return Operands::Any;
    }
    if (isConstant(step.a)) {
        return Operands::LeftConstant;
    }
    return isConstant(step.b) ? Operands::RightConstant : Operands::Any;
}

const VrexVariable& VrexExprVariables::run() {
    if (m_program.hasConditions) {
        m_doubles.load();
    }
    m_calls.reset();
    const Step* const steps = m_program.steps.data();
    for (std::int32_t place = 0; place != m_program.mainEnd;) {
        const Step& step = steps[place];
        if (step.code < Code::Move) [[likely]] {
            compute(step, m_operands[static_cast<std::size_t>(place)]);
            ++place;
        } else {
            place = control(step, place);
        }
    }
    return *m_registers[m_program.result];
}

inline void VrexExprVariables::compute(const Step& step, Operands operands) {
    const VrexVariable& a = *m_registers[step.a];
    VrexVariable& target = *m_registers[step.target];
    // What is met most stands here, the rest in tables.
    switch (VrexExprProgram::opOf(step.code)) {
    case Op::Add:
        return combine(step, operands, std::plus<>());
    case Op::Sub:
        return combine(step, operands, std::minus<>());
    case Op::Mul:
        return combine(step, operands, std::multiplies<>());
    case Op::Div:
        return combine(step, operands, std::divides<>());
    case Op::Sqrt:
        return construct(target, [&] { return sqrt(a); });
    case Op::Cos:
        return construct(target, [&] { return cos(a); });
    case Op::Sin:
        return construct(target, [&] { return sin(a); });
    default:
        break;
    }
    const auto code = static_cast<std::size_t>(step.code);
    if (const auto rule = nsExprRules::UNARY_RULES<VrexVariable>[code]) {
        return construct(target, [&] { return rule(a); });
    }
    construct(target, [&] { return nsExprRules::BINARY_RULES<VrexVariable>[code](a, *m_registers[step.b]); });
}

template <typename Rule>
inline void VrexExprVariables::combine(const Step& step, Operands operands, Rule rule) {
    const VrexVariable& a = *m_registers[step.a];
    const VrexVariable& b = *m_registers[step.b];
    VrexVariable& target = *m_registers[step.target];
    if (operands == Operands::LeftConstant) {
        construct(target, [&] { return rule(a.value(), b); });
    } else if (operands == Operands::RightConstant && !a.derivatives().empty()) {
        // Without derivatives the left operand is the plain number, and its log is not looked at.
        construct(target, [&] { return rule(a, b.value()); });
    } else {
        construct(target, [&] { return rule(a, b); });
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
