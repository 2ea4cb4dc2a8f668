#pragma once

#include <cmath>
#include <limits>

#include "data/VrexExpr.h"
#include "data/VrexVariable.h"

/// What small trees evaluate to, by recursion and written out code by code, to compare evaluation with.
namespace nsNaive {

using Op = VrexExpr::Op;

inline double eval(const VrexExpr& node);
inline VrexVariable evalVar(const VrexExpr& node);

inline bool evalBool(const VrexExpr& node) {
    const auto a = [&] { return evalBool(*node.left); };
    const auto b = [&] { return evalBool(*node.right); };
    const auto x = [&] { return eval(*node.left); };
    const auto y = [&] { return eval(*node.right); };
    switch (static_cast<int>(node.op)) {
    case 3:
        return !a();
    case 4:
    case 27:
        return a();
    case 5:
        return a() || b();
    case 6:
        return a() != b();
    case 7:
        return a() && b();
    case 8:
        return a() && !b();
    case 22:
        return x() > y();
    case 23:
        return x() < y();
    case 24:
        return x() <= y();
    case 25:
        return x() >= y();
    case 26:
    case 30:
        return a() == b();
    default:
        return false;
    }
}

inline double signOf(double x) { return x == 0.0 ? 0.0 : x > 0.0 ? 1.0 : -1.0; }

inline double sfresOf(double x) {
    const double t = std::fabs(x);
    const double u = t * t;
    const double y = u * 3.141592653589793 * 0.5;
    const double f = (t * 0.926 + 1) / (t * 1.792 + 2 + u * 3.104);
    return signOf(x) * (0.5 - std::cos(y) * f - std::sin(y) * (1 / (u * t * 6.67 + (u * 3.492 + 6.142))));
}

inline double cfresOf(double x) {
    const double t = std::fabs(x);
    const double u = t * t;
    const double y = u * 3.141592653589793 * 0.5;
    const double f = (t * 0.926 + 1) / (t * 1.792 + 2 + u * 3.104);
    return signOf(x) *
           (std::sin(y) * f + 0.5 - std::cos(y) * (1 / (t * 4.142 + 2 + u * 3.492 + u * t * 6.67)));
}

inline double eval(const VrexExpr& node) {
    const int code = static_cast<int>(node.op);
    if (code == 27) {
        return evalBool(*node.left) ? eval(*node.right) : eval(*node.third);
    }
    const double l = node.left != nullptr ? eval(*node.left) : 0.0;
    const double r = node.right != nullptr ? eval(*node.right) : 0.0;
    switch (code) {
    case 1:
        return node.value;
    case 2:
        return node.var->value();
    case 3:
        return -l;
    case 4:
    case 29:
        return l;
    case 5:
        return l + r;
    case 6:
    case 26:
    case 30:
        return l - r;
    case 7:
        return l * r;
    case 8:
        return std::fabs(r) < 1e-10 ? 1.7976931348623157e308 : l / r;
    case 9:
        return l * l;
    case 10:
        return std::sqrt(l);
    case 11:
        return std::fabs(l);
    case 12:
        return std::cos(l);
    case 13:
        return std::sin(l);
    case 14:
        return std::acos(l);
    case 15:
        return std::asin(l);
    case 16:
        return std::atan2(l, r);
    case 17:
        return std::cosh(l);
    case 18:
        return std::sinh(l);
    case 19:
        return std::exp(l);
    case 20:
        return sfresOf(l);
    case 21:
        return cfresOf(l);
    case 22:
    case 25:
        return std::fabs(l - r) - (l - r);
    case 23:
    case 24:
        return std::fabs(l - r) - (r - l);
    case 28:
        return signOf(l);
    case 32:
        return std::tanh(l);
    case 33:
        return std::ceil(l);
    case 34:
        return std::floor(l);
    case 35:
        return std::pow(l, r);
    case 36:
        return std::tan(l);
    case 37:
        return std::atan(l);
    case 38:
        return std::expm1(l);
    case 39:
        return std::hypot(l, r);
    case 40:
        return std::log(l);
    case 41:
        return std::log10(l);
    case 42:
        return std::log1p(l);
    case 43:
        return std::fmod(l, r);
    default:
        return 0.0;
    }
}

inline VrexVariable fresnel(const VrexVariable& x, bool isSine) {
    const VrexVariable t = abs(x);
    const VrexVariable u = t * t;
    const VrexVariable y = u * 3.141592653589793 * 0.5;
    const VrexVariable f = (t * 0.926 + 1.0) / (t * 1.792 + 2.0 + u * 3.104);
    if (isSine) {
        return sign(x) * (0.5 - cos(y) * f - sin(y) * (1.0 / (u * t * 6.67 + (u * 3.492 + 6.142))));
    }
    return sign(x) * (sin(y) * f + 0.5 - cos(y) * (1.0 / (t * 4.142 + 2.0 + u * 3.492 + u * t * 6.67)));
}

inline VrexVariable evalVar(const VrexExpr& node) {
    const int code = static_cast<int>(node.op);
    if (code == 27) {
        return evalBool(*node.left) ? evalVar(*node.right) : evalVar(*node.third);
    }
    const VrexVariable l = node.left != nullptr ? evalVar(*node.left) : VrexVariable(0.0);
    const VrexVariable r = node.right != nullptr ? evalVar(*node.right) : VrexVariable(0.0);
    switch (code) {
    case 1:
        return VrexVariable(node.value);
    case 2:
        return *node.var;
    case 3:
        return -l;
    case 4:
    case 29:
        return l;
    case 5:
        return l + r;
    case 6:
    case 26:
    case 30:
        return l - r;
    case 7:
        return l * r;
    case 8:
        return l / r;
    case 9:
        return l * l;
    case 10:
        return sqrt(l);
    case 11:
        return abs(l);
    case 12:
        return cos(l);
    case 13:
        return sin(l);
    case 14:
        return acos(l);
    case 15:
        return asin(l);
    case 16:
        return atan2(l, r);
    case 17:
        return cosh(l);
    case 18:
        return sinh(l);
    case 19:
        return exp(l);
    case 20:
    case 21:
        return fresnel(l, code == 20);
    case 22:
    case 25:
        return abs(l - r) - (l - r);
    case 23:
    case 24:
        return abs(l - r) - (r - l);
    case 28:
        return sign(l);
    case 32:
        return tanh(l);
    case 33:
        return ceil(l);
    case 34:
        return floor(l);
    case 35:
        return pow(l, r);
    case 36:
        return tan(l);
    case 37:
        return atan(l);
    case 38:
        return expm1(l);
    case 39:
        return hypot(l, r);
    case 40:
        return log(l);
    case 41:
        return log(l) * 0.4342944819032518;
    case 42:
        return log1p(l);
    case 43:
        return fmod(l, r);
    default:
        return VrexVariable(0.0);
    }
}

} // namespace nsNaive
