#include "data/VrexExprParser.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Expressions.h"
#include "support/GermanLocale.h"
#include "support/NaiveExpression.h"

using namespace nsExpressions;

namespace {

struct ErrorRow {
    std::string text;
    std::string error;
};

const std::vector<ErrorRow>& errorRows() {
    static const std::vector<ErrorRow> rows{
        {"", "operand expected (error in \"\")"},
        {"   ", "operand expected (error in \"   \")"},
        {"2 +", "operand expected (error in \"2 +\")"},
        {"2 $ 3", "operator expected (error in \"2 ?$ 3\")"},
        {"((1)))", "unexpected token (error in \"((1))?)\")"},
        {"1,2", "unexpected token (error in \"1?,2\")"},
        {")", "valid operand expected (error in \"?)\")"},
        {"()", "valid operand expected (error in \"(?)\")"},
        {"(1 + 2", "\")\" expected! (error in \"(1 + 2\")"},
        {"sin", "function arguments expected (error in \"sin\")"},
        {"sin + 1", "function arguments expected (error in \"sin ?+ 1\")"},
        {"sin()", "valid operand expected (error in \"sin(?)\")"},
        {"sin(1,2)", "function argument expected (error in \"sin(1,2)\")"},
        {"sin(1,2) + 1", "function argument expected (error in \"sin(1,2)? + 1\")"},
        {"atan2(1)", "function argument expected (error in \"atan2(1)\")"},
        {"if(1,2)", "function argument expected (error in \"if(1,2)\")"},
        {"if(1,2,3,4)", "\")\" expected! (error in \"if(1,2,3?,4)\")"},
        {"e(1)", "operator expected (error in \"e?(1)\")"},
        {"x(1)", "operator expected (error in \"x?(1)\")"},
        {".5", "valid operand expected (error in \"?.5\")"},
        {"1E5", "operator expected (error in \"1?E5\")"},
        {"1e", "operator expected (error in \"1?e\")"},
        {"1e+", "operator expected (error in \"1?e+\")"},
        {"1e-", "operator expected (error in \"1?e-\")"},
        {"1e+x", "operator expected (error in \"1e+?x\")"},
        {"1e5e3", "operator expected (error in \"1e5?e3\")"},
        {"2 3", "operator expected (error in \"2 ?3\")"},
        {"2x", "operator expected (error in \"2?x\")"},
        {"a <= b", "valid operand expected (error in \"a <?= b\")"},
        {"a >= b", "valid operand expected (error in \"a >?= b\")"},
        {"a < = b", "valid operand expected (error in \"a < ?= b\")"},
        {"a == b", "valid operand expected (error in \"a =?= b\")"},
        {"a ^ b", "operator expected (error in \"a ?^ b\")"},
        {"a ** b", "valid operand expected (error in \"a *?* b\")"},
        {"--a", "valid operand expected (error in \"-?-a\")"},
        {"- (1)", "valid operand expected (error in \"- ?(1)\")"},
        {"+ (1)", "valid operand expected (error in \"+ ?(1)\")"},
        {"1 // x", "valid operand expected (error in \"1 /?/ x\")"},
        {"a ? b : c", "operator expected (error in \"a ?? b : c\")"},
        {"\"a\"", "valid operand expected (error in \"?\"a\"\")"},
        {"%n%s%s%s%x", "valid operand expected (error in \"?%n%s%s%s%x\")"},
        {"a %n b", "operator expected (error in \"a ?%n b\")"},
        {"a + %08x", "valid operand expected (error in \"a + ?%08x\")"},
        {std::string("a\0b", 3), std::string("operator expected (error in \"a?\0b\")", 35)},
        {std::string("\0", 1), std::string("valid operand expected (error in \"?\0\")", 38)},
        {std::string("1\0002", 3), std::string("operator expected (error in \"1?\0002\")", 35)},
        {std::string("1 + 2\0", 6), std::string("operator expected (error in \"1 + 2?\0\")", 38)},
        {"\xce\xb1 + 1", "valid operand expected (error in \"?\xce\xb1 + 1\")"},
        {"a \xef\xbc\x8b b", "operator expected (error in \"a ?\xef\xbc\x8b b\")"},
        {"1\xc2\xa0+ 1", "operator expected (error in \"1?\xc2\xa0+ 1\")"},
        {"1 \xe2\x88\x92 1", "operator expected (error in \"1 ?\xe2\x88\x92 1\")"},
        {"a + \xff\xfe", "valid operand expected (error in \"a + ?\xff\xfe\")"},
        {"\x80\xe4\xff", "valid operand expected (error in \"?\x80\xe4\xff\")"},
    };
    return rows;
}

struct ValueRow {
    std::string text;
    double value; ///< With a = 1, b = 2, t = 0.5.
};

const std::vector<ValueRow>& valueRows() {
    static const std::vector<ValueRow> rows{
        {"1e5", 100000.0},
        {"1e+2", 100.0},
        {"1e-2", 0.01},
        {"(1e+)", 1.0},
        {"1e+ * 2", 2.0},
        {"1.2.3", 1.2},
        {"1...", 1.0},
        {"1..e5", 1.0},
        {"1.e2", 100.0},
        {"1e5.2", 100000.0},
        {"1e400", INFINITY},
        {"1e-400", 0.0},
        {"007", 7.0},
        {"1 +\n\t2\v\f\r", 3.0},
        {"  a  ", 1.0},
        {"pi", 3.141592653589793},
        {"e", 2.718281828459045},
        {"-a * b", -2.0},
        {"-(1)", -1.0},
        {"- a", -1.0},
        {"2 - -3", 5.0},
        {"a * -b", -2.0},
        {"2 - 3 - 4", -5.0},
        {"8 / 4 / 2", 1.0},
        {"2 + 3 * 4", 14.0},
        {"(2 + 3) * 4", 20.0},
        {"2 * 3 + 4", 10.0},
        {"1 + 2 = 3", 0.0},
        {"5 ~ 2 + 1", 2.0},
        {"5/0", 1.7976931348623157e308},
        {"if(a = b, 1, 2)", 1.0},
        {"if ( a > b , 1 , 2 )", 2.0},
        {"square(3) + sqr(3)", 18.0},
        {"log(e) + ln(e)", 2.0},
        {"atan2(0, 1) + hypot(3, 4) + pow(2, 3) + mod(7, 4)", 16.0},
        {"sin (0)", 0.0},
        {"(((((((((1)))))))))", 1.0},
    };
    return rows;
}

} // namespace

TEST(VrexExprParser, WrongTextsAreRefusedByTheirMessages) {
    const Vars vars = someVars();
    for (const ErrorRow& row : errorRows()) {
        VrexExprParser parser(row.text, vars);
        EXPECT_EQ(parser.parse(), nullptr) << row.text;
        EXPECT_EQ(parser.getError(), row.error);
    }
}

TEST(VrexExprParser, GoodTextsHaveTheirValues) {
    const Vars vars = someVars();
    for (const ValueRow& row : valueRows()) {
        VrexExprParser parser(row.text, vars);
        const Expr root = parser.parse();
        ASSERT_NE(root, nullptr) << row.text << ": " << parser.getError();
        EXPECT_EQ(root->eval(), row.value) << row.text;
        EXPECT_EQ(parser.getError(), "");
    }
    EXPECT_TRUE(std::isnan(parsed("sqrt(-1) + mod(1, 0)")->eval()));
}

TEST(VrexExprParser, TreesHoldTheStructureOfTheText) {
    const Vars vars = someVars();
    const std::vector<std::pair<std::string, std::string>> rows{
        {"0 + a", "(5 (1 0x0p+0)(2 a))"},
        {"-2", "(3 (1 0x1p+1))"},
        {"+a", "(4 (2 a))"},
        {"-a * b", "(7 (3 (2 a))(2 b))"},
        {"a < b < t", "(23 (23 (2 a)(2 b))(2 t))"},
        {"a - b - t", "(6 (6 (2 a)(2 b))(2 t))"},
        {"a - b * t", "(6 (2 a)(7 (2 b)(2 t)))"},
        {"a > b + t", "(22 (2 a)(5 (2 b)(2 t)))"},
        {"a ~ b", "(30 (2 a)(2 b))"},
        {"a = b", "(26 (2 a)(2 b))"},
        {"if(a > b, 1, 2)", "(27 (22 (2 a)(2 b))(1 0x1p+0)(1 0x1p+1))"},
        {"2 * 3", "(7 (1 0x1p+1)(1 0x1.8p+1))"},
    };
    for (const auto& [text, shape] : rows) {
        EXPECT_EQ(shapeOf(*parsed(text, vars)), shape) << text;
    }
}

TEST(VrexExprParser, EachFunctionNameGivesItsCode) {
    const std::vector<std::pair<std::string, int>> rows{
        {"sin", 13},   {"cos", 12},   {"atan2", 16}, {"sqr", 9},    {"square", 9}, {"sqrt", 10},
        {"abs", 11},   {"sign", 28},  {"norm", 29},  {"acos", 14},  {"asin", 15},  {"exp", 19},
        {"sinh", 18},  {"cosh", 17},  {"sfres", 20}, {"cfres", 21}, {"if", 27},    {"tanh", 32},
        {"ceil", 33},  {"floor", 34}, {"pow", 35},   {"tan", 36},   {"atan", 37},  {"expm1", 38},
        {"hypot", 39}, {"ln", 40},    {"log", 40},   {"log10", 41}, {"log1p", 42}, {"mod", 43},
    };
    ASSERT_EQ(rows.size(), 30U);
    for (const auto& [name, code] : rows) {
        const int count = VrexExpr::getArgumentsNumber(static_cast<Op>(code));
        const std::string text = name + (count == 1 ? "(1)" : count == 2 ? "(1, 2)" : "(1, 2, 3)");
        EXPECT_EQ(static_cast<int>(parsed(text)->op), code) << text;
        EXPECT_EQ(errorOf(name, {VrexVar::create(name, 1.0)}),
                  "function arguments expected (error in \"" + name + "\")");
    }
}

TEST(VrexExprParser, ConstantsHideParameters) {
    const Vars vars{VrexVar::create("e", 5.0), VrexVar::create("pi", 6.0), VrexVar::create("E", 7.0)};
    EXPECT_EQ(parsed("e", vars)->eval(), 2.718281828459045);
    EXPECT_EQ(parsed("pi", vars)->eval(), 3.141592653589793);
    EXPECT_EQ(parsed("E", vars)->eval(), 7.0);
}

TEST(VrexExprParser, NamesHaveLettersDigitsAndUnderscores) {
    const Vars vars{VrexVar::create("_a1", 5.0), VrexVar::create("x_2y", 6.0), VrexVar::create("sina", 7.0)};
    EXPECT_EQ(parsed("_a1 + x_2y + sina", vars)->eval(), 18.0);
}

TEST(VrexExprParser, UnknownNamesBecomeNewParameters) {
    VrexExprParser parser("PI + v + u", someVars());
    const Expr root = parser.parse();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->eval(), 0.0);
    ASSERT_EQ(parser.getNewParameters().size(), 3U);
    EXPECT_EQ(parser.getNewParameters().begin()->first, "PI");
    EXPECT_TRUE(root->isDependOn(parser.getNewParameters().at("u")));
    EXPECT_EQ(parser.getNewParameters().at("u")->name, "u");
}

TEST(VrexExprParser, SecondOccurrenceOfAnUnknownNameReplacesTheFirst) {
    VrexExprParser parser("u - u");
    const Expr root = parser.parse();
    ASSERT_EQ(parser.getNewParameters().size(), 1U);
    EXPECT_NE(root->left->var, root->right->var);
    EXPECT_EQ(parser.getNewParameters().at("u"), root->right->var);
}

TEST(VrexExprParser, FirstOfARepeatedNameWins) {
    const Vars vars{VrexVar::create("x", 5.0), nullptr, VrexVar::create("x", 6.0)};
    EXPECT_EQ(parsed("x", vars)->eval(), 5.0);
}

TEST(VrexExprParser, NewParametersAreKeptAfterAFailure) {
    VrexExprParser parser("u + v $ w");
    EXPECT_EQ(parser.parse(), nullptr);
    EXPECT_EQ(parser.getNewParameters().size(), 2U);
}

TEST(VrexExprParser, SetStringStartsAfreshAndKeepsTheTables) {
    VrexExprParser parser("u $", someVars());
    EXPECT_EQ(parser.parse(), nullptr);
    parser.setString("a + v");
    EXPECT_EQ(parser.getError(), "");
    ASSERT_NE(parser.parse(), nullptr);
    EXPECT_EQ(parser.getError(), "");
    EXPECT_EQ(parser.getNewParameters().size(), 2U);
}

TEST(VrexExprParser, SecondParseStartsAtTheEnd) {
    VrexExprParser parser("1 + 2");
    EXPECT_NE(parser.parse(), nullptr);
    EXPECT_EQ(parser.parse(), nullptr);
    EXPECT_EQ(parser.getError(), "operand expected (error in \"1 + 2\")");
}

TEST(VrexExprParser, ParserIsCopiedAndMovedWithItsCursor) {
    VrexExprParser parser("1 + u");
    const VrexExprParser untouched = parser;
    ASSERT_NE(parser.parse(), nullptr);
    VrexExprParser copy = parser;
    EXPECT_EQ(copy.parse(), nullptr);
    copy = untouched;
    EXPECT_NE(copy.parse(), nullptr);
    VrexExprParser moved = std::move(copy);
    EXPECT_EQ(moved.getNewParameters().size(), 1U);
    moved = VrexExprParser("3");
    EXPECT_EQ(moved.parse()->eval(), 3.0);
}

TEST(VrexExprParser, NumbersHaveAPointInEveryLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    EXPECT_EQ(parsed("1.5")->eval(), 1.5);
    EXPECT_EQ(errorOf("1,5"), "unexpected token (error in \"1?,5\")");
    EXPECT_EQ(errorOf("\xe4"), "valid operand expected (error in \"?\xe4\")");
}
