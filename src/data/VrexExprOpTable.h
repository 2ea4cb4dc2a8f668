#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "data/VrexExpr.h"

/// Hidden: what is known of each code of an expression node, and the words of the language.
namespace nsExprOps {

using Op = VrexExpr::Op;

/// How a node is written.
enum class Form : std::uint8_t { Nothing, Leaf, Prefix, Infix, Function };
/// When an operand is put into brackets.
enum class Brackets : std::uint8_t { Never, IfAdditive, UnlessUnary };

struct Row {
    Op op;
    std::uint8_t operands;
    std::uint8_t order;
    bool isEquation;
    bool isAdditive;
    Form form;
    std::string_view text; ///< What stands before, between or in front of the operands.
    Brackets left;
    Brackets right;
};

constexpr Row leaf(Op op) {
    return {op, 0, 0, false, false, Form::Leaf, "", Brackets::Never, Brackets::Never};
}
constexpr Row prefix(Op op, std::string_view text) {
    return {op, 1, 0, false, false, Form::Prefix, text, Brackets::UnlessUnary, Brackets::Never};
}
constexpr Row function(Op op, std::uint8_t operands, std::string_view text) {
    return {op, operands, 0, false, false, Form::Function, text, Brackets::Never, Brackets::Never};
}
constexpr Row product(Op op, std::string_view text, Brackets right) {
    return {op, 2, 3, false, false, Form::Infix, text, Brackets::IfAdditive, right};
}
constexpr Row comparison(Op op, std::string_view text, bool isAdditive) {
    return {op, 2, 1, true, isAdditive, Form::Infix, text, Brackets::Never, Brackets::Never};
}

/// By code.
inline constexpr std::array ROWS{
    Row{Op::None, 0, 0, false, false, Form::Nothing, "", Brackets::Never, Brackets::Never},
    leaf(Op::Const),
    leaf(Op::Var),
    prefix(Op::Neg, "-"),
    prefix(Op::Plus, "+"),
    Row{Op::Add, 2, 2, false, true, Form::Infix, " + ", Brackets::Never, Brackets::Never},
    // Kept: a difference counts as an equation, a sum does not.
    Row{Op::Sub, 2, 2, true, true, Form::Infix, " - ", Brackets::Never, Brackets::IfAdditive},
    product(Op::Mul, " * ", Brackets::IfAdditive),
    product(Op::Div, " / ", Brackets::UnlessUnary),
    function(Op::Sqr, 1, "sqr"),
    function(Op::Sqrt, 1, "sqrt"),
    function(Op::Abs, 1, "abs"),
    function(Op::Cos, 1, "cos"),
    function(Op::Sin, 1, "sin"),
    function(Op::Acos, 1, "acos"),
    function(Op::Asin, 1, "asin"),
    function(Op::Atan2, 2, "atan2"),
    function(Op::Cosh, 1, "cosh"),
    function(Op::Sinh, 1, "sinh"),
    function(Op::Exp, 1, "exp"),
    function(Op::Sfres, 1, "sfres"),
    function(Op::Cfres, 1, "cfres"),
    comparison(Op::Greater, " > ", false),
    comparison(Op::Less, " < ", false),
    comparison(Op::LessEqual, " <= ", false),
    comparison(Op::GreaterEqual, " >= ", false),
    comparison(Op::Equal, " = ", true),
    function(Op::If, 3, "if"),
    function(Op::Sign, 1, "sign"),
    function(Op::Norm, 1, "norm"),
    comparison(Op::Drag, " ~ ", true),
    // Kept: two operands and additive, but neither order nor text.
    Row{Op::Reserved, 2, 0, false, true, Form::Nothing, "", Brackets::Never, Brackets::Never},
    function(Op::Tanh, 1, "tanh"),
    function(Op::Ceil, 1, "ceil"),
    function(Op::Floor, 1, "floor"),
    function(Op::Pow, 2, "pow"),
    function(Op::Tan, 1, "tan"),
    function(Op::Atan, 1, "atan"),
    function(Op::Expm1, 1, "expm1"),
    function(Op::Hypot, 2, "hypot"),
    function(Op::Log, 1, "ln"),
    function(Op::Log10, 1, "log10"),
    function(Op::Log1p, 1, "log1p"),
    function(Op::Mod, 2, "mod"),
};

constexpr bool areInOrder() {
    for (std::size_t i = 0; i < ROWS.size(); ++i) {
        if (ROWS[i].op != static_cast<Op>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(areInOrder());

/// The row of a code; that of `None` for a code beyond the table.
constexpr const Row& row(Op op) {
    const auto code = static_cast<std::size_t>(op);
    return ROWS[code < ROWS.size() ? code : 0];
}

struct Constant {
    std::string_view text;
    double value;
};
inline constexpr Constant PI{"pi", 3.141592653589793};
inline constexpr Constant E{"e", 2.718281828459045};

} // namespace nsExprOps
