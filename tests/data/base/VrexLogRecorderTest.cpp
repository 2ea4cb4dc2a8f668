#include "data/base/VrexLogRecorder.h"

#include <string>

#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "support/LogCapture.h"

namespace {

constexpr auto UNKNOWN_CODE = static_cast<VrexErrorCode>(0x70000003);

TEST(VrexLogRecorder, NewRecorderSaysNoError) {
    const VrexLogRecorder recorder(3);
    EXPECT_STREQ(recorder.getErrorMessage(), "No Error!");
    EXPECT_STREQ(recorder.getLogMessage(), "");
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::VREX_NO_ERROR);
    EXPECT_TRUE(recorder.isNoError());
}

TEST(VrexLogRecorder, ErrorIsDecoratedWithSolverTraceCodeAndName) {
    VrexLogRecorder recorder(3);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "x");
    EXPECT_STREQ(recorder.getErrorMessage(), "sid:: 3, tid: , [0x30000002]: x, ErrorCode: ID_EXISTED.");
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::ID_EXISTED);
    EXPECT_FALSE(recorder.isNoError());
    EXPECT_STREQ(recorder.getLogMessage(), "");
}

TEST(VrexLogRecorder, MessageIsFormattedAndTraceIdShown) {
    VrexLogRecorder recorder(4294967295U);
    recorder.setTraceId("trace-7");
    recorder.recordMessage(VrexErrorCode::CONSTRAINT_PARAM_ERROR, "%d of %s", 2, "three");
    EXPECT_STREQ(
        recorder.getErrorMessage(),
        "sid:: 4294967295, tid: trace-7, [0x20060003]: 2 of three, ErrorCode: CONSTRAINT_PARAM_ERROR.");
}

TEST(VrexLogRecorder, SecondErrorReplacesTheFirst) {
    VrexLogRecorder recorder(1);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "first");
    recorder.recordMessage(VrexErrorCode::ID_INVALID, "second");
    EXPECT_STREQ(recorder.getErrorMessage(), "sid:: 1, tid: , [0x30010002]: second, ErrorCode: ID_INVALID.");
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::ID_INVALID);
}

TEST(VrexLogRecorder, CodeZeroBecomesTheLogMessageAndLeavesTheErrorAlone) {
    VrexLogRecorder recorder(3);
    recorder.recordMessage(VrexErrorCode::VREX_NO_ERROR, "x");
    EXPECT_STREQ(recorder.getErrorMessage(), "No Error!");
    EXPECT_STREQ(recorder.getLogMessage(), "sid: 3, x");

    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "error");
    const std::string error = recorder.getErrorMessage();
    recorder.recordMessage(VrexErrorCode::VREX_NO_ERROR, "y");
    EXPECT_EQ(recorder.getErrorMessage(), error);
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::ID_EXISTED);
    EXPECT_STREQ(recorder.getLogMessage(), "sid: 3, y");
}

TEST(VrexLogRecorder, UnknownCodeIsKeptAndSaidWithoutFullStop) {
    VrexLogRecorder recorder(3);
    const LogCapture log;
    recorder.recordMessage(UNKNOWN_CODE, "x");
    EXPECT_EQ(recorder.getErrorCode(), UNKNOWN_CODE);
    EXPECT_STREQ(recorder.getErrorMessage(), "sid:: 3, tid: , x, ErrorCode: Invalid Error code!");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, 1U);
    EXPECT_EQ(log.lines()[0].file, "VrexLogRecorder.cpp");
    EXPECT_EQ(log.lines()[0].text, "x, ErrorCode: Invalid Error code!");
}

TEST(VrexLogRecorder, KnownCodeWritesNothingToTheLogItself) {
    VrexLogRecorder recorder(3);
    const LogCapture log;
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "x");
    EXPECT_TRUE(log.lines().empty());
}

TEST(VrexLogRecorder, SharedCodePrintsSolveFailure) {
    VrexLogRecorder recorder(0);
    recorder.recordMessage(VrexErrorCode::KS_MESSAGE_TIMEOUT, "late");
    EXPECT_STREQ(recorder.getErrorMessage(), "sid:: 0, tid: , [0x20000006]: late, ErrorCode: SOLVE_FAILURE.");
}

TEST(VrexLogRecorder, AppendLogMessageAppendsToTheErrorMessage) {
    VrexLogRecorder recorder(3);
    recorder.recordMessage(VrexErrorCode::VREX_NO_ERROR, "log");
    recorder.appendLogMessage(" and more");
    EXPECT_STREQ(recorder.getErrorMessage(), "No Error! and more");
    EXPECT_STREQ(recorder.getLogMessage(), "sid: 3, log");
}

TEST(VrexLogRecorder, OwnMessageMayBeAnArgument) {
    VrexLogRecorder recorder(3);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "x");
    recorder.recordMessage(VrexErrorCode::ID_INVALID, "again: %s", recorder.getErrorMessage());
    EXPECT_STREQ(recorder.getErrorMessage(),
                 "sid:: 3, tid: , [0x30010002]: again: sid:: 3, tid: , [0x30000002]: x, "
                 "ErrorCode: ID_EXISTED., ErrorCode: ID_INVALID.");
}

TEST(VrexLogRecorder, MegabyteOfPercentSignsPassesUnharmed) {
    std::string text;
    while (text.size() < 1'000'000) {
        text += "%s%n%d%%";
    }
    VrexLogRecorder recorder(3);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "%s", text.c_str());
    EXPECT_EQ(recorder.getErrorMessage(),
              "sid:: 3, tid: , [0x30000002]: " + text + ", ErrorCode: ID_EXISTED.");
}

TEST(VrexLogRecorder, NullFormatAndNullTraceAreEmptyTexts) {
    VrexLogRecorder recorder(3);
    const char* const noFormat = nullptr;
    recorder.setTraceId(nullptr);
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, noFormat);
    EXPECT_STREQ(recorder.getErrorMessage(), "sid:: 3, tid: , [0x30000002]: , ErrorCode: ID_EXISTED.");
}

TEST(VrexLogRecorder, TextsIgnoreTheProcessLocale) {
    const GermanLocale locale;
    ASSERT_TRUE(GermanLocale::isSet());
    VrexLogRecorder recorder(1'234'567);
    recorder.recordMessage(VrexErrorCode::VREX_NO_ERROR, "%.1f of %d", 0.5, 1'000'000);
    EXPECT_STREQ(recorder.getLogMessage(), "sid: 1234567, 0.5 of 1000000");
    recorder.recordMessage(VrexErrorCode::TOLERANCE_OUTOF_RANGE, "%g", 1.5);
    EXPECT_STREQ(recorder.getErrorMessage(),
                 "sid:: 1234567, tid: , [0x30000004]: 1.5, ErrorCode: TOLERANCE_OUTOF_RANGE.");
}

TEST(VrexLogRecorder, CopyTakesEveryField) {
    VrexLogRecorder recorder(3);
    recorder.setTraceId("t");
    recorder.recordMessage(VrexErrorCode::VREX_NO_ERROR, "log");
    recorder.recordMessage(VrexErrorCode::ID_EXISTED, "x");
    VrexLogRecorder copy(recorder);
    VrexLogRecorder assigned(9);
    assigned = recorder;
    for (VrexLogRecorder* other : {&copy, &assigned}) {
        EXPECT_STREQ(other->getErrorMessage(), recorder.getErrorMessage());
        EXPECT_STREQ(other->getLogMessage(), "sid: 3, log");
        EXPECT_EQ(other->getErrorCode(), VrexErrorCode::ID_EXISTED);
        other->recordMessage(VrexErrorCode::ID_INVALID, "y");
        EXPECT_STREQ(other->getErrorMessage(), "sid:: 3, tid: t, [0x30010002]: y, ErrorCode: ID_INVALID.");
    }
}

} // namespace
