#include "data/VrexExprCompiler.h"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "data/VrexExprOpTable.h"

namespace {

using Op = VrexExpr::Op;
using Kind = VrexExprProgram::Kind;

/// Registers that are searched for one that holds the same already: enough for what people write.
constexpr std::size_t LATEST = 8;

/// Steps, registers and levels for which there is room from the start.
constexpr std::size_t USUAL = 16;

bool isPassing(const VrexExpr& node, VrexExprCompiler::Reading reading) {
    return node.op == Op::Plus ||
           node.op == (reading == VrexExprCompiler::Reading::Value ? Op::Norm : Op::If);
}

bool isSame(const VrexExprProgram::Fixed& a, const VrexExprProgram::Fixed& b) {
    return a.kind == b.kind && a.variable == b.variable &&
           std::bit_cast<std::uint64_t>(a.constant) == std::bit_cast<std::uint64_t>(b.constant);
}

/// Whether a condition depends on the node's operands; the others are false.
bool isLogical(Op op) {
    switch (op) {
    case Op::Neg:
    case Op::Plus:
    case Op::Add:
    case Op::Sub:
    case Op::Mul:
    case Op::Div:
    case Op::Greater:
    case Op::Less:
    case Op::LessEqual:
    case Op::GreaterEqual:
    case Op::Equal:
    case Op::If:
    case Op::Drag:
        return true;
    default:
        return false;
    }
}

} // namespace

VrexExprProgram VrexExprCompiler::compile(const VrexExpr& root, Reading reading) {
    if (isSettled(root, reading)) {
        m_program.result = m_result;
        return std::move(m_program);
    }
    m_program.steps.reserve(USUAL);
    m_program.fixed.reserve(USUAL);
    m_frames.reserve(USUAL);
    compileNode(root, reading, temporary(0, false));
    m_program.result = m_result;
    m_program.mainEnd = emit(Code::End, 0, 0, 0);
    compileRoutines();
    return std::move(m_program);
}

void VrexExprCompiler::compileNode(const VrexExpr& node, Reading reading, std::int32_t target) {
    open(node, reading, m_firstFree, target);
    while (!m_frames.empty()) {
        advance(m_frames.back());
    }
}

void VrexExprCompiler::compileRoutines() {
    // A routine may run while any other is under way, so that none shares its temporaries.
    for (std::size_t i = 0; i < m_routines.size(); ++i) {
        const Routine routine = m_routines[i];
        m_program.routines.push_back(static_cast<std::int32_t>(m_program.steps.size()));
        m_firstFree = (m_program.temporaries + 1) / 2;
        compileNode(*routine.node, routine.reading, routine.target);
        moveTo(routine.target);
        emit(Code::Return, 0, 0, static_cast<std::int32_t>(i));
    }
}

bool VrexExprCompiler::isSettled(const VrexExpr& node, Reading reading) {
    if (reading == Reading::Condition) {
        if (!isLogical(node.op)) {
            m_result = constant(0.0);
            return true;
        }
        return false;
    }
    if (node.op == Op::Const) {
        m_result = constant(node.value);
        return true;
    }
    if (node.op == Op::Var && node.var != nullptr) {
        m_result = fixedRegister({Kind::Variable, node.var.get(), 0.0});
        return true;
    }
    if (nsExprOps::row(node.op).operands == 0 || node.op == Op::Reserved) {
        m_result = constant(0.0);
        return true;
    }
    if (m_known != nullptr) {
        if (const auto known = m_known->find(&node); known != m_known->end()) {
            m_result = constant(known->second);
            return true;
        }
    }
    return false;
}

void VrexExprCompiler::enter(const std::shared_ptr<VrexExpr>& operand, Reading reading, std::int32_t depth,
                             std::int32_t target) {
    const std::shared_ptr<VrexExpr>* node = &operand;
    while (*node != nullptr && node->use_count() == 1 && isPassing(**node, reading)) {
        node = &(*node)->left;
    }
    if (*node == nullptr) {
        m_result = constant(0.0);
    } else if (isSettled(**node, reading)) {
        return;
    } else if (node->use_count() > 1) {
        call(**node, reading);
    } else {
        open(**node, reading, depth, target);
    }
}

void VrexExprCompiler::enterOperand(const Frame& frame, const std::shared_ptr<VrexExpr>& operand,
                                    Reading reading, std::int32_t depth) {
    enter(operand, reading, depth, temporary(depth, frame.target == temporary(depth, false)));
}

void VrexExprCompiler::open(const VrexExpr& node, Reading reading, std::int32_t depth, std::int32_t target) {
    m_frames.push_back({&node, reading, 0, depth, target, 0});
}

void VrexExprCompiler::call(const VrexExpr& node, Reading reading) {
    auto& routineOf = m_routineOf[static_cast<std::size_t>(reading)];
    const auto [entry, isNew] = routineOf.emplace(&node, static_cast<std::int32_t>(m_routines.size()));
    if (isNew) {
        m_program.fixed.push_back({Kind::Result, nullptr, 0.0});
        m_routines.push_back({&node, reading, static_cast<std::int32_t>(m_program.fixed.size()) - 1});
    }
    emit(Code::Call, 0, 0, entry->second);
    m_result = m_routines[static_cast<std::size_t>(entry->second)].target;
}

void VrexExprCompiler::advance(Frame& frame) {
    if (isPassing(*frame.node, frame.reading)) {
        advancePassing(frame);
    } else if (frame.reading == Reading::Condition) {
        advanceCondition(frame);
    } else if (frame.node->op == Op::If) {
        advanceChoice(frame);
    } else if (nsExprOps::row(frame.node->op).operands == 1) {
        advanceUnary(frame, Reading::Value, VrexExprProgram::codeOf(frame.node->op));
    } else {
        advanceBinary(frame, Reading::Value, VrexExprProgram::codeOf(frame.node->op));
    }
}

void VrexExprCompiler::advanceCondition(Frame& frame) {
    // Kept: arithmetic reads as logic, and equality compares truth values.
    switch (frame.node->op) {
    case Op::Neg:
        return advanceUnary(frame, Reading::Condition, Code::Not);
    case Op::Add:
        return advanceShortCircuit(frame, Code::JumpIf, false);
    case Op::Mul:
        return advanceShortCircuit(frame, Code::JumpUnless, false);
    case Op::Div:
        return advanceShortCircuit(frame, Code::JumpUnless, true);
    case Op::Sub:
        return advanceBinary(frame, Reading::Condition, Code::IsUnlike);
    case Op::Greater:
        return advanceBinary(frame, Reading::Value, Code::IsGreater);
    case Op::Less:
        return advanceBinary(frame, Reading::Value, Code::IsLess);
    case Op::LessEqual:
        return advanceBinary(frame, Reading::Value, Code::IsLessEqual);
    case Op::GreaterEqual:
        return advanceBinary(frame, Reading::Value, Code::IsGreaterEqual);
    default:
        return advanceBinary(frame, Reading::Condition, Code::IsAlike);
    }
}

void VrexExprCompiler::advancePassing(Frame& frame) {
    if (frame.stage++ == 0) {
        enter(frame.node->left, frame.reading, frame.depth, frame.target);
    } else {
        close(m_result);
    }
}

void VrexExprCompiler::advanceUnary(Frame& frame, Reading operands, Code code) {
    if (frame.stage++ == 0) {
        enterOperand(frame, frame.node->left, operands, frame.depth);
    } else {
        emit(code, frame.target, m_result, 0);
        close(frame.target);
    }
}

void VrexExprCompiler::advanceBinary(Frame& frame, Reading operands, Code code) {
    switch (frame.stage++) {
    case 0:
        enterOperand(frame, frame.node->left, operands, frame.depth);
        break;
    case 1:
        frame.first = m_result;
        enterOperand(frame, frame.node->right, operands, frame.first < 0 ? frame.depth + 1 : frame.depth);
        break;
    default:
        emit(code, frame.target, frame.first, m_result);
        close(frame.target);
    }
}

void VrexExprCompiler::advanceChoice(Frame& frame) {
    switch (frame.stage++) {
    case 0:
        m_program.hasConditions = true;
        frame.first = emit(Code::Condition, 0, 0, 0);
        enterOperand(frame, frame.node->left, Reading::Condition, frame.depth);
        break;
    case 1:
        aimHere(frame.first);
        frame.first = emit(Code::JumpUnless, 0, m_result, 0);
        enter(frame.node->right, Reading::Value, frame.depth, frame.target);
        break;
    case 2: {
        moveTo(frame.target);
        const std::int32_t toElse = std::exchange(frame.first, emit(Code::Jump, 0, 0, 0));
        aimHere(toElse);
        enter(frame.node->third, Reading::Value, frame.depth, frame.target);
        break;
    }
    default:
        moveTo(frame.target);
        aimHere(frame.first);
        close(frame.target);
    }
}

void VrexExprCompiler::advanceShortCircuit(Frame& frame, Code jump, bool isSecondNegated) {
    switch (frame.stage++) {
    case 0:
        enter(frame.node->left, Reading::Condition, frame.depth, frame.target);
        break;
    case 1:
        moveTo(frame.target);
        frame.first = emit(jump, 0, frame.target, 0);
        enter(frame.node->right, Reading::Condition, frame.depth, frame.target);
        break;
    default:
        if (isSecondNegated) {
            emit(Code::Not, frame.target, m_result, 0);
        } else {
            moveTo(frame.target);
        }
        aimHere(frame.first);
        close(frame.target);
    }
}

void VrexExprCompiler::close(std::int32_t result) {
    m_result = result;
    m_frames.pop_back();
}

void VrexExprCompiler::moveTo(std::int32_t target) {
    if (m_result != target) {
        emit(Code::Move, target, m_result, 0);
    }
}

std::int32_t VrexExprCompiler::emit(Code code, std::int32_t target, std::int32_t a, std::int32_t b) {
    m_program.steps.push_back({code, target, a, b});
    return static_cast<std::int32_t>(m_program.steps.size()) - 1;
}

void VrexExprCompiler::aimHere(std::int32_t step) {
    m_program.steps[static_cast<std::size_t>(step)].b = static_cast<std::int32_t>(m_program.steps.size());
}

std::int32_t VrexExprCompiler::temporary(std::int32_t depth, bool isSecond) {
    const std::int32_t index = 2 * depth + (isSecond ? 1 : 0);
    m_program.temporaries = std::max(m_program.temporaries, index + 1);
    return -1 - index;
}

std::int32_t VrexExprCompiler::fixedRegister(const VrexExprProgram::Fixed& fixed) {
    const std::size_t count = m_program.fixed.size();
    for (std::size_t i = count; i > 0 && i + LATEST > count; --i) {
        if (isSame(m_program.fixed[i - 1], fixed)) {
            return static_cast<std::int32_t>(i) - 1;
        }
    }
    m_program.fixed.push_back(fixed);
    return static_cast<std::int32_t>(count);
}

std::int32_t VrexExprCompiler::constant(double value) {
    return fixedRegister({Kind::Constant, nullptr, value});
}
