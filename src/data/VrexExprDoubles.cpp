#include "data/VrexExprDoubles.h"

#include <cmath>
#include <cstddef>

#include "data/VrexExprRules.h"

namespace {

using Code = VrexExprProgram::Code;
using Op = VrexExpr::Op;

double truth(bool isTrue) { return isTrue ? 1.0 : 0.0; }

} // namespace

VrexExprDoubles::VrexExprDoubles(const VrexExprProgram& program)
    : m_program(program),
      m_values(static_cast<std::size_t>(program.temporaries) + program.fixed.size()),
      m_registers(m_values.data() + program.temporaries),
      m_calls(program) {
    std::int32_t target = 0;
    for (const VrexExprProgram::Fixed& fixed : program.fixed) {
        if (fixed.kind == VrexExprProgram::Kind::Variable) {
            m_loads.push_back({target, fixed.variable});
        }
        m_registers[target++] = fixed.constant;
    }
}

void VrexExprDoubles::load() {
    for (const Load& load : m_loads) {
        m_registers[load.target] = load.variable->value();
    }
    m_calls.reset();
}

void VrexExprDoubles::run(std::int32_t begin, std::int32_t end) {
    const Step* const steps = m_program.steps.data();
    double* const registers = m_registers;
    for (std::int32_t place = begin; place != end; ++place) {
        const Step& step = steps[place];
        const double a = registers[step.a];
        double& target = registers[step.target];
        // What is met most stands here, the rest in tables.
        switch (VrexExprProgram::opOf(step.code)) {
        case Op::Add:
            target = a + registers[step.b];
            break;
        case Op::Sub:
            target = a - registers[step.b];
            break;
        case Op::Mul:
            target = a * registers[step.b];
            break;
        case Op::Div:
            target = nsExprRules::quotient(a, registers[step.b]);
            break;
        case Op::Neg:
            target = -a;
            break;
        case Op::Sqr:
            target = a * a;
            break;
        case Op::Sqrt:
            target = std::sqrt(a);
            break;
        case Op::Cos:
            target = std::cos(a);
            break;
        case Op::Sin:
            target = std::sin(a);
            break;
        default:
            place = step.code < Code::Move ? compute(step, place) : control(step, place) - 1;
        }
    }
}

std::int32_t VrexExprDoubles::compute(const Step& step, std::int32_t place) {
    const auto code = static_cast<std::size_t>(step.code);
    const double a = m_registers[step.a];
    const auto rule = nsExprRules::UNARY_RULES<double>[code];
    m_registers[step.target] =
        rule != nullptr ? rule(a) : nsExprRules::BINARY_RULES<double>[code](a, m_registers[step.b]);
    return place;
}

std::int32_t VrexExprDoubles::control(const Step& step, std::int32_t place) {
    const auto compared = [&](bool isTrue) {
        m_registers[step.target] = truth(isTrue);
        return place + 1;
    };
    const double a = m_registers[step.a];
    const auto b = [&] { return m_registers[step.b]; };
    switch (step.code) {
    case Code::Move:
        m_registers[step.target] = a;
        return place + 1;
    case Code::Jump:
        return step.b;
    case Code::JumpIf:
        return a != 0.0 ? step.b : place + 1;
    case Code::JumpUnless:
        return a == 0.0 ? step.b : place + 1;
    case Code::Call:
        return m_calls.call(step.b, place);
    case Code::Return:
        return m_calls.finish(step.b);
    case Code::Not:
        return compared(a == 0.0);
    case Code::IsUnlike:
        return compared(a != b());
    case Code::IsAlike:
        return compared(a == b());
    case Code::IsGreater:
        return compared(a > b());
    case Code::IsLess:
        return compared(a < b());
    case Code::IsLessEqual:
        return compared(a <= b());
    case Code::IsGreaterEqual:
        return compared(a >= b());
    default:
        return place + 1;
    }
}
