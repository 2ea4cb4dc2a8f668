#include "data/VrexLog.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace {

struct Thrower {
    static void fail() { VREX_RAISE(std::runtime_error, "It is 100% broken."); }
};

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
    const std::string& text = log.lines()[0].text;
    EXPECT_TRUE(text.ends_with("Thrower::fail(): It is 100% broken.")) << text;
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
    };
    for (const auto& [signature, name] : rows) {
        EXPECT_EQ(nsLog::qualifiedName(signature), name);
    }
}

} // namespace
