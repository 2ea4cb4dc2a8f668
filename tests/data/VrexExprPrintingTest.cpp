#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/VrexExpr.h"
#include "support/Expressions.h"
#include "support/GermanLocale.h"

using namespace nsExpressions;

// Trees as text.

namespace {

std::string textOf(const std::string& text) { return parsed(text, someVars())->toString(); }

std::string textOf(Op op) {
    static const Vars vars = someVars();
    return VrexExpr::create(op, variable(vars[0]), variable(vars[1]), variable(vars[2]))->toString();
}

} // namespace

TEST(VrexExprPrinting, EachCodeHasItsForm) {
    const std::vector<std::string> forms{
        "",         "0",         "",         "-a",          "+a",          "a + b",
        "a - b",    "a * b",     "a / b",    "sqr(a)",      "sqrt(a)",     "abs(a)",
        "cos(a)",   "sin(a)",    "acos(a)",  "asin(a)",     "atan2(a, b)", "cosh(a)",
        "sinh(a)",  "exp(a)",    "sfres(a)", "cfres(a)",    "a > b",       "a < b",
        "a <= b",   "a >= b",    "a = b",    "if(a, b, t)", "sign(a)",     "norm(a)",
        "a ~ b",    "",          "tanh(a)",  "ceil(a)",     "floor(a)",    "pow(a, b)",
        "tan(a)",   "atan(a)",   "expm1(a)", "hypot(a, b)", "ln(a)",       "log10(a)",
        "log1p(a)", "mod(a, b)", "",
    };
    for (std::size_t code = 0; code < forms.size(); ++code) {
        EXPECT_EQ(textOf(static_cast<Op>(code)), forms[code]) << code;
    }
}

TEST(VrexExprPrinting, SignsQuoteWhatHasTwoOperands) {
    EXPECT_EQ(textOf("-(a + b)"), "-(a + b)");
    EXPECT_EQ(textOf("+(a * b)"), "+(a * b)");
    EXPECT_EQ(textOf("-sin(a + b)"), "-sin(a + b)");
    EXPECT_EQ(textOf("-pow(a, b)"), "-(pow(a, b))");
    EXPECT_EQ(textOf("-(-a)"), "--a");
    EXPECT_EQ(textOf("+(-a)"), "+-a");
}

TEST(VrexExprPrinting, SumsAreNeverQuotedAndDifferencesOnTheRight) {
    EXPECT_EQ(textOf("a + (b + t)"), "a + b + t");
    EXPECT_EQ(textOf("(a - b) + (b - t)"), "a - b + b - t");
    EXPECT_EQ(textOf("(a - b) - (b - t)"), "a - b - (b - t)");
    EXPECT_EQ(textOf("a - (b + t)"), "a - (b + t)");
    EXPECT_EQ(textOf("a - (b * t)"), "a - b * t");
    EXPECT_EQ(textOf("a - (b = t)"), "a - (b = t)");
    EXPECT_EQ(textOf("a - (b ~ t)"), "a - (b ~ t)");
    EXPECT_EQ(textOf("a + (b = t)"), "a + b = t");
}

TEST(VrexExprPrinting, ProductsQuoteSumsOnBothSides) {
    EXPECT_EQ(textOf("(a + b) * (b - t)"), "(a + b) * (b - t)");
    EXPECT_EQ(textOf("a * (b * t)"), "a * b * t");
    EXPECT_EQ(textOf("(a / b) * t"), "a / b * t");
    EXPECT_EQ(textOf("(a = b) * (b ~ t)"), "(a = b) * (b ~ t)");
}

TEST(VrexExprPrinting, ComparisonsInProductsStayBare) {
    EXPECT_EQ(textOf("(a > b) * (b < t)"), "a > b * b < t");
    EXPECT_EQ(textOf("a - (b > t)"), "a - b > t");
}

TEST(VrexExprPrinting, DivisorsQuoteAllThatHasTwoOperands) {
    EXPECT_EQ(textOf("(a + b) / (b - t)"), "(a + b) / (b - t)");
    EXPECT_EQ(textOf("a / (b * t)"), "a / (b * t)");
    EXPECT_EQ(textOf("a / (b / t)"), "a / (b / t)");
    EXPECT_EQ(textOf("a / pow(b, t)"), "a / (pow(b, t))");
    EXPECT_EQ(textOf("a / if(b, t, a)"), "a / (if(b, t, a))");
    EXPECT_EQ(textOf("a / sin(t)"), "a / sin(t)");
    EXPECT_EQ(textOf("a / -b"), "a / -b");
    EXPECT_EQ(textOf("a / (b > t)"), "a / (b > t)");
}

TEST(VrexExprPrinting, QuotedAndQuotedAdd) {
    const Vars vars = someVars();
    EXPECT_EQ(parsed("a + b", vars)->quoted(), "(a + b)");
    EXPECT_EQ(parsed("a * b", vars)->quoted(), "(a * b)");
    EXPECT_EQ(parsed("sin(a)", vars)->quoted(), "sin(a)");
    EXPECT_EQ(parsed("pow(a, b)", vars)->quoted(), "(pow(a, b))");
    EXPECT_EQ(parsed("a + b", vars)->quotedAdd(), "(a + b)");
    EXPECT_EQ(parsed("a - b", vars)->quotedAdd(), "(a - b)");
    EXPECT_EQ(parsed("a = b", vars)->quotedAdd(), "(a = b)");
    EXPECT_EQ(parsed("a ~ b", vars)->quotedAdd(), "(a ~ b)");
    EXPECT_EQ(parsed("a * b", vars)->quotedAdd(), "a * b");
    EXPECT_EQ(parsed("a > b", vars)->quotedAdd(), "a > b");
    const Expr reserved = VrexExpr::create(Op::Reserved, VrexExpr::one(), VrexExpr::two());
    EXPECT_EQ(reserved->toString(), "");
    EXPECT_EQ(reserved->quotedAdd(), "()");
}

TEST(VrexExprPrinting, NamedConstantsPrintByTheirExactValue) {
    EXPECT_EQ(VrexExpr::create(3.141592653589793)->toString(), "pi");
    EXPECT_EQ(VrexExpr::create(2.718281828459045)->toString(), "e");
    EXPECT_EQ(VrexExpr::create(-3.141592653589793)->toString(), "-3.141592653589793");
    EXPECT_EQ(VrexExpr::create(std::nextafter(3.141592653589793, 4.0))->toString(), "3.141592653589794");
}

TEST(VrexExprPrinting, NumbersHaveSixteenDigits) {
    const std::vector<std::pair<double, std::string>> rows{
        {0.1, "0.1"},
        {1.0 / 3.0, "0.3333333333333333"},
        {0.1 + 0.2, "0.3"},
        {1e100, "1e+100"},
        {-2.5e-7, "-2.5e-07"},
        {123456789.0, "123456789"},
        {1e16, "1e+16"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {0.0, "0"},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(VrexExpr::doubleToString(value), text);
        EXPECT_EQ(VrexExpr::create(value)->toString(), text);
    }
    EXPECT_EQ(VrexExpr::doubleToString(-0.0), "-0");
}

TEST(VrexExprPrinting, NumbersHaveAPointInEveryLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    EXPECT_EQ(VrexExpr::doubleToString(1.5), "1.5");
    EXPECT_EQ(parsed("1.5")->toString(), "1.5");
}

TEST(VrexExprPrinting, TextParsesToTheSameValueWherePrecedenceAllows) {
    const Vars vars = someVars();
    for (const char* text : {"a - (b - t)", "a * (b + t) / (a - t)", "a / (b / t)", "-(a + b) * t",
                             "pow(a + b, -t) - if(a < b, t, 1)", "atan2(a, b) - (a ~ t)",
                             "a - b * t - (a = b)", "ln(a + b) * sqr(t) / hypot(a, t)", "2 * pi * t - e"}) {
        const Expr tree = parsed(text, vars);
        EXPECT_EQ(parsed(tree->toString(), vars)->eval(), tree->eval()) << text;
    }
}
