#include <cmath>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/VrexExpr.h"
#include "data/VrexExprOpTable.h"
#include "data/VrexExprRules.h"
#include "data/VrexExprSteps.h"

namespace {

using Expr = std::shared_ptr<VrexExpr>;
using Op = VrexExpr::Op;

// The derivative of a node from those of its operands: l, r are the operands, dl, dr their derivatives.

Expr two() { return VrexExpr::two(); }
Expr one() { return VrexExpr::one(); }

/// (dl * r - l * dr), of quotients and angles.
Expr cross(const Expr& l, const Expr& r, const Expr& dl, const Expr& dr) { return dl * r - l * dr; }

Expr hypotDerivative(const Expr& l, const Expr& r, const Expr& dl, const Expr& dr) {
    return (l * dl) / sqrt(sqr(l) + sqr(r)) + (r * dr) / sqrt(sqr(l) + sqr(r));
}

/// Kept: the exact integrand of the Fresnel integral, of which the value is an approximation.
Expr fresnelAngle(const Expr& l) { return (expr(nsExprOps::PI.value) * sqr(l)) / two(); }

Expr unaryDerivative(Op op, const Expr& l, const Expr& dl) {
    switch (op) {
    case Op::Neg:
        return -dl;
    case Op::Plus:
        return dl;
    case Op::Sqr:
        return two() * (dl * l);
    case Op::Sqrt:
        return dl / (two() * sqrt(l));
    case Op::Abs:
        return sign(l) * dl;
    case Op::Cos:
        return (-sin(l)) * dl;
    case Op::Sin:
        return cos(l) * dl;
    case Op::Acos:
        return (VrexExpr::mOne() * dl) / sqrt(one() - sqr(l));
    case Op::Asin:
        return dl / sqrt(one() - sqr(l));
    case Op::Cosh:
        return sinh(l) * dl;
    case Op::Sinh:
        return cosh(l) * dl;
    case Op::Exp:
    case Op::Expm1:
        return exp(l) * dl;
    case Op::Sfres:
        return sin(fresnelAngle(l)) * dl;
    case Op::Cfres:
        return cos(fresnelAngle(l)) * dl;
    // Kept: the value is that of the operand, but the derivative has a factor, 0 where the operand is 0.
    case Op::Norm:
        return sign(abs(l)) * dl;
    case Op::Tanh:
        return dl / sqr(cosh(l));
    case Op::Tan:
        return dl / sqr(cos(l));
    case Op::Atan:
        return dl / (sqr(l) + one());
    case Op::Log:
        return dl / l;
    case Op::Log10:
        return dl / (expr(std::log(10.0)) * l);
    case Op::Log1p:
        return dl / (one() + l);
    default:
        return nullptr;
    }
}

Expr binaryDerivative(const VrexExpr& node, const Expr& dl, const Expr& dr) {
    const Expr& l = node.left;
    const Expr& r = node.right;
    switch (node.op) {
    case Op::Add:
        return dl + dr;
    case Op::Sub:
    case Op::Equal:
    case Op::Drag:
        return dl - dr;
    case Op::Mul:
        return dl * r + l * dr;
    case Op::Div:
        return cross(l, r, dl, dr) / sqr(r);
    case Op::Atan2:
        return cross(l, r, dl, dr) / (sqr(l) + sqr(r));
    case Op::Pow:
        return (log(l) * pow(l, r)) * dr + (pow(l, r - one()) * r) * dl;
    case Op::Hypot:
        return hypotDerivative(l, r, dl, dr);
    default:
        return nullptr;
    }
}

bool isComparison(Op op) {
    return op == Op::Greater || op == Op::Less || op == Op::LessEqual || op == Op::GreaterEqual;
}

/// A comparison as the arithmetic that gives its value.
Expr rebuilt(const VrexExpr& comparison) {
    const Expr& l = comparison.left;
    const Expr& r = comparison.right;
    const Expr difference = l - r;
    const bool isGreater = comparison.op == Op::Greater || comparison.op == Op::GreaterEqual;
    return abs(difference) - (isGreater ? difference : r - l);
}

/// Differentiates a tree, each node that it holds more than once only the first time.
class Differentiator {
public:
    explicit Differentiator(const std::shared_ptr<VrexVar>& variable) : m_variable(variable) {}

    Expr derivative(const VrexExpr& root) {
        m_frames.push_back({&root, false, false});
        while (!m_frames.empty()) {
            Frame& frame = m_frames.back();
            if (!frame.isOpen) {
                open(frame);
            } else {
                close();
            }
        }
        return m_results.back();
    }

private:
    struct Frame {
        const VrexExpr* node;
        bool isShared;
        bool isOpen; ///< The derivatives of the operands are done or scheduled.
    };

    void open(Frame& frame) {
        if (frame.isShared) {
            if (const auto known = m_known.find(frame.node); known != m_known.end()) {
                m_results.push_back(known->second);
                m_frames.pop_back();
                return;
            }
        }
        frame.isOpen = true;
        schedule(*frame.node); // Kept last: frames may move.
    }
    /// The operands whose derivatives are needed, in the order in which their results are to come.
    void schedule(const VrexExpr& node) {
        switch (node.op) {
        case Op::None:
        case Op::Const:
        case Op::Var:
        case Op::Sign:
        case Op::Mod:
        case Op::Reserved:
            return;
        case Op::If:
            // Kept: the condition is not differentiated.
            push(node.third);
            push(node.right);
            return;
        default:
            break;
        }
        if (isComparison(node.op)) {
            push(m_rebuilt.emplace_back(node.hasTwoOperands() ? rebuilt(node) : m_nothing));
            return;
        }
        const int operands = VrexExpr::getArgumentsNumber(node.op);
        if (operands > 1) {
            push(node.right);
        }
        if (operands > 0) {
            push(node.left);
        }
    }
    void push(const Expr& operand) {
        // A null operand is a node of no kind, which has no derivative.
        m_frames.push_back(
            {operand != nullptr ? operand.get() : m_nothing.get(), operand.use_count() > 1, false});
    }
    void close() {
        const Frame frame = m_frames.back();
        m_frames.pop_back();
        Expr result = combine(*frame.node);
        if (frame.isShared) {
            m_known.emplace(frame.node, result);
        }
        m_results.push_back(std::move(result));
    }
    Expr take() {
        Expr result = std::move(m_results.back());
        m_results.pop_back();
        return result;
    }
    Expr combine(const VrexExpr& node) {
        switch (node.op) {
        case Op::Const:
        case Op::Sign:
        case Op::Mod:
            return VrexExpr::zero();
        case Op::Var:
            return m_variable != nullptr && node.var == m_variable ? one() : VrexExpr::zero();
        default:
            break;
        }
        if (isComparison(node.op)) {
            return take();
        }
        const int operands = VrexExpr::getArgumentsNumber(node.op);
        if (operands == 0 || node.op == Op::Reserved) {
            return nullptr;
        }
        return operands == 1 ? combineOne(node) : combineTwo(node);
    }
    Expr combineOne(const VrexExpr& node) {
        const Expr dl = take();
        if (dl == nullptr) {
            return nullptr;
        }
        if (node.op == Op::Ceil || node.op == Op::Floor) {
            return steepness(node) * dl;
        }
        return unaryDerivative(node.op, node.left, dl);
    }
    Expr combineTwo(const VrexExpr& node) {
        const Expr second = take();
        const Expr first = take();
        if (first == nullptr || second == nullptr || node.left == nullptr) {
            return nullptr;
        }
        return node.op == Op::If ? ifThenElse(node.left, first, second)
                                 : binaryDerivative(node, first, second);
    }
    /// Kept: the side on which the whole number lies now, 1 or -1, and 0 on the number itself.
    Expr steepness(const VrexExpr& node) {
        const double x = VrexExprSteps(*node.left, m_values).eval();
        const double whole = node.op == Op::Ceil ? std::ceil(x) : std::floor(x);
        m_values.emplace(node.left.get(), x);
        m_values.emplace(&node, whole);
        return expr(nsExprRules::sign(whole - x));
    }

    const std::shared_ptr<VrexVar>& m_variable;
    const Expr m_nothing = VrexExpr::create(Op::None, nullptr, nullptr);
    std::vector<Frame> m_frames;
    std::vector<Expr> m_results;
    std::vector<Expr> m_rebuilt; ///< Keeps alive what the tables know by address.
    std::unordered_map<const VrexExpr*, Expr> m_known;
    VrexExprCompiler::Known m_values; ///< Of nodes below roundings, so that nested ones take linear time.
};

} // namespace

std::shared_ptr<VrexExpr> VrexExpr::d(const std::shared_ptr<VrexVar>& variable) const {
    return Differentiator(variable).derivative(*this);
}
