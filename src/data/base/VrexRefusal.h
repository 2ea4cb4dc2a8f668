#pragma once

#include "data/VrexLog.h"
#include "data/base/VrexLogRecorder.h"

/// Hidden: how the library's own code refuses an input.
namespace nsRefusal {

/// Records the code and the formatted text, and logs the recorder's message at level 2 under `place`.
void refuse(nsLog::Place place, VrexLogRecorder& recorder, VrexErrorCode code, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

} // namespace nsRefusal

/// Records the refusal of an input and logs it at level 2; the operation then returns false or null with
/// nothing changed. The arguments behind the code are a printf format and its values.
#define VREX_REFUSE(RECORDER, CODE, ...) nsRefusal::refuse(VREX_HERE, RECORDER, CODE, __VA_ARGS__)
