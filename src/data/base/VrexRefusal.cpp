#include "data/base/VrexRefusal.h"

#include <cstdarg>
#include <string>

#include "tolvbase/TolvFormat.h"

void nsRefusal::refuse(nsLog::Place place, VrexLogRecorder& recorder, VrexErrorCode code, const char* format,
                       ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string text = Tolv::formatStringV(format, arguments);
    va_end(arguments);
    recorder.recordMessage(code, "%s", text.c_str());
    nsLog::write(nsLog::REFUSAL, place, "%s", recorder.getErrorMessage());
}
