#include "data/VrexLog.h"

#include <algorithm>
#include <cctype>
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

bool isNameCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// Behind the word "operator" and its symbol where they stand at `i`; otherwise `i`.
std::size_t behindOperator(std::string_view text, std::size_t i) {
    constexpr std::string_view word = "operator";
    const std::size_t symbol = i + word.size();
    if (!text.substr(i).starts_with(word) || (i > 0 && isNameCharacter(text[i - 1])) ||
        symbol == text.size() || isNameCharacter(text[symbol])) {
        return i;
    }
    // A type or a word stands behind a blank. A symbol may itself be "()", so its first character is passed.
    return text[symbol] == ' ' ? symbol : std::min(text.find('(', symbol + 1), text.size());
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
    bool isOperator = false; // whose name may hold blanks: "operator const char*"
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const std::size_t behind = behindOperator(text, i); depth == 0 && behind != i) {
            isOperator = true;
            i = behind;
        }
        const char c = i < text.size() ? text[i] : '(';
        if (c == '<' || (c == '(' && (depth > 0 || i == start))) { // "(anonymous namespace)" opens a name
            ++depth;
        } else if (depth > 0 && (c == '>' || c == ')')) {
            --depth;
        } else if (depth == 0 && !isOperator && (c == ' ' || c == '*' || c == '&')) {
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
