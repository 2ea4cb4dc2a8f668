#pragma once

#include "data/VrexExpr.h"

/// Hidden: evaluates small trees as they stand, which is the fastest for one evaluation.
class VrexExprWalk {
public:
    /// False, with the result open, for a tree that is deep, has choices, null operands, or operands (but
    /// leaves) that it holds more than once.
    [[nodiscard]] static bool evaluate(const VrexExpr& root, double& result) {
        return evaluate(root, result, DEEPEST);
    }

private:
    /// Levels of calls, which fit on the smallest stack.
    static constexpr int DEEPEST = 64;

    static bool evaluate(const VrexExpr& node, double& result, int levels);
    static bool evaluate(const std::shared_ptr<VrexExpr>& operand, double& result, int levels);
};
