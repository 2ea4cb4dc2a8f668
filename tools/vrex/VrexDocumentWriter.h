#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class LumoJson;
class VrexConsole;
class VrexReport;
struct VrexDocument;

/// What the user names as output: a file or, for "-", standard output.
namespace nsVrexDocument {

/// The text of the document. Throws `VrexToolFailure` for a system that no document can hold.
std::string textOf(const VrexDocument& document, std::uint64_t indentWidth = 4);

/// The same as a value.
LumoJson jsonOf(const VrexDocument& document);

/// Throws `VrexToolFailure` where the output is the input, which is never touched.
void expectOther(const std::string& input, const std::string& output);

/// Throws `VrexToolFailure` where report and document would go to standard output both.
void expectOwnStream(const std::string& output, const VrexConsole& console);

/// Prints the report; on standard error, where the document has taken standard output.
void printBeside(const std::string& output, const VrexReport& report, const VrexConsole& console);

/// Throws `VrexToolFailure`, with a former file as it was.
void write(const std::string& name, std::string_view bytes, const VrexConsole& console);

} // namespace nsVrexDocument
