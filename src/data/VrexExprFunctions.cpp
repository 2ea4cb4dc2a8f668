#include "data/VrexExprFunctions.h"

using Expr = std::shared_ptr<VrexExpr>;
using Op = VrexExpr::Op;

namespace {

bool isZero(const Expr& a) { return a != nullptr && a->isZeroConst(); }
bool isOne(const Expr& a) { return a != nullptr && a->isOneConst(); }
bool isMinusOne(const Expr& a) { return a != nullptr && a->isMinusOneConst(); }
bool isConst(const Expr& a) { return a != nullptr && a->isConst(); }
bool is(const Expr& a, Op op) { return a != nullptr && a->op == op; }

Expr unary(Op op, const Expr& a) { return VrexExpr::create(op, a, nullptr); }

} // namespace

Expr expr(double value) { return VrexExpr::create(value); }

Expr operator*(const Expr& a, const Expr& b) {
    if (isZero(a) || isZero(b)) {
        return VrexExpr::zero();
    }
    if (isOne(a)) {
        return b;
    }
    if (isOne(b)) {
        return a;
    }
    if (isMinusOne(a)) {
        return -b;
    }
    if (isMinusOne(b)) {
        return -a;
    }
    if (isConst(a) && isConst(b)) {
        return VrexExpr::create(a->value * b->value);
    }
    return VrexExpr::create(Op::Mul, a, b);
}

Expr operator+(const Expr& a, const Expr& b) {
    // Kept: an opposite sign on the left stays.
    Expr right = b;
    while (!isZero(a) && is(right, Op::Plus)) {
        right = right->left;
    }
    if (isZero(a)) {
        return right;
    }
    if (isZero(right)) {
        return a;
    }
    return is(right, Op::Neg) ? a - right->left : VrexExpr::create(Op::Add, a, right);
}

Expr operator-(const Expr& a, const Expr& b) {
    if (isZero(a)) {
        return -b;
    }
    return isZero(b) ? a : VrexExpr::create(Op::Sub, a, b);
}

Expr operator-(const Expr& a) {
    if (isZero(a)) {
        return a;
    }
    if (isConst(a)) {
        return VrexExpr::create(-a->value);
    }
    return is(a, Op::Neg) ? a->left : unary(Op::Neg, a);
}

Expr operator/(const Expr& a, const Expr& b) {
    if (isOne(b)) {
        return a;
    }
    if (isZero(a)) {
        return VrexExpr::zero();
    }
    return isMinusOne(b) ? -a : VrexExpr::create(Op::Div, a, b);
}

Expr abs(const Expr& a) { return unary(Op::Abs, a); }
Expr acos(const Expr& a) { return unary(Op::Acos, a); }
Expr asin(const Expr& a) { return unary(Op::Asin, a); }
Expr atan(const Expr& a) { return unary(Op::Atan, a); }
Expr atan2(const Expr& a, const Expr& b) { return VrexExpr::create(Op::Atan2, a, b); }
Expr ceil(const Expr& a) { return unary(Op::Ceil, a); }
Expr cfres(const Expr& a) { return unary(Op::Cfres, a); }
Expr cos(const Expr& a) { return unary(Op::Cos, a); }
Expr cosh(const Expr& a) { return unary(Op::Cosh, a); }
Expr drag(const Expr& a, const Expr& b) { return VrexExpr::create(Op::Drag, a, b); }
Expr exp(const Expr& a) { return unary(Op::Exp, a); }
Expr expm1(const Expr& a) { return unary(Op::Expm1, a); }
Expr floor(const Expr& a) { return unary(Op::Floor, a); }
Expr hypot(const Expr& a, const Expr& b) { return VrexExpr::create(Op::Hypot, a, b); }
Expr ifThenElse(const Expr& condition, const Expr& a, const Expr& b) {
    return VrexExpr::create(Op::If, condition, a, b);
}
Expr log(const Expr& a) { return unary(Op::Log, a); }
Expr log10(const Expr& a) { return unary(Op::Log10, a); }
Expr log1p(const Expr& a) { return unary(Op::Log1p, a); }
Expr mod(const Expr& a, const Expr& b) { return VrexExpr::create(Op::Mod, a, b); }
Expr norm(const Expr& a) { return unary(Op::Norm, a); }
Expr pow(const Expr& a, const Expr& b) { return VrexExpr::create(Op::Pow, a, b); }
Expr sfres(const Expr& a) { return unary(Op::Sfres, a); }
Expr sign(const Expr& a) { return unary(Op::Sign, a); }
Expr sin(const Expr& a) { return unary(Op::Sin, a); }
Expr sinh(const Expr& a) { return unary(Op::Sinh, a); }
Expr sqr(const Expr& a) { return unary(Op::Sqr, a); }
Expr sqrt(const Expr& a) { return unary(Op::Sqrt, a); }
Expr tan(const Expr& a) { return unary(Op::Tan, a); }
Expr tanh(const Expr& a) { return unary(Op::Tanh, a); }
