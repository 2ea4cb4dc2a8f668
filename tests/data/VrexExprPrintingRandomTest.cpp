#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExpr.h"
#include "support/Expressions.h"
#include "support/NaiveExpression.h"
#include "support/RandomTurns.h"

using namespace nsExpressions;

// Trees that chance builds where precedence allows, printed and parsed again.

namespace {

constexpr int TREES = randomTurns(20000);

/// Builds trees the brackets of which all get printed.
class PrintableTrees {
public:
    explicit PrintableTrees(unsigned seed) : m_random(seed) {}

    const Vars& vars() const { return m_vars; }
    Expr make(int levels) { return makeAny(ALL, levels); }

private:
    /// Kinds of nodes, in sets of what may stand in a place.
    enum Kind : unsigned { OPERAND = 1, SIGN = 2, PRODUCT = 4, SUM = 8, EQUALITY = 16, ORDER = 32 };
    static constexpr unsigned ALL = OPERAND | SIGN | PRODUCT | SUM | EQUALITY | ORDER;

    std::size_t below(std::size_t count) { return m_random() % count; }
    Op pick(const std::vector<Op>& ops) { return ops[below(ops.size())]; }

    Expr makeAny(unsigned allowed, int levels) {
        if (levels == 0) {
            return makeLeaf();
        }
        unsigned kind = 0;
        while ((kind & allowed) == 0) {
            kind = 1U << below(6);
        }
        switch (kind) {
        case SIGN:
            return VrexExpr::create(pick({Op::Neg, Op::Plus}), makeAny(ALL & ~SIGN, levels - 1), nullptr);
        case PRODUCT:
            return makeProduct(levels - 1);
        case SUM:
            return makeSum(levels - 1);
        case EQUALITY:
            return makeComparison(pick({Op::Equal, Op::Drag}), levels - 1);
        case ORDER:
            return makeComparison(pick({Op::Less, Op::Greater}), levels - 1);
        default:
            return makeFunction(levels - 1);
        }
    }
    Expr makeLeaf() {
        if (below(2) == 0) {
            return variable(m_vars[below(m_vars.size())]);
        }
        return VrexExpr::create(below(8) == 0 ? 3.141592653589793 : 0.25 * static_cast<double>(below(40)));
    }
    Expr makeProduct(int levels) {
        const Expr left = makeAny(ALL & ~ORDER, levels);
        return below(2) == 0 ? VrexExpr::create(Op::Div, left, makeAny(ALL, levels))
                             : VrexExpr::create(Op::Mul, left, makeAny(ALL & ~(ORDER | PRODUCT), levels));
    }
    Expr makeSum(int levels) {
        const Expr left = makeAny(OPERAND | SIGN | PRODUCT | SUM, levels);
        return below(2) == 0 ? VrexExpr::create(Op::Sub, left, makeAny(ALL & ~ORDER, levels))
                             : VrexExpr::create(Op::Add, left, makeAny(OPERAND | SIGN | PRODUCT, levels));
    }
    Expr makeComparison(Op op, int levels) {
        const Expr left = makeAny(ALL, levels);
        return VrexExpr::create(op, left, makeAny(ALL & ~(EQUALITY | ORDER), levels));
    }
    Expr makeFunction(int levels) {
        const Op op = pick({Op::Sqr,   Op::Sqrt,  Op::Abs,   Op::Cos,  Op::Sin,   Op::Acos,  Op::Asin,
                            Op::Atan2, Op::Cosh,  Op::Sinh,  Op::Exp,  Op::Sfres, Op::Cfres, Op::If,
                            Op::Sign,  Op::Norm,  Op::Tanh,  Op::Ceil, Op::Floor, Op::Pow,   Op::Tan,
                            Op::Atan,  Op::Expm1, Op::Hypot, Op::Log,  Op::Log10, Op::Log1p, Op::Mod});
        const int operands = VrexExpr::getArgumentsNumber(op);
        const Expr first = makeAny(ALL, levels);
        const Expr second = operands > 1 ? makeAny(ALL, levels) : nullptr;
        return VrexExpr::create(op, first, second, operands > 2 ? makeAny(ALL, levels) : nullptr);
    }

    std::mt19937 m_random;
    const Vars m_vars = someVars();
};

} // namespace

TEST(VrexExprPrintingRandom, TextParsesToTheSameTreeWherePrecedenceAllows) {
    PrintableTrees trees(3);
    for (int i = 0; i < TREES; ++i) {
        const Expr tree = trees.make(i % 6);
        const std::string text = tree->toString();
        ASSERT_EQ(shapeOf(*parsed(text, trees.vars())), shapeOf(*tree)) << text;
    }
}
