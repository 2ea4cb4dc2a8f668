#pragma once

#include <cstdint>
#include <vector>

#include "data/VrexExpr.h"

/// Hidden: an expression tree as a list of steps between numbered registers.
///
/// Registers from 0 on are fixed: constants, variables, and the results of nodes that the tree holds more
/// than once. Registers below 0 hold what is on its way. A shared node is a routine behind the main steps:
/// it is worked out where it is first called, and not at all on a branch that is not taken.
struct VrexExprProgram {
    /// Codes below `Move` are those of nodes and make values. Conditions are worked out in doubles whatever
    /// the scalar: 0 is false, 1 is true.
    enum class Code : std::int32_t {
        Move = 64,  ///< target = a
        Jump,       ///< On to step b.
        JumpIf,     ///< On to step b if a is true.
        JumpUnless, ///< On to step b if a is false.
        Condition,  ///< The steps to b are a condition, and step b is a `JumpUnless` that tests it.
        Call,       ///< Runs routine b, unless its result is there already.
        Return,     ///< Ends routine b.
        End,        ///< Stands between the main steps and the routines; never run.
        Not,        ///< target = not a
        IsUnlike,   ///< target = one of a, b is true
        IsAlike,    ///< target = both or none of a, b are true
        IsGreater,  ///< target = a > b, and so on
        IsLess,
        IsLessEqual,
        IsGreaterEqual,
    };
    /// The target of a value is never one of its operands.
    struct Step {
        Code code;
        std::int32_t target;
        std::int32_t a;
        std::int32_t b;
    };

    enum class Kind : std::uint8_t { Constant, Variable, Result };
    /// What a fixed register holds at first.
    struct Fixed {
        Kind kind;
        VrexVar* variable;
        double constant;
    };

    static constexpr Code codeOf(VrexExpr::Op op) { return static_cast<Code>(op); }
    static constexpr VrexExpr::Op opOf(Code code) { return static_cast<VrexExpr::Op>(code); }

    std::vector<Step> steps;
    std::int32_t mainEnd = 0;           ///< The `End`; 0 where there is nothing to run.
    std::int32_t result = 0;            ///< Register of the result.
    std::int32_t temporaries = 0;       ///< Count of registers below 0.
    std::vector<Fixed> fixed;           ///< Registers from 0 on.
    std::vector<std::int32_t> routines; ///< First step of each.
    bool hasConditions = false;
};
