#pragma once

#include <string>

#include "tools/vrex/VrexDocument.h"

class VrexConsole;

/// What the user names as input: a document or a stream, in a file or, for "-", on standard input.
namespace nsVrexDocument {

/// What messages and reports call the input.
std::string titleOf(const std::string& name);

/// All that is in the input. Throws `VrexToolFailure`.
std::string loadText(const std::string& name, const VrexConsole& console);

/// What is in the input. Throws `VrexDocumentFailure` for a document that is none, `VrexToolFailure` for
/// everything else that fails. A stream has no tolerances: the system gets those of a system that sets none.
VrexDocument read(const std::string& name, const VrexConsole& console);

} // namespace nsVrexDocument
