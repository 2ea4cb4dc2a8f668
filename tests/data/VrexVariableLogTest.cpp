#include "data/VrexVariableLog.h"

#include <functional>
#include <iomanip>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "support/GermanLocale.h"
#include "support/LoggingSamples.h"
#include "support/ScalarSamples.h"

using nsLoggingSamples::Inputs;
using nsLoggingSamples::named;
using nsLoggingSamples::nextTemporary;
using nsScalarSamples::make;

namespace {

using enum VrexLogOperationType;

struct TextRow {
    std::function<VrexVariable(const Inputs&)> formula;
    std::string prefix, infix;
};

#define ROW(FORMULA, PREFIX, INFIX)                                                                          \
    TextRow {                                                                                                \
        []([[maybe_unused]] const Inputs& v) -> VrexVariable {                                               \
            const auto &a = v.a, &b = v.b, &c = v.c;                                                         \
            (void)a, (void)b, (void)c;                                                                       \
            return FORMULA;                                                                                  \
        },                                                                                                   \
            PREFIX, INFIX                                                                                    \
    }

} // namespace

TEST(VrexVariableLog, TextsAreAsWritten) {
    const std::vector<TextRow> rows{
        ROW(a, "[a]", "a"),
        ROW(a + b, "[a,b,+]", "a + b"),
        ROW(a - b, "[a,b,-]", "a - b"),
        ROW(a * b, "[a,b,*]", "a * b"),
        ROW(a / b, "[a,b,/]", "a / b"),
        ROW(a + 1.5, "[a,1.5,+]", "a + 1.5"),
        ROW(1.5 + a, "[1.5,a,+]", "1.5 + a"),
        ROW(a - 1.5, "[a,1.5,-]", "a - 1.5"),
        ROW(1.5 - a, "[1.5,a,-]", "1.5 - a"),
        ROW(a * 1.5, "[a,1.5,*]", "a * 1.5"),
        ROW(1.5 * a, "[1.5,a,*]", "1.5 * a"),
        ROW(a / 1.5, "[a,1.5,/]", "a / 1.5"),
        ROW(1.5 / a, "[1.5,a,/]", "1.5 / a"),
        ROW(-a, "[a,negate]", "-(a)"),
        ROW(-(a + b), "[a,b,+,negate]", "-(a + b)"),
        ROW(-a * b, "[a,negate,b,*]", "-(a) * b"),
        ROW(abs(a), "[a,abs]", "abs(a)"),
        ROW(sign(a), "[a,sign]", "sign(a)"),
        ROW(sqrt(a), "[a,sqrt]", "sqrt(a)"),
        ROW(exp(a), "[a,exp]", "exp(a)"),
        ROW(log(a), "[a,log]", "log(a)"),
        ROW(pow(a, b), "[a,b,pow]", "pow(a, b)"),
        ROW(pow(a, 2.0), "[a,2,pow]", "pow(a, 2)"),
        ROW(pow(2.0, a), "[2,a,pow]", "pow(2, a)"),
        ROW(cos(a), "[a,cos]", "cos(a)"),
        ROW(sin(a), "[a,sin]", "sin(a)"),
        ROW(tan(a), "[a,tan]", "tan(a)"),
        ROW(acos(a), "[a,acos]", "acos(a)"),
        ROW(asin(a), "[a,asin]", "asin(a)"),
        ROW(atan(a), "[a,atan]", "atan(a)"),
        ROW(atan2(a, b), "[a,b,atan2]", "atan2(a, b)"),
        ROW(atan2(a, 2.0), "[a,2,atan2]", "atan2(a, 2)"),
        ROW(atan2(2.0, a), "[2,a,atan2]", "atan2(2, a)"),
        ROW(cosh(a), "[a,cosh]", "cosh(a)"),
        ROW(sinh(a), "[a,sinh]", "sinh(a)"),
        ROW(tanh(a), "[a,tanh]", "tanh(a)"),
        ROW(square(a), "[a,square]", "square(a)"),
        ROW(hypot2(a, b), "[a,b,hypot2]", "hypot2(a, b)"),
        ROW(hypot2(a, 2.0), "[a,2,hypot2]", "hypot2(a, 2)"),
        ROW(hypot2(2.0, a), "[2,a,hypot2]", "hypot2(2, a)"),
        ROW(frac(a), "[a,frac]", "frac(a)"),
        ROW(trunc(a), "[a,trunc]", "trunc(a)"),
        ROW(expm1(a), "[a,expm1]", "expm1(a)"),
        ROW(log1p(a), "[a,log1p]", "log1p(a)"),
        ROW(ceil(a), "[a,ceil]", "ceil(a)"),
        ROW(floor(a), "[a,floor]", "floor(a)"),
        ROW(erf(a), "[a,erf]", "erf(a)"),
        ROW(fmod(a, b), "[a,b,fmod]", "fmod(a, b)"),
        ROW(fmod(a, 2.0), "[a,2,fmod]", "fmod(a, 2)"),
        ROW(fmod(2.0, a), "[2,a,fmod]", "fmod(2, a)"),
        ROW(fmin(a, b), "[a,b,min]", "min(a, b)"),
        ROW(fmax(a, b), "[a,b,max]", "max(a, b)"),
        // Kept: wrapped only where the operand's number is strictly greater.
        ROW((a + b) - c, "[a,b,+,c,-]", "(a + b) - c"),
        ROW(a - (b - c), "[a,b,c,-,-]", "a - b - c"),
        ROW(a / (b / c), "[a,b,c,/,/]", "a / b / c"),
        ROW(a - (b + c), "[a,b,c,+,-]", "a - (b + c)"),
        ROW((a - b) + c, "[a,b,-,c,+]", "a - b + c"),
        ROW((a + b) * c, "[a,b,+,c,*]", "(a + b) * c"),
        ROW((a * b) / c, "[a,b,*,c,/]", "(a * b) / c"),
        ROW(a * b + c, "[a,b,*,c,+]", "a * b + c"),
        ROW(sin(a + b) * c, "[a,b,+,sin,c,*]", "sin(a + b) * c"),
        ROW(pow(a + b, c - a), "[a,b,+,c,a,-,pow]", "pow(a + b, c - a)"),
    };
    for (const TextRow& row : rows) {
        const VrexVariable result = row.formula(Inputs());
        EXPECT_EQ(result.convertLogToString(), row.prefix);
        EXPECT_EQ(result.convertLogToStringInfix(), row.infix);
        EXPECT_EQ(result.convertLogToString(), row.prefix);
    }
}

TEST(VrexVariableLog, WithoutALogTheTextsAreEmpty) {
    VrexVariable variable = named("a", 1.0, 0);
    variable.disableLog();
    EXPECT_EQ(variable.logSize(), 0U);
    EXPECT_EQ(variable.convertLogToString(), "");
    EXPECT_EQ(variable.convertLogToStringInfix(), "");
}

TEST(VrexVariableLog, ANullOrEmptyNameShowsTheNumber) {
    for (const char* name : {static_cast<const char*>(nullptr), ""}) {
        VrexVariable variable(2.5);
        variable.enableLog(name);
        EXPECT_EQ(variable.convertLogToString(), "[['',2.5]]");
        EXPECT_EQ(variable.convertLogToStringInfix(), "2.5");
    }
}

TEST(VrexVariableLog, EnablingAgainStartsAnew) {
    const Inputs inputs;
    VrexVariable sum = inputs.a + inputs.b;
    EXPECT_EQ(sum.logSize(), 3U);
    sum.enableLog("sum");
    EXPECT_EQ(sum.convertLogToString(), "[sum]");
}

TEST(VrexVariableLog, FinishedSubExpressionsAreOneEntry) {
    const Inputs v;
    VrexVariable chain = v.a + v.b;
    for (int i = 0; i < 20; ++i) {
        chain = chain * v.c;
        EXPECT_EQ(chain.logSize(), 3U);
    }
    EXPECT_EQ(sin(v.a).logSize(), 2U);
}

TEST(VrexVariableLog, AnOperandWithAnEmptyStoreEntersAsAConstantAlthoughItLogs) {
    VrexVariable constant(4.0);
    constant.enableLog("k");
    const VrexVariable a = named("a", 0.5, 0);
    EXPECT_EQ((constant + a).convertLogToString(), "[4,a,+]");
    EXPECT_EQ((a + constant).convertLogToString(), "[a,4,+]");
    EXPECT_EQ(atan2(constant, a).convertLogToString(), "[4,a,atan2]");
    EXPECT_EQ(pow(a, floor(a)).convertLogToString(), "[a,0,pow]");
    EXPECT_EQ((constant + constant).convertLogToString(), "[4,k,+]");
    // Kept: these two never turn an operand into a number.
    EXPECT_EQ(fmin(constant, a).convertLogToString(), "[k,a,min]");
    EXPECT_EQ(hypot(constant, a).logSize(), 3U);
}

TEST(VrexVariableLog, AChoiceRecordsTheOwnLogOfAnOperandWithAnEmptyStore) {
    VrexVariable k(4.0);
    k.enableLog("k");
    const VrexVariable a = named("a", 0.5, 0);
    EXPECT_EQ(fmin(a, k).convertLogToString(), "[a,k,min]");
    EXPECT_EQ(fmax(a, k).convertLogToString(), "[a,k,max]");
    EXPECT_EQ(fmin(a, k * 2.0).convertLogToString(), "[a,k,2,*,min]");
    EXPECT_EQ(fmax(k * 2.0, a).convertLogToString(), "[k,2,*,a,max]");
    EXPECT_EQ(fmax(a, k * 2.0).logSize(), 3U);
}

TEST(VrexVariableLog, FormsOfOneOperandRecordItsOwnLogAlthoughItsStoreIsEmpty) {
    VrexVariable k(4.0);
    k.enableLog("k");
    const VrexVariable twice = k * 2.0;
    struct Row {
        VrexVariable single, collapsed;
        std::string prefix;
    };
    for (const Row& row : {Row{floor(k), floor(twice), "floor]"},
                           {ceil(k), ceil(twice), "ceil]"},
                           {trunc(k), trunc(twice), "trunc]"},
                           {sin(k), sin(twice), "sin]"},
                           {-k, -twice, "negate]"},
                           {k + 1.0, twice + 1.0, "1,+]"}}) {
        EXPECT_EQ(row.single.convertLogToString(), "[k," + row.prefix);
        EXPECT_EQ(row.collapsed.convertLogToString(), "[k,2,*," + row.prefix);
        EXPECT_EQ(row.single.logSize(), row.collapsed.logSize());
    }
}

TEST(VrexVariableLog, ACompoundFormRecordsTheOwnLogOfARightSideWithAnEmptyStore) {
    VrexVariable k(4.0);
    k.enableLog("k");
    struct Row {
        VrexVariable& (VrexVariable::*apply)(const VrexVariable&);
        std::string name;
    };
    for (const Row& row : {Row{&VrexVariable::operator+=, "+=]"},
                           {&VrexVariable::operator-=, "-=]"},
                           {&VrexVariable::operator*=, "*=]"},
                           {&VrexVariable::operator/=, "/=]"}}) {
        VrexVariable a = named("a", 0.5, 0);
        (a.*row.apply)(k);
        EXPECT_EQ(a.convertLogToString(), "[a,k," + row.name);
        VrexVariable b = named("b", 0.5, 0);
        (b.*row.apply)(floor(k + 1.0));
        EXPECT_EQ(b.convertLogToString(), "[b,k,1,+,floor," + row.name);
        EXPECT_EQ(b.logSize(), 3U);
    }
}

TEST(VrexVariableLog, StepFunctionsLogAlthoughTheirStoreIsEmpty) {
    const VrexVariable a = named("a", 1.5, 0);
    const VrexVariable step = floor(a + 1.0);
    EXPECT_EQ(step.convertLogToString(), "[a,1,+,floor]");
    EXPECT_EQ((step * a).convertLogToString(), "[2,a,*]");
}

TEST(VrexVariableLog, AConstantLikeALoggingVariableIsANamedTemporary) {
    const VrexVariable a = named("a", 0.5, 0);
    const int before = nextTemporary(a);
    const VrexVariable constant(0.1, a);
    const std::string name = "tmp_var_" + std::to_string(before + 1) + "[0.1]";
    EXPECT_EQ(constant.convertLogToString(), "[" + name + "]");
    EXPECT_EQ(constant.convertLogToStringInfix(), name);
    EXPECT_EQ(VrexVariable(0.1, VrexVariable(1.0)).logSize(), 0U);
}

TEST(VrexVariableLog, TheTemporaryNameSurvivesWhereOnlyTheFirstOperandLogs) {
    const VrexVariable a = named("a", 0.5, 0);
    const VrexVariable silent = make(0.25, {{1, 1.0}});
    const int before = nextTemporary(a);
    EXPECT_EQ((a + silent).convertLogToString(), "[tmp_var_" + std::to_string(before + 1) + "[0.75]]");
    EXPECT_EQ(hypot(a, silent).convertLogToString().substr(0, 9), "[tmp_var_");
    EXPECT_EQ((silent + a).logSize(), 0U);
    EXPECT_EQ(hypot(silent, a).logSize(), 0U);
    EXPECT_EQ(nextTemporary(a), before + 3);
    EXPECT_EQ(fmin(a, silent).logSize(), 0U);
    EXPECT_EQ(fmax(a, silent).convertLogToString(), "[a]");
    EXPECT_EQ(nextTemporary(a), before + 4);
}

TEST(VrexVariableLog, EveryFormButProductsWithANumberAndChoicesDrawsATemporary) {
    const Inputs v;
    struct Row {
        std::function<void(const Inputs&)> run;
        int drawn;
    };
    const std::vector<Row> rows{
        {[](const Inputs& i) { (void)(i.a + i.b); }, 1},
        {[](const Inputs& i) { (void)(i.a * i.b); }, 1},
        {[](const Inputs& i) { (void)(i.a + 1.0); }, 1},
        {[](const Inputs& i) { (void)(1.0 + i.a); }, 1},
        {[](const Inputs& i) { (void)(i.a - 1.0); }, 1},
        {[](const Inputs& i) { (void)(1.0 - i.a); }, 1},
        {[](const Inputs& i) { (void)(i.a / 2.0); }, 1},
        {[](const Inputs& i) { (void)(2.0 / i.a); }, 1},
        {[](const Inputs& i) { (void)(i.a * 2.0); }, 0},
        {[](const Inputs& i) { (void)(2.0 * i.a); }, 0},
        {[](const Inputs& i) { (void)-i.a; }, 1},
        {[](const Inputs& i) { (void)sin(i.a); }, 1},
        {[](const Inputs& i) { (void)floor(i.a); }, 1},
        {[](const Inputs& i) { (void)pow(i.a, 2.0); }, 1},
        {[](const Inputs& i) { (void)pow(2.0, i.a); }, 1},
        {[](const Inputs& i) { (void)hypot(i.a, i.b); }, 1},
        {[](const Inputs& i) { (void)fmin(i.a, i.b); }, 0},
        {[](const Inputs& i) { (void)fmax(i.a, i.b); }, 0},
        {[](const Inputs& i) {
             auto s = i.a;
             s += i.b;
         },
         0},
        {[](const Inputs& i) {
             auto s = i.a;
             s *= 2.0;
         },
         0},
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int before = nextTemporary(v.a);
        rows[i].run(v);
        EXPECT_EQ(nextTemporary(v.a) - before - 1, rows[i].drawn) << "row " << i;
    }
}

TEST(VrexVariableLog, CompoundFormsExtendTheLogInPlace) {
    const Inputs v;
    VrexVariable sum = v.a;
    sum += v.b;
    EXPECT_EQ(sum.convertLogToString(), "[a,b,+=]");
    sum -= 1.5;
    sum *= v.b * v.c;
    sum /= 2.0;
    EXPECT_EQ(sum.logSize(), 9U);
    EXPECT_EQ(sum.convertLogToString(), "[a,b,+=,1.5,-=,b,c,*,*=,2,/=]");
    EXPECT_EQ(v.a.logSize(), 1U);
}

TEST(VrexVariableLog, ACompoundFormWithASilentRightSideLeavesTheLog) {
    VrexVariable sum = named("a", 0.5, 0);
    sum += make(1.0, {{1, 1.0}});
    sum -= make(1.0, {{1, 1.0}});
    sum *= make(1.0, {{1, 1.0}});
    sum /= make(1.0, {{1, 1.0}});
    EXPECT_EQ(sum.convertLogToString(), "[a]");
    VrexVariable silent = make(0.5, {{0, 1.0}});
    silent += named("b", 2.0, 1);
    silent += 1.0;
    EXPECT_EQ(silent.logSize(), 0U);
}

TEST(VrexVariableLog, ACompoundFormTakesItsOwnLeftSide) {
    VrexVariable sum = named("a", 0.5, 0);
    sum += sum;
    EXPECT_EQ(sum.convertLogToString(), "[a,a,+=]");
    sum *= sum;
    EXPECT_EQ(sum.convertLogToString(), "[a,a,+,a,a,+=,*=]");
    EXPECT_EQ(sum.convertLogToStringInfix(), "(a + a) * (a + a)");
}

TEST(VrexVariableLog, PrintingInfixRewritesCompoundOperationsForGoodInAllCopies) {
    VrexVariable sum = named("a", 0.5, 0);
    sum += 2.0;
    sum *= 3.0;
    const VrexVariable copy = sum;
    EXPECT_EQ(copy.convertLogToString(), "[a,2,+=,3,*=]");
    EXPECT_EQ(sum.convertLogToStringInfix(), "(a + 2) * 3");
    EXPECT_EQ(sum.convertLogToString(), "[a,2,+,3,*]");
    EXPECT_EQ(copy.convertLogToString(), "[a,2,+,3,*]");
}

TEST(VrexVariableLog, AllFourCompoundOperationsAreRewritten) {
    VrexVariable sum = named("a", 0.5, 0);
    sum += 1.0;
    sum -= 2.0;
    sum *= 3.0;
    sum /= 4.0;
    EXPECT_EQ(sum.convertLogToStringInfix(), "(((a + 1) - 2) * 3) / 4");
    EXPECT_EQ(sum.convertLogToString(), "[a,1,+,2,-,3,*,4,/]");
}

TEST(VrexVariableLog, ACollapsedCompoundKeepsItsNameInThePrefixAndThePriorityOfTheRewrittenOne) {
    const Inputs v;
    VrexVariable sum = v.a;
    sum += v.b;
    const VrexVariable first = sum + v.c;
    EXPECT_EQ(first.convertLogToString(), "[a,b,+=,c,+]");
    EXPECT_EQ(first.convertLogToStringInfix(), "a + b + c");
    const VrexVariable second = sum + v.c;
    EXPECT_EQ(second.convertLogToString(), "[a,b,+,c,+]");
    EXPECT_EQ(second.convertLogToStringInfix(), "a + b + c");
}

TEST(VrexVariableLog, NumbersHaveSixteenDigitsInDefaultFormat) {
    const double inf = std::numeric_limits<double>::infinity();
    for (const double number : {0.0, -0.0, 1.0, 0.1, 1.0 / 3.0, 1e16, 1e15, 123456789012345678.0, 1e-5, 1e-4,
                                1e300, 5e-324, -2.5, inf, -inf, std::nan("")}) {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream << std::setprecision(16) << number;
        EXPECT_EQ(VrexVariableLog::formatNumber(number), stream.str());
    }
    EXPECT_EQ(VrexVariableLog::formatNumber(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(VrexVariableLog::formatNumber(1e16), "1e+16");
}

TEST(VrexVariableLog, MoreDigitsAreNeverPrinted) {
    VrexVariable a(1.0 / 3.0);
    a.enableLog("");
    VrexVariable::logUseMoreDigits(true);
    EXPECT_EQ(a.convertLogToString(), "[['',0.3333333333333333]]");
    VrexVariable::logUseMoreDigits(false);
    EXPECT_EQ(a.convertLogToString(), "[['',0.3333333333333333]]");
}

TEST(VrexVariableLog, TextsIgnoreTheProcessLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    const VrexVariable a = named("a", 0.5, 0);
    const VrexVariable product = VrexVariable(1234567.5, a) * a;
    const std::string temporary = VrexVariable(1234567.5, a).convertLogToStringInfix();
    EXPECT_EQ((a + 1234567.25).convertLogToString(), "[a,1234567.25,+]");
    EXPECT_EQ((a + 1234567.25).convertLogToStringInfix(), "a + 1234567.25");
    EXPECT_EQ(temporary.substr(temporary.find('[')), "[1234567.5]");
    EXPECT_EQ(temporary.find_first_of(".,"), temporary.find(".5"));
    EXPECT_EQ(product.convertLogToString(), "[1234567.5,a,*]");
}
