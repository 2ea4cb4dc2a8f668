#include "data/base/VrexRefusal.h"

#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace {

constexpr int REFUSAL_LINE = __LINE__ + 2;
bool refuseId(VrexLogRecorder& recorder, long long id) {
    VREX_REFUSE(recorder, VrexErrorCode::ID_INVALID, "No id %lld.", id);
    return false;
}

TEST(VrexRefusal, RecordsTheCodeAndLogsTheDecoratedMessageAtLevelTwo) {
    VrexLogRecorder recorder(3);
    const LogCapture log;
    EXPECT_FALSE(refuseId(recorder, -1));
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::ID_INVALID);
    EXPECT_STREQ(recorder.getErrorMessage(),
                 "sid:: 3, tid: , [0x30010002]: No id -1., ErrorCode: ID_INVALID.");
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].file, "VrexRefusalTest.cpp");
    EXPECT_EQ(log.lines()[0].line, REFUSAL_LINE);
    EXPECT_EQ(log.lines()[0].text, recorder.getErrorMessage());
}

TEST(VrexRefusal, IsRecordedAlsoWhenTheLevelIsNotWritten) {
    VrexLogRecorder recorder(3);
    const LogCapture log(1);
    refuseId(recorder, 5);
    EXPECT_EQ(recorder.getErrorCode(), VrexErrorCode::ID_INVALID);
    EXPECT_TRUE(log.lines().empty());
}

} // namespace
