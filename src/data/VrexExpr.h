#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "data/VrexExport.h"
#include "data/VrexVar.h"
#include "data/VrexVariable.h"

/// A node of an expression tree over named variables.
///
/// Nodes are shared and, by convention, not changed once made; a variable node reads its `VrexVar` at each
/// evaluation. No operation needs stack by the depth of the tree, and each works on a subtree that several
/// nodes share once (but `toString` and `traverse`, whose results repeat it). A null operand counts as 0 in
/// values, as false in conditions, as empty text, and as what has no derivative.
///
/// Trees are built by `VrexExprParser`, or by the operators and functions of "data/VrexExprFunctions.h",
/// which this header includes. Evaluation takes no locks: one thread at a time may change the variables, and
/// none may evaluate then.
class VREX_DATA_EXPORT VrexExpr {
public:
    /// What a node does; the numbers are part of the interface.
    enum class Op : std::uint32_t {
        None = 0,
        Const = 1,
        Var = 2,
        Neg = 3,
        Plus = 4,
        Add = 5,
        Sub = 6,
        Mul = 7,
        Div = 8,
        Sqr = 9,
        Sqrt = 10,
        Abs = 11,
        Cos = 12,
        Sin = 13,
        Acos = 14,
        Asin = 15,
        Atan2 = 16,
        Cosh = 17,
        Sinh = 18,
        Exp = 19,
        Sfres = 20,
        Cfres = 21,
        Greater = 22,
        Less = 23,
        LessEqual = 24,
        GreaterEqual = 25,
        Equal = 26,
        If = 27,
        Sign = 28,
        Norm = 29,
        Drag = 30,
        Reserved = 31,
        Tanh = 32,
        Ceil = 33,
        Floor = 34,
        Pow = 35,
        Tan = 36,
        Atan = 37,
        Expm1 = 38,
        Hypot = 39,
        Log = 40,
        Log10 = 41,
        Log1p = 42,
        Mod = 43,
    };

    /// A constant. 0, 1, -1 and 2 give the shared nodes below, -0.0 that of 0.
    [[nodiscard]] static std::shared_ptr<VrexExpr> create(double value);
    [[nodiscard]] static std::shared_ptr<VrexExpr> create(std::shared_ptr<VrexVar> variable);
    /// A node as it is told, nothing simplified. The operands that `op` takes must not be null, the others
    /// are null.
    [[nodiscard]] static std::shared_ptr<VrexExpr> create(Op op, std::shared_ptr<VrexExpr> a,
                                                          std::shared_ptr<VrexExpr> b,
                                                          std::shared_ptr<VrexExpr> c = nullptr);
    /// One node each for the life of the process.
    [[nodiscard]] static const std::shared_ptr<VrexExpr>& zero();
    [[nodiscard]] static const std::shared_ptr<VrexExpr>& one();
    [[nodiscard]] static const std::shared_ptr<VrexExpr>& two();
    [[nodiscard]] static const std::shared_ptr<VrexExpr>& mOne();

    VrexExpr(const VrexExpr&) = delete;
    VrexExpr& operator=(const VrexExpr&) = delete;
    ~VrexExpr();

    /// Operands that the code takes, 0 for unknown codes.
    [[nodiscard]] static int getArgumentsNumber(Op op);
    /// How tight an infix operator binds: 1 comparisons, "=" and "~", 2 sums, 3 products; 0 for all else.
    [[nodiscard]] static int orderOf(Op op);
    /// Comparisons, "=", "~" and, as a difference is an equation with zero, `Sub`.
    [[nodiscard]] static bool isEquation(Op op);

    [[nodiscard]] bool isEquation() const { return isEquation(op); }
    /// No or one operand, so true for unknown codes too.
    [[nodiscard]] bool isUnary() const { return getArgumentsNumber(op) <= 1; }
    /// `Add`, `Sub`, `Equal`, `Drag` and the reserved code.
    [[nodiscard]] bool isAdditive() const;
    [[nodiscard]] bool isConst() const { return op == Op::Const; }
    [[nodiscard]] bool isDrag() const { return op == Op::Drag; }
    [[nodiscard]] bool isZeroConst() const { return isConst() && value == 0.0; }
    [[nodiscard]] bool isOneConst() const { return isConst() && value == 1.0; }
    [[nodiscard]] bool isMinusOneConst() const { return isConst() && value == -1.0; }
    /// A difference of two variables.
    [[nodiscard]] bool isSubstitionForm() const;
    [[nodiscard]] bool hasTwoOperands() const { return left != nullptr && right != nullptr; }

    /// Whether a variable stands anywhere in the tree.
    [[nodiscard]] bool containVars() const;
    /// Whether this very variable, not just its name, stands anywhere in the tree.
    [[nodiscard]] bool isDependOn(const std::shared_ptr<VrexVar>& variable) const;
    /// Calls the visitor for a node, then for what stands below `left`, `right` and `third`: once a path, so
    /// more than once for a shared node. Null nodes are passed over.
    static void traverse(const std::shared_ptr<VrexExpr>& node,
                         const std::function<void(std::shared_ptr<VrexExpr>)>& visitor);

    /// Comparisons give how far they are violated, 0 when they hold: a > b and a >= b give |a - b| - (a - b).
    /// A division by less than 1e-10 gives the largest double. Of an `If` the chosen branch is evaluated.
    [[nodiscard]] double eval() const;
    /// As `eval`, with derivatives and log of the variables. Kept: divisions are plain, `sign` is -1 at 0,
    /// and log10 is log times 0.4342944819032518.
    [[nodiscard]] VrexVariable evalVar() const;
    /// The tree as a condition: comparisons of values; + - * / as or, exclusive or, and, and-not; unary minus
    /// as not. Kept: constants, variables and functions are false, and `Equal` compares truth values.
    [[nodiscard]] bool evalBool() const;

    /// The derivative as a new tree, which shares nodes with this one. Null where a reserved or unknown code
    /// stands in the way. Kept: `Ceil` and `Floor` take a sign from the present values of the variables, so a
    /// tree with them goes stale; `Sign` and `Mod` have the derivative 0, `Norm` that of its operand times
    /// sign(abs(operand)); the condition of an `If` stays as it is.
    [[nodiscard]] std::shared_ptr<VrexExpr> deriv(const std::shared_ptr<VrexVar>& variable) const;

    /// The text, which parses to the same value where precedence allows: see `quotedAdd` for where it does
    /// not.
    [[nodiscard]] std::string toString() const;
    /// The text, in brackets if there are two or more operands.
    [[nodiscard]] std::string quoted() const;
    /// The text, in brackets if `isAdditive`. Kept: comparisons below products stay without.
    [[nodiscard]] std::string quotedAdd() const;
    /// As printf prints "%.16g" in the "C" locale.
    [[nodiscard]] static std::string doubleToString(double value);

    Op op = Op::None;
    double value = 0.0;              ///< Of a constant.
    std::shared_ptr<VrexVar> var;    ///< Of a variable.
    std::shared_ptr<VrexExpr> left;  ///< First operand.
    std::shared_ptr<VrexExpr> right; ///< Second operand.
    std::shared_ptr<VrexExpr> third; ///< Third operand.

protected:
    explicit VrexExpr(double constant);
    explicit VrexExpr(std::shared_ptr<VrexVar> variable);
    VrexExpr(Op operation, std::shared_ptr<VrexExpr> a, std::shared_ptr<VrexExpr> b,
             std::shared_ptr<VrexExpr> c = nullptr);

private:
    [[nodiscard]] std::shared_ptr<VrexExpr> d(const std::shared_ptr<VrexVar>& variable) const;
};

#include "data/VrexExprFunctions.h" // IWYU pragma: export
