#include "data/VrexVariableLog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "data/VrexStandardTexts.h"

namespace {

using enum VrexLogOperationType;

struct OperationRow {
    VrexLogOperationType operation;
    const char* name;
    std::uint64_t priority;
};

// Kept: Hypot and Erfc have no row; a log that holds them is counted but not printed.
constexpr std::array OPERATIONS{
    OperationRow{Negate, "negate", 0},
    OperationRow{CompoundAdd, "+=", 6},
    OperationRow{CompoundSubtract, "-=", 6},
    OperationRow{CompoundMultiply, "*=", 6},
    OperationRow{CompoundDivide, "/=", 6},
    OperationRow{Add, "+", 5},
    OperationRow{Subtract, "-", 4},
    OperationRow{Multiply, "*", 3},
    OperationRow{Divide, "/", 2},
    OperationRow{Abs, "abs", 1},
    OperationRow{Sign, "sign", 1},
    OperationRow{Sqrt, "sqrt", 1},
    OperationRow{Exp, "exp", 1},
    OperationRow{Log, "log", 1},
    OperationRow{Pow, "pow", 1},
    OperationRow{Cos, "cos", 1},
    OperationRow{Sin, "sin", 1},
    OperationRow{Tan, "tan", 1},
    OperationRow{Acos, "acos", 1},
    OperationRow{Asin, "asin", 1},
    OperationRow{Atan, "atan", 1},
    OperationRow{Atan2, "atan2", 1},
    OperationRow{Cosh, "cosh", 1},
    OperationRow{Sinh, "sinh", 1},
    OperationRow{Tanh, "tanh", 1},
    OperationRow{Square, "square", 1},
    OperationRow{Hypot2, "hypot2", 1},
    OperationRow{Frac, "frac", 1},
    OperationRow{Trunc, "trunc", 1},
    OperationRow{Expm1, "expm1", 1},
    OperationRow{Log1p, "log1p", 1},
    OperationRow{Ceil, "ceil", 1},
    OperationRow{Floor, "floor", 1},
    OperationRow{Erf, "erf", 1},
    OperationRow{Fmod, "fmod", 1},
    OperationRow{Min, "min", 1},
    OperationRow{Max, "max", 1},
};

/// A text on the stack of the infix printer, with the priority of its outermost operation.
struct InfixItem {
    std::string text;
    std::uint64_t priority;
};

class InfixPrinter {
public:
    void operator()(const std::shared_ptr<VrexLogConstant>& constant) {
        m_stack.push_back({VrexVariableLog::formatNumber(constant->value), 0});
    }
    void operator()(const std::shared_ptr<VrexLogNamedVariable>& variable) {
        m_stack.push_back(
            {variable->name.empty() ? VrexVariableLog::formatNumber(variable->value) : variable->name, 0});
    }
    void operator()(const std::shared_ptr<VrexLogExpression>& expression) {
        m_stack.push_back({expression->infix, expression->priority});
    }
    void operator()(const std::shared_ptr<VrexLogOperation>& operation) {
        if (m_stack.empty()) {
            throw std::runtime_error("no operands before operator");
        }
        rewriteCompound(operation->operation);
        const char* name = VrexVariableLog::nameOf(operation->operation);
        const std::vector<InfixItem> operands = popOperands(operation->operandCount);
        if (operation->operation == Negate) {
            std::string text = "-(";
            text += operands.at(0).text;
            text += ")";
            m_stack.push_back({std::move(text), 0});
        } else if (operation->operation <= Divide) {
            pushArithmetic(name, operands, VrexVariableLog::priorityOf(operation->operation));
        } else {
            pushCall(name, operands);
        }
    }
    std::string result() const { return m_stack.empty() ? std::string() : m_stack.back().text; }

private:
    // Kept: the change stays in the log, where later texts see it.
    static void rewriteCompound(VrexLogOperationType& operation) {
        if (operation >= CompoundAdd && operation <= CompoundDivide) {
            operation = static_cast<VrexLogOperationType>(static_cast<std::uint32_t>(operation) + 4);
        }
    }
    std::vector<InfixItem> popOperands(std::uint32_t count) {
        if (m_stack.size() < count) {
            throw std::runtime_error("no operands before operator");
        }
        const auto first = m_stack.end() - count;
        std::vector<InfixItem> operands(std::make_move_iterator(first),
                                        std::make_move_iterator(m_stack.end()));
        m_stack.erase(first, m_stack.end());
        return operands;
    }
    static std::string wrapped(const InfixItem& operand, std::uint64_t priority) {
        if (operand.priority <= priority) {
            return operand.text;
        }
        std::string text = "(";
        text += operand.text;
        text += ")";
        return text;
    }
    void pushArithmetic(const char* name, const std::vector<InfixItem>& operands, std::uint64_t priority) {
        std::string text = wrapped(operands.at(0), priority);
        text += " ";
        text += name;
        text += " ";
        text += wrapped(operands.at(1), priority);
        m_stack.push_back({std::move(text), priority});
    }
    void pushCall(const char* name, const std::vector<InfixItem>& operands) {
        std::string text = name;
        text += "(";
        for (const InfixItem& operand : operands) {
            text += &operand == &operands.front() ? "" : ", ";
            text += operand.text;
        }
        text += ")";
        m_stack.push_back({std::move(text), 1});
    }

    std::vector<InfixItem> m_stack;
};

struct PrefixPrinter {
    std::string operator()(const std::shared_ptr<VrexLogConstant>& constant) const {
        return VrexVariableLog::formatNumber(constant->value);
    }
    std::string operator()(const std::shared_ptr<VrexLogNamedVariable>& variable) const {
        if (!variable->name.empty()) {
            return variable->name;
        }
        std::string text = "['',";
        text += VrexVariableLog::formatNumber(variable->value);
        text += "]";
        return text;
    }
    std::string operator()(const std::shared_ptr<VrexLogOperation>& operation) const {
        return VrexVariableLog::nameOf(operation->operation);
    }
    std::string operator()(const std::shared_ptr<VrexLogExpression>& expression) const {
        return expression->prefix;
    }
};

} // namespace

void VrexVariableLog::appendConstant(double value) {
    m_entries.emplace_back(std::make_shared<VrexLogConstant>(VrexLogConstant{value}));
}

void VrexVariableLog::appendNamedVariable(std::string name, double value) {
    m_entries.emplace_back(
        std::make_shared<VrexLogNamedVariable>(VrexLogNamedVariable{std::move(name), value}));
}

void VrexVariableLog::appendOperation(VrexLogOperationType operation, std::uint32_t operandCount) {
    m_entries.emplace_back(std::make_shared<VrexLogOperation>(VrexLogOperation{operation, operandCount}));
}

void VrexVariableLog::append(VrexLogEntry entry) { m_entries.push_back(std::move(entry)); }

void VrexVariableLog::collapse(const VrexVariableLog& source) {
    if (source.m_entries.size() < 2) {
        // By index: the source may be this log, whose entries move while it grows.
        for (std::size_t i = 0, count = source.m_entries.size(); i < count; ++i) {
            append(source.m_entries[i]);
        }
        return;
    }
    // In this order: the infix text rewrites compound operations, which the prefix text still shows by their
    // own names, and the priority is that of the rewritten operation, so that later texts agree with the
    // first.
    std::string prefix = source.toPrefix();
    std::string infix = source.toInfix();
    const auto& last = std::get<std::shared_ptr<VrexLogOperation>>(source.m_entries.back());
    const std::uint64_t priority = priorityOf(last->operation);
    append(std::make_shared<VrexLogExpression>(
        VrexLogExpression{std::move(infix), std::move(prefix), priority}));
}

void VrexVariableLog::reserveMore(std::size_t count) {
    const std::size_t needed = m_entries.size() + count;
    if (m_entries.capacity() < needed) {
        m_entries.reserve(std::max(needed, 2 * m_entries.capacity())); // in proportion, as appending grows
    }
}

void VrexVariableLog::appendAll(VrexVariableLog&& source) noexcept {
    std::ranges::move(source.m_entries, std::back_inserter(m_entries));
}

std::string VrexVariableLog::toPrefix() const {
    std::string text;
    for (const VrexLogEntry& entry : m_entries) {
        text += &entry == &m_entries.front() ? "" : ",";
        text += std::visit(PrefixPrinter(), entry);
    }
    return text;
}

std::string VrexVariableLog::toInfix() const {
    InfixPrinter printer;
    for (const VrexLogEntry& entry : m_entries) {
        std::visit(printer, entry);
    }
    return printer.result();
}

const char* VrexVariableLog::nameOf(VrexLogOperationType operation) {
    for (const OperationRow& row : OPERATIONS) {
        if (row.operation == operation) {
            return row.name;
        }
    }
    throw std::runtime_error("unexpected operation type");
}

std::uint64_t VrexVariableLog::priorityOf(VrexLogOperationType operation) {
    static const auto priorities = [] {
        std::unordered_map<VrexLogOperationType, std::uint64_t> table;
        for (const OperationRow& row : OPERATIONS) {
            table.emplace(row.operation, row.priority);
        }
        return table;
    }();
    const auto found = priorities.find(operation);
    if (found == priorities.end()) {
        throw std::out_of_range(nsStandardTexts::UNORDERED_MAP_KEY);
    }
    return found->second;
}

std::string VrexVariableLog::formatNumber(double number) {
    constexpr int DIGITS = 16; // what tells most doubles apart and still prints 0.1 as it was typed
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::general, DIGITS);
    return {buffer.data(), end.ptr};
}
