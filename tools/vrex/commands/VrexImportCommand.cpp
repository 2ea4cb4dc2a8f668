#include "tools/vrex/commands/VrexImportCommand.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "exchange/VrexUrdfReader.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexDocumentWriter.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

const char* textOf(VrexUrdfSeverity severity) {
    switch (severity) {
    case VrexUrdfSeverity::Note:
        return "note";
    case VrexUrdfSeverity::Warning:
        return "warning";
    default:
        return "error";
    }
}

std::string fileOf(const VrexUrdfFinding& finding, const std::string& title) {
    return finding.file.empty() ? title : nsVrexDocument::titleOf(finding.file);
}

/// File and line, as far as they are known.
std::string placeOf(const VrexUrdfFinding& finding, const std::string& title) {
    const std::string file = fileOf(finding, title);
    return finding.line > 0 ? fmt::format("{}:{}", file, finding.line) : file;
}

VrexUrdfImport read(const VrexImportCommand& command, const std::string& title, const VrexConsole& console) {
    VrexUrdfOptions options;
    options.isStrict = !command.isLenient;
    options.loopFile = command.loopFile;
    const VrexUrdfReader reader(options);
    if (command.input == "-" || command.loopFile == "-") {
        const std::string robot = nsVrexDocument::loadText(command.input, console);
        const std::string loops =
            command.loopFile.empty() ? "" : nsVrexDocument::loadText(command.loopFile, console);
        return reader.readText(robot, loops);
    }
    const VrexProgress progress("importing " + title, console.showsProgress());
    try {
        return reader.read(command.input);
    } catch (const std::filesystem::filesystem_error& error) {
        throw VrexToolFailure(
            VrexExitCode::IO_FAILURE,
            fmt::format("{} cannot be read: {}.", error.path1().string(), error.code().message()));
    }
}

VrexReport reportOf(const VrexUrdfImport& import, const std::string& title) {
    VrexReport report("import");
    const bool isImported = import.system.has_value();
    report.conclude(fmt::format("{} is {}imported, with {}.", title, isImported ? "" : "not ",
                                nsVrexObjectNames::countOf(import.findings.size(), "finding", "findings")),
                    isImported);
    report.add("imported", isImported);
    report.add("robot", import.robotName);
    report.add("geometries", isImported ? import.system->geometries().size() : 0);
    report.add("constraints", isImported ? import.system->constraints().size() : 0);
    auto& table = report.addTable("findings", {"severity", "file", "line", "name", "message"});
    for (const VrexUrdfFinding& finding : import.findings) {
        table.add({textOf(finding.severity), fileOf(finding, title),
                   finding.line > 0 ? LumoJson(finding.line) : LumoJson(), finding.name, finding.message});
    }
    return report;
}

/// Of what was found, the first error, and what can be done about all of them.
[[noreturn]] void fail(const VrexUrdfImport& import, const std::string& title) {
    std::vector<VrexUrdfFinding> errors;
    std::ranges::copy_if(import.findings, std::back_inserter(errors), [](const VrexUrdfFinding& finding) {
        return finding.severity == VrexUrdfSeverity::Error;
    });
    std::string sentence = fmt::format("{}: {}", placeOf(errors.front(), title), errors.front().message);
    if (errors.size() > 1) {
        sentence += fmt::format(" {}.", nsVrexObjectNames::countOf(errors.size() - 1, "further error follows",
                                                                   "further errors follow"));
    }
    if (std::ranges::all_of(errors, &VrexUrdfFinding::isDoubt)) {
        sentence += " With --lenient there are warnings instead.";
    }
    throw VrexToolFailure(VrexExitCode::INVALID, sentence);
}

} // namespace

VrexExitCode VrexImportCommand::run(const VrexConsole& console) const {
    if (input == "-" && loopFile == "-") {
        throw VrexToolFailure(VrexExitCode::USAGE,
                              "Only one of robot description and loop file can be standard input.");
    }
    nsVrexDocument::expectOwnStream(output, console);
    nsVrexDocument::expectOther(input, output);
    nsVrexDocument::expectOther(loopFile.empty() ? VrexUrdfReader::loopFileBeside(input).string() : loopFile,
                                output);
    const std::string title = nsVrexDocument::titleOf(input);
    const VrexUrdfImport import = read(*this, title, console);
    const VrexReport report = reportOf(import, title);
    if (import.system.has_value()) {
        nsVrexDocument::write(output, nsVrexDocument::textOf({title, *import.system, {}}), console);
    }
    nsVrexDocument::printBeside(output, report, console);
    if (!import.system.has_value()) {
        fail(import, title);
    }
    return VrexExitCode::FINE;
}
