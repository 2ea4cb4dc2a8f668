#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class VrexConsole;
struct VrexDocument;

/// What the user names as output: a file or, for "-", standard output.
namespace nsVrexDocument {

/// The text of the document. Throws `VrexToolFailure` for a system that no document can hold.
std::string textOf(const VrexDocument& document, std::uint64_t indentWidth = 4);

/// Throws `VrexToolFailure` where the output is the input, which is never touched.
void expectOther(const std::string& input, const std::string& output);

/// Throws `VrexToolFailure`, with a former file as it was.
void write(const std::string& name, std::string_view bytes, const VrexConsole& console);

} // namespace nsVrexDocument
