#include "data/VrexLog.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace {

struct Thrower {
    static constexpr int LINE = __LINE__ + 1;
    static void fail() { VREX_RAISE(std::runtime_error, "It is 100% broken."); }

    static constexpr int LESS_LINE = __LINE__ + 1;
    bool operator<(int) const { VREX_RAISE(std::runtime_error, "no order"); }

    static constexpr int CALL_LINE = __LINE__ + 1;
    void operator()(int) const { VREX_RAISE(std::runtime_error, "no call"); }
};

/// The one line that `call` logs before it throws.
template <class Call>
LogCapture::Line lineOfFailure(Call call) {
    const LogCapture log;
    EXPECT_THROW(call(), std::runtime_error);
    EXPECT_EQ(log.lines().size(), 1U);
    return log.lines().empty() ? LogCapture::Line{} : log.lines()[0];
}

TEST(VrexLog, RaiseLogsTheQualifiedNameAndThrowsTheText) {
    const LogCapture log;
    try {
        Thrower::fail();
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "It is 100% broken.");
    }
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].file, "VrexLogTest.cpp");
    EXPECT_EQ(log.lines()[0].line, Thrower::LINE);
    const std::string& text = log.lines()[0].text;
    EXPECT_TRUE(text.ends_with("Thrower::fail(): It is 100% broken.")) << text;
}

TEST(VrexLog, RaiseInAnOperatorNamesTheOperator) {
    const LogCapture::Line less = lineOfFailure([] { return Thrower{} < 1; });
    EXPECT_TRUE(less.text.ends_with("Thrower::operator<(): no order")) << less.text;
    EXPECT_EQ(less.line, Thrower::LESS_LINE);
    EXPECT_EQ(less.file, "VrexLogTest.cpp");
    const LogCapture::Line call = lineOfFailure([] { Thrower{}(1); });
    EXPECT_TRUE(call.text.ends_with("Thrower::operator()(): no call")) << call.text;
    EXPECT_EQ(call.line, Thrower::CALL_LINE);
}

TEST(VrexLog, LogNamesItsOwnLineAndFile) {
    const LogCapture log;
    constexpr int line = __LINE__ + 1;
    VREX_LOG(nsLog::REFUSAL, "%s", "here");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].line, line);
    EXPECT_EQ(log.lines()[0].file, "VrexLogTest.cpp");
}

TEST(VrexLog, LineIsEvaluatedOnlyWhenTheLevelIsWritten) {
    int evaluated = 0;
    const auto count = [&evaluated] { return ++evaluated; };
    VREX_LOG(nsLog::REFUSAL, "%d", count());
    EXPECT_EQ(evaluated, 0);
    const LogCapture log(nsLog::REFUSAL);
    VREX_LOG(nsLog::DIAGNOSTIC, "%d", count());
    EXPECT_EQ(evaluated, 0);
    VREX_LOG(nsLog::REFUSAL, "%d", count());
    EXPECT_EQ(evaluated, 1);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].text, "1");
}

TEST(VrexLog, FileIsNamedWithoutItsDirectories) {
    const LogCapture log;
    nsLog::write(nsLog::REFUSAL, {"C:\\work\\src/data\\A.cpp", 12}, "x");
    nsLog::write(nsLog::REFUSAL, {"B.cpp", 13}, "y");
    ASSERT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0].file, "A.cpp");
    EXPECT_EQ(log.lines()[0].line, 12);
    EXPECT_EQ(log.lines()[1].file, "B.cpp");
}

TEST(VrexLog, QualifiedNameIsCutOutOfTheSignature) {
    const std::pair<const char*, const char*> rows[] = {
        {"void free(int)", "free"},
        {"static bool VrexA::check(const std::string&, int)", "VrexA::check"},
        {"std::vector<int, std::allocator<int> > VrexA::list() const", "VrexA::list"},
        {"const std::string& VrexA<T>::label(long) const [with T = int]", "VrexA<T>::label"},
        {"const char* VrexA::text()", "VrexA::text"},
        {"VrexA::VrexA(std::map<int, int>)", "VrexA::VrexA"},
        {"void {anonymous}::f()", "{anonymous}::f"},
        {"void VrexA<std::function<void()> >::f()", "VrexA<std::function<void()> >::f"},
        {"void (anonymous namespace)::f()", "(anonymous namespace)::f"},
        {"bool VrexA::operator<(const VrexA&) const", "VrexA::operator<"},
        {"bool VrexA::operator>(const VrexA&) const", "VrexA::operator>"},
        {"auto VrexA::operator<=>(const VrexA&) const", "VrexA::operator<=>"},
        {"std::ostream& operator<<(std::ostream&, const VrexA&)", "operator<<"},
        {"const VrexA* VrexA::operator->() const", "VrexA::operator->"},
        {"VrexA& VrexA::operator*=(double)", "VrexA::operator*="},
        {"VrexA* VrexA::operator&()", "VrexA::operator&"},
        {"void VrexA::operator()(int) const", "VrexA::operator()"},
        {"double& VrexA<T>::operator[](int) [with T = double]", "VrexA<T>::operator[]"},
        {"VrexA::operator const char*() const", "VrexA::operator const char*"},
        {"VrexA::operator std::vector<int>() const", "VrexA::operator std::vector<int>"},
        {"void VrexA::operators()", "VrexA::operators"},
        {"void VrexA::my_operator(int)", "VrexA::my_operator"},
        {"bool operator", "bool operator"},
        {"bool operator<", "operator<"},
    };
    for (const auto& [signature, name] : rows) {
        EXPECT_EQ(nsLog::qualifiedName(signature), name);
    }
}

} // namespace
