#include "tools/vrex/VrexConsole.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <fmt/format.h>
#include <unistd.h>

#include "tools/vrex/VrexFile.h"
#include "tools/vrex/VrexHarmlessText.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

/// See no-color.org.
bool isColoured(int descriptor) { return isatty(descriptor) == 1 && std::getenv("NO_COLOR") == nullptr; }

/// Where talk cannot be heard, the exit code still tells.
void put(const std::string& text) { std::fputs(text.c_str(), stderr); }

} // namespace

VrexConsole::VrexConsole() : VrexConsole(Options()) {}

VrexConsole::VrexConsole(Options options) : m_options(options) {}

bool VrexConsole::showsProgress() const { return !m_options.isQuiet && isatty(STDERR_FILENO) == 1; }

bool VrexConsole::isOutputTerminal() const { return isatty(STDOUT_FILENO) == 1; }

void VrexConsole::print(const VrexReport& report) const {
    print(m_options.isJson ? report.toJson() : report.toText(isColoured(STDOUT_FILENO)));
}

void VrexConsole::print(std::string_view text) const {
    try {
        nsVrexFile::writeStandardOutput(text);
    } catch (const std::filesystem::filesystem_error& error) {
        throw VrexToolFailure(VrexExitCode::IO_FAILURE,
                              fmt::format("Standard output cannot be written: {}.", error.code().message()));
    }
}

void VrexConsole::note(std::string_view sentence) const {
    if (!m_options.isQuiet) {
        say("", "", sentence);
    }
}

void VrexConsole::fail(std::string_view sentence) const { say("\033[31m", "error: ", sentence); }

void VrexConsole::tell(const VrexReport& report) const {
    if (!m_options.isQuiet) {
        put(report.toText(isColoured(STDERR_FILENO)));
    }
}

void VrexConsole::say(std::string_view colour, std::string_view kind, std::string_view sentence) {
    const bool hasColour = !colour.empty() && isColoured(STDERR_FILENO);
    put(fmt::format("vrex: {}{}{}{}\n", hasColour ? colour : "", kind, hasColour ? "\033[0m" : "",
                    nsVrexHarmlessText::of(sentence)));
}
