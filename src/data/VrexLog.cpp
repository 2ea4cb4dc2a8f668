#include "data/VrexLog.h"

#include <cstdarg>
#include <cstring>
#include <exception>
#include <string_view>

#include "tolvbase/TolvFormat.h"
#include "tolvbase/TolvLog.h"

namespace {

Tolv::SLogParam logParam(std::uint32_t level, nsLog::Place place) {
    const char* name = place.file;
    for (const char* c = place.file; *c != '\0'; ++c) {
        if (*c == '/' || *c == '\\') {
            name = c + 1;
        }
    }
    return {nsLog::CHANNEL, level, name, static_cast<std::int32_t>(std::strlen(name)), place.line};
}

} // namespace

bool nsLog::isWritten(std::uint32_t level) { return Tolv::IsWriteLog(CHANNEL, level); }

void nsLog::write(std::uint32_t level, Place place, const char* format, ...) noexcept {
    if (!isWritten(level)) {
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    try {
        const std::string text = Tolv::formatStringV(format, arguments);
        Tolv::SLogParam param = logParam(level, place);
        Tolv::Log(param, "%s", text.c_str());
    } catch (const std::exception&) {
        // Without memory for the line there is no line; what it tells of happens all the same.
    }
    va_end(arguments);
}

std::string nsLog::qualifiedName(const char* signature) {
    const std::string_view text = signature;
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '<' || (c == '(' && (depth > 0 || i == start))) { // "(anonymous namespace)" opens a name
            ++depth;
        } else if (depth > 0 && (c == '>' || c == ')')) {
            --depth;
        } else if (depth == 0 && (c == ' ' || c == '*' || c == '&')) {
            start = i + 1;
        } else if (depth == 0 && c == '(') {
            return std::string(text.substr(start, i - start));
        }
    }
    return std::string(text);
}

void nsLog::writeFailure(Place place, const char* signature, const std::string& text) {
    if (isWritten(FAILURE)) {
        write(FAILURE, place, "%s(): %s", qualifiedName(signature).c_str(), text.c_str());
    }
}
