#pragma once

#include <cstdint>
#include <string>

#include "data/VrexExport.h"
#include "data/base/VrexErrorCode.h"

/// Keeps the last refusal, code and text, for the caller that owns it and hands it to managers, factories and
/// validators. Not locked: one thread at a time.
class VREX_DATA_EXPORT VrexLogRecorder {
public:
    explicit VrexLogRecorder(std::uint32_t solverId);
    VrexLogRecorder(const VrexLogRecorder&) = default;
    VrexLogRecorder& operator=(const VrexLogRecorder&) = default;
    virtual ~VrexLogRecorder();

    /// Records a printf-formatted text. With a code other than 0 it becomes the error message, as
    /// "sid:: 3, tid: T, [0x30000002]: text, ErrorCode: ID_EXISTED.", in place of the former one; a number
    /// that is no code is kept, and reads "Invalid Error code!". With code 0 it becomes the log message,
    /// "sid: 3, text", and an earlier error stays. A null format is an empty text.
    void recordMessage(VrexErrorCode code, const char* format, ...) __attribute__((format(printf, 3, 4)));
    /// Kept: appends to the error message, despite the name; the log message stays.
    void appendLogMessage(const std::string& text);

    VrexErrorCode getErrorCode() const { return m_errorCode; }
    /// "No Error!" at first. Valid until the next change, as is `getLogMessage`.
    const char* getErrorMessage() const { return m_errorMessage.c_str(); }
    const char* getLogMessage() const { return m_logMessage.c_str(); }
    bool isNoError() const { return m_errorCode == VrexErrorCode::VREX_NO_ERROR; }

    /// Stores the pointer: the caller keeps the text alive. Null stands for an empty text.
    void setTraceId(const char* traceId);

protected:
    /// Decorates the error message just stored with solver, trace, code and the code's name.
    void logMessage(VrexErrorCode code);
    static std::string concatenateStrings(const std::string& first, const std::string& second);

private:
    std::string m_errorMessage = "No Error!";
    std::string m_logMessage;
    VrexErrorCode m_errorCode = VrexErrorCode::VREX_NO_ERROR;
    const char* m_traceId = "";
    std::uint32_t m_solverId;
};
