#pragma once

#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/VrexExprParser.h"
#include "data/VrexVar.h"

/// What tests of expressions share.
namespace nsExpressions {

using Expr = std::shared_ptr<VrexExpr>;
using Op = VrexExpr::Op;
using Vars = std::vector<std::shared_ptr<VrexVar>>;

/// a = 1, b = 2, t = 0.5.
inline Vars someVars() {
    return {VrexVar::create("a", 1.0), VrexVar::create("b", 2.0), VrexVar::create("t", 0.5)};
}

inline Expr parsed(const std::string& text, const Vars& vars = {}) {
    VrexExprParser parser(text, vars);
    Expr root = parser.parse();
    if (root == nullptr) {
        throw std::runtime_error(parser.getError());
    }
    return root;
}

/// The message of a text that must not parse.
inline std::string errorOf(const std::string& text, const Vars& vars = {}) {
    VrexExprParser parser(text, vars);
    return parser.parse() != nullptr ? "no error" : parser.getError();
}

inline Expr variable(const std::shared_ptr<VrexVar>& var) { return VrexExpr::create(var); }

inline std::string repeated(const std::string& text, int count) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

inline const std::vector<Op>& unaryOps() {
    static const std::vector<Op> ops{
        Op::Neg,   Op::Plus, Op::Sqr,  Op::Sqrt,  Op::Abs,   Op::Cos,   Op::Sin,  Op::Acos, Op::Asin,
        Op::Cosh,  Op::Sinh, Op::Exp,  Op::Sfres, Op::Cfres, Op::Sign,  Op::Norm, Op::Tanh, Op::Ceil,
        Op::Floor, Op::Tan,  Op::Atan, Op::Expm1, Op::Log,   Op::Log10, Op::Log1p};
    return ops;
}

inline const std::vector<Op>& binaryOps() {
    static const std::vector<Op> ops{Op::Add,     Op::Sub,  Op::Mul,       Op::Div,          Op::Atan2,
                                     Op::Greater, Op::Less, Op::LessEqual, Op::GreaterEqual, Op::Equal,
                                     Op::Drag,    Op::Pow,  Op::Hypot,     Op::Mod};
    return ops;
}

/// Trees of any codes over some variables, with operands that several nodes share.
class RandomTrees {
public:
    RandomTrees(unsigned seed, const Vars& vars) : m_random(seed), m_vars(vars) {}

    Expr make(int nodes) {
        std::vector<Expr> pool;
        for (const auto& var : m_vars) {
            pool.push_back(variable(var));
        }
        for (int i = 0; i < nodes; ++i) {
            pool.push_back(makeNode(pool));
        }
        return pool.back();
    }

private:
    std::size_t below(std::size_t count) { return m_random() % count; }
    Expr pick(const std::vector<Expr>& pool) {
        // Mostly what is new, so that trees grow high, sometimes what has been used before.
        const std::size_t back =
            below(8) == 0 ? below(pool.size()) : below(std::min<std::size_t>(pool.size(), 4));
        return pool[pool.size() - 1 - back];
    }
    Expr makeNode(const std::vector<Expr>& pool) {
        switch (below(10)) {
        case 0:
            return VrexExpr::create(0.25 * static_cast<double>(below(16)) - 2.0);
        case 1:
            return variable(m_vars[below(m_vars.size())]);
        case 2:
            return VrexExpr::create(Op::If, pick(pool), pick(pool), pick(pool));
        case 3:
        case 4:
        case 5:
            return VrexExpr::create(unaryOps()[below(unaryOps().size())], pick(pool), nullptr);
        default:
            return VrexExpr::create(binaryOps()[below(binaryOps().size())], pick(pool), pick(pool));
        }
    }

    std::mt19937 m_random;
    Vars m_vars;
};

} // namespace nsExpressions
