#pragma once

#include <cstdint>
#include <string>

/// Hidden: how the library's own code writes to the log, channel 1, and raises exceptions.
namespace nsLog {

constexpr std::uint32_t CHANNEL = 1;

/// Failures that end in an exception.
constexpr std::uint32_t FAILURE = 1;
/// Refused input, and advice.
constexpr std::uint32_t REFUSAL = 2;
constexpr std::uint32_t DIAGNOSTIC = 4;

/// A line of a source file, by the path that the compiler was given.
struct Place {
    const char* file;
    int line;
};

bool isWritten(std::uint32_t level);

/// Writes one line if the sink takes the level; the file is named without its directories.
void write(std::uint32_t level, Place place, const char* format, ...) noexcept
    __attribute__((format(printf, 3, 4)));

/// "Class::operation" out of the compiler's signature of a function, `__PRETTY_FUNCTION__`.
std::string qualifiedName(const char* signature);

/// The level 1 line "%s(): %s" of an exception about to be thrown.
void writeFailure(Place place, const char* signature, const std::string& text);

template <class Exception>
[[noreturn]] void raise(Place place, const char* signature, const std::string& text) {
    writeFailure(place, signature, text);
    throw Exception(text);
}

} // namespace nsLog

#define VREX_HERE                                                                                            \
    nsLog::Place { __FILE__, __LINE__ }

/// Logs at `LEVEL`; the arguments are a printf format and its values, evaluated only if the line is written.
#define VREX_LOG(LEVEL, ...)                                                                                 \
    (nsLog::isWritten(LEVEL) ? nsLog::write(LEVEL, VREX_HERE, __VA_ARGS__) : static_cast<void>(0))

/// Broken internal state or corrupt data: logs "%s(): %s" at level 1 and throws `EXCEPTION(TEXT)`.
#define VREX_RAISE(EXCEPTION, TEXT) nsLog::raise<EXCEPTION>(VREX_HERE, __PRETTY_FUNCTION__, TEXT)
