#pragma once

#include <cstdio>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "data/base/VrexLogRecorder.h"
#include "support/LogCapture.h"

/// What the recorder of solver 3 holds after a refusal.
inline std::string refusalText(VrexErrorCode code, const std::string& text) {
    char number[16];
    std::snprintf(number, sizeof number, "[0x%08X]: ", static_cast<unsigned>(code));
    return "sid:: 3, tid: , " + std::string(number) + text + ", ErrorCode: " + findErrorCodeName(code) + ".";
}

/// Expects `call` to refuse once: with the code and the whole text in the recorder, and with one line at
/// level 2, which does not have what is `appended` to the recorder's text afterwards.
inline void expectRefusal(VrexLogRecorder& recorder, VrexErrorCode code, const std::string& text,
                          const std::function<void()>& call, const std::string& appended = "") {
    recorder = VrexLogRecorder(3);
    const LogCapture log;
    call();
    EXPECT_EQ(recorder.getErrorCode(), code);
    EXPECT_EQ(recorder.getErrorMessage(), refusalText(code, text) + appended);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines()[0].channel, 1U);
    EXPECT_EQ(log.lines()[0].level, 2U);
    EXPECT_EQ(log.lines()[0].text, refusalText(code, text));
}
