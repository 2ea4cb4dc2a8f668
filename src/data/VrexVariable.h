#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/VrexExport.h"
#include "data/VrexMiniMap.h"

class VrexVariableLog;
class VrexVariableLogging;

/// A double with its first derivatives by variable index and, on request, a record of how it was computed.
///
/// The derivatives are a sparse table; up to ten of them live inside the object, and arithmetic on them
/// allocates nothing. Operators stand in "data/VrexVariableOperators.h", mathematical functions in
/// "data/VrexVariableFunctions.h"; both are included here and found by argument-dependent look-up. Domain
/// errors are not checked: values and entries become infinite or NaN without a report. No locks: a variable
/// belongs to one thread at a time, and logging to one thread of the process.
class VREX_DATA_EXPORT VrexVariable {
public:
    using Derivatives = VrexMiniMap<std::uint64_t, double, 10>;

    VrexVariable() noexcept : m_value(0.0) {}
    /// A constant: no derivatives, no log. Implicit, so that formulas may mix both number types.
    VrexVariable(double value) noexcept : m_value(value) {} // NOLINT(google-explicit-constructor)
    /// A constant with room for as many derivatives as `like` has; logs under a temporary name
    /// ("tmp_var_", the number of the temporary, "[", the value, "]") when `like` logs.
    VrexVariable(double value, const VrexVariable& like);
    /// Derivative i is `derivatives[i]`, zeros included.
    VrexVariable(double value, const std::vector<double>& derivatives);
    /// Copies the log too; its entries are shared.
    VrexVariable(const VrexVariable& other) : m_value(other.m_value), m_derivatives(other.m_derivatives) {
        if (other.m_log != nullptr) [[unlikely]] {
            copyLog(other);
        }
    }
    /// Kept: only the log moves; the source keeps its value and derivatives.
    VrexVariable(VrexVariable&& other) noexcept(false)
        : m_value(other.m_value),
          m_derivatives(std::move(other.m_derivatives)),
          m_log(std::move(other.m_log)) {}
    // Always inline: two tests for null, of which an expression makes one pair for each of its temporaries.
    [[gnu::always_inline]] ~VrexVariable() {}
    /// Nothing has changed when it runs out of memory.
    VrexVariable& operator=(const VrexVariable& other) {
        if (m_log != nullptr || other.m_log != nullptr) [[unlikely]] {
            return assignWithLog(other);
        }
        m_derivatives = other.m_derivatives;
        m_value = other.m_value;
        return *this;
    }
    VrexVariable& operator=(VrexVariable&& other) noexcept(false) {
        m_derivatives = other.m_derivatives;
        m_value = other.m_value;
        if (this != &other) {
            m_log = std::move(other.m_log);
        }
        return *this;
    }

    [[nodiscard]] double value() const noexcept { return m_value; }
    /// Touches nothing but the value: derivatives and log stay, stale or not.
    void setValue(double value) noexcept { m_value = value; }
    [[nodiscard]] const Derivatives& derivatives() const noexcept { return m_derivatives; }
    [[nodiscard]] Derivatives& derivatives() noexcept { return m_derivatives; }

    /// In place. A key of the right side that this store lacks is appended. With a log on both sides the log
    /// of this variable grows; with a log on this side only it stays, and no longer describes the value.
    /// Nothing has changed when the right side's log cannot be printed or memory runs out.
    VrexVariable& operator+=(const VrexVariable& right);
    VrexVariable& operator-=(const VrexVariable& right);
    VrexVariable& operator*=(const VrexVariable& right);
    VrexVariable& operator/=(const VrexVariable& right);
    VrexVariable& operator+=(double right);
    VrexVariable& operator-=(double right);
    VrexVariable& operator*=(double right);
    VrexVariable& operator/=(double right);

    /// Starts a new log with this variable's present value under `name`; null is an empty name.
    void enableLog(const char* name);
    void disableLog() noexcept { m_log.reset(); }
    [[nodiscard]] bool hasLog() const noexcept { return m_log != nullptr; }
    /// Count of entries, 0 without a log.
    [[nodiscard]] std::size_t logSize() const noexcept;
    /// Kept: stores the flag and changes nothing; numbers are printed with 16 significant digits in both
    /// states.
    static void logUseMoreDigits(bool use) noexcept;
    /// Postfix text in brackets, such as "[x,2,*]"; empty without a log. Throws `std::runtime_error` for a
    /// log with `hypot` or `erfc`, which have no name there.
    [[nodiscard]] std::string convertLogToString() const;
    /// Infix text, such as "x * 2"; empty without a log. Rewrites compound operations in the log's shared
    /// entries to binary ones, which later texts show. Throws as `convertLogToString`.
    [[nodiscard]] std::string convertLogToStringInfix() const;

    /// Makes variable i independent: its derivative by index i becomes 1, other entries stay.
    static void initializeDerivatives(std::vector<VrexVariable>& vars);

private:
    friend class VrexVariableLogging;

    struct LogDeleter {
        VREX_DATA_EXPORT void operator()(VrexVariableLog* log) const noexcept;
    };

    void copyLog(const VrexVariable& other);
    VrexVariable& assignWithLog(const VrexVariable& other);
    void setLog(VrexVariableLog log);
    static void countTemporary() noexcept;
    /// Counts a temporary and starts a log under its name.
    void nameTemporary();

    static int m_tmpVariableCount; ///< Temporaries named so far in this process.
    static bool m_useMoreDigits;

    double m_value;
    Derivatives m_derivatives;
    std::unique_ptr<VrexVariableLog, LogDeleter> m_log; ///< Null while logging is off.
};

/// Comparisons look at the values alone, with the ordinary meaning for NaN.
[[nodiscard]] inline bool operator==(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() == b.value();
}
[[nodiscard]] inline bool operator!=(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() != b.value();
}
[[nodiscard]] inline bool operator<(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() < b.value();
}
[[nodiscard]] inline bool operator<=(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() <= b.value();
}
[[nodiscard]] inline bool operator>(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() > b.value();
}
[[nodiscard]] inline bool operator>=(const VrexVariable& a, const VrexVariable& b) noexcept {
    return a.value() >= b.value();
}

/// The values, one a line, between "[" and "]", in the stream's own format of doubles.
VREX_DATA_EXPORT std::ostream& operator<<(std::ostream& stream, const std::vector<VrexVariable>& variables);

#include "data/VrexVariableFunctions.h" // IWYU pragma: export
#include "data/VrexVariableOperators.h" // IWYU pragma: export
