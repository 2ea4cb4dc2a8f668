#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "data/VrexLogOperationType.h"

struct VrexLogConstant {
    double value;
};

struct VrexLogNamedVariable {
    std::string name;
    double value;
};

struct VrexLogOperation {
    VrexLogOperationType operation;
    std::uint32_t operandCount;
};

/// A finished sub-expression by its texts.
struct VrexLogExpression {
    std::string infix;
    std::string prefix;
    std::uint64_t priority;
};

using VrexLogEntry = std::variant<std::shared_ptr<VrexLogConstant>, std::shared_ptr<VrexLogNamedVariable>,
                                  std::shared_ptr<VrexLogOperation>, std::shared_ptr<VrexLogExpression>>;

/// How a value was computed, in postfix order. A copy copies the sequence and shares the entries.
class VrexVariableLog {
public:
    void appendConstant(double value);
    void appendNamedVariable(std::string name, double value);
    void appendOperation(VrexLogOperationType operation, std::uint32_t operandCount);
    void append(VrexLogEntry entry);
    /// Appends `source` as one entry: as it stands when it has one, otherwise by its texts and the priority
    /// of its last entry. Throws `std::bad_variant_access` when that is no operation, and what the texts
    /// throw.
    void collapse(const VrexVariableLog& source);
    /// Makes room for `count` more entries, so that `appendAll` of as many does not throw.
    void reserveMore(std::size_t count);
    /// Appends the entries of `source`, for which there is room.
    void appendAll(VrexVariableLog&& source) noexcept;
    [[nodiscard]] std::size_t size() const noexcept { return m_entries.size(); }

    /// The entries in order, joined by ",", without brackets. Throws `std::runtime_error`
    /// "unexpected operation type" for an operation without a name.
    [[nodiscard]] std::string toPrefix() const;
    /// Kept: an operand of equal priority is not wrapped, on the right neither, so a - (b - c) reads a - b -
    /// c. Kept: compound operations are rewritten to binary ones in the shared entries. Throws as `toPrefix`,
    /// and "no operands before operator".
    [[nodiscard]] std::string toInfix() const;

    /// Throws `std::runtime_error` "unexpected operation type".
    static const char* nameOf(VrexLogOperationType operation);
    /// Lower binds tighter. Throws `std::out_of_range` "invalid unordered_map<K, T> key".
    static std::uint64_t priorityOf(VrexLogOperationType operation);
    /// 16 significant digits, whatever the locale.
    static std::string formatNumber(double number);

private:
    std::vector<VrexLogEntry> m_entries;
};
