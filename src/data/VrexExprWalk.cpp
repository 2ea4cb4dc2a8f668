#include "data/VrexExprWalk.h"

#include <cstddef>

#include "data/VrexExprOpTable.h"
#include "data/VrexExprRules.h"

using Op = VrexExpr::Op;

bool VrexExprWalk::evaluate(const std::shared_ptr<VrexExpr>& operand, double& result, int levels) {
    if (operand == nullptr) {
        return false;
    }
    const bool isLeaf = operand->op == Op::Const || operand->op == Op::Var;
    return (isLeaf || operand.use_count() == 1) && evaluate(*operand, result, levels);
}

bool VrexExprWalk::evaluate(const VrexExpr& node, double& result, int levels) {
    switch (node.op) {
    case Op::Const:
        result = node.value;
        return true;
    case Op::Var:
        result = node.var != nullptr ? node.var->value() : 0.0;
        return true;
    case Op::Plus:
    case Op::Norm:
        return levels > 0 && evaluate(node.left, result, levels - 1);
    default:
        break;
    }
    const auto code = static_cast<std::size_t>(node.op);
    double left = 0.0;
    if (levels == 0 || code >= nsExprOps::ROWS.size() || !evaluate(node.left, left, levels - 1)) {
        return false;
    }
    if (const auto rule = nsExprRules::UNARY_RULES<double>[code]) {
        result = rule(left);
        return true;
    }
    const auto rule = nsExprRules::BINARY_RULES<double>[code];
    double right = 0.0;
    if (rule == nullptr || !evaluate(node.right, right, levels - 1)) {
        return false;
    }
    result = rule(left, right);
    return true;
}
