#pragma once

/// What the user asks for, from the arguments to the way the tool ends.
namespace nsVrexCommandLine {

/// The tool's exit code. Throws nothing: failures are told on standard error.
int run(int count, char** arguments);

} // namespace nsVrexCommandLine
