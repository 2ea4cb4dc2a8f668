#include "data/base/VrexLogRecorder.h"

#include <cstdarg>
#include <utility>

#include "data/VrexLog.h"
#include "tolvbase/TolvFormat.h"

VrexLogRecorder::VrexLogRecorder(std::uint32_t solverId) : m_solverId(solverId) {}

VrexLogRecorder::~VrexLogRecorder() = default;

void VrexLogRecorder::recordMessage(VrexErrorCode code, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    // Formatted before any field changes: an argument may be this recorder's own text.
    std::string text = Tolv::formatStringV(format, arguments);
    va_end(arguments);
    if (code == VrexErrorCode::VREX_NO_ERROR) {
        m_logMessage = concatenateStrings("sid: " + std::to_string(m_solverId) + ", ", text);
        return;
    }
    m_errorCode = code;
    m_errorMessage = std::move(text);
    logMessage(code);
}

void VrexLogRecorder::appendLogMessage(const std::string& text) { m_errorMessage += text; }

void VrexLogRecorder::setTraceId(const char* traceId) { m_traceId = traceId != nullptr ? traceId : ""; }

void VrexLogRecorder::logMessage(VrexErrorCode code) {
    std::string text = concatenateStrings(m_errorMessage, ", ErrorCode: ");
    std::string bracket;
    if (const char* name = findErrorCodeName(code)) {
        text += concatenateStrings(name, ".");
        bracket = Tolv::formatString("[0x%08X]: ", static_cast<unsigned>(code));
    } else {
        // Kept: without a name the message has no bracket and no full stop.
        text += "Invalid Error code!";
        VREX_LOG(nsLog::FAILURE, "%s", text.c_str());
    }
    m_errorMessage.clear();
    m_errorMessage += "sid:: " + std::to_string(m_solverId) + ", " + "tid: " + m_traceId + ", ";
    m_errorMessage += concatenateStrings(bracket, text);
}

std::string VrexLogRecorder::concatenateStrings(const std::string& first, const std::string& second) {
    return first + second;
}
