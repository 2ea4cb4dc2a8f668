#include "tools/vrex/VrexDocumentWriter.h"

#include <exception>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "data/serialization/3d/VrexSystem3DSerializer.h"
#include "tolvbase/LumoJson.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocument.h"
#include "tools/vrex/VrexFile.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexToolFailure.h"
#include "tools/vrex/VrexUnwritable.h"

namespace {

[[noreturn]] void fail(const VrexDocument& document, const char* reason) {
    const VrexBaseObject* const object = nsVrexUnwritable::find(document.system);
    const std::string place = object != nullptr ? " at " + nsVrexObjectNames::nameOf(*object) : "";
    throw VrexToolFailure(VrexExitCode::INVALID, fmt::format("{} cannot be written as a document{}: {}",
                                                             document.title, place, reason));
}

void serialize(const VrexDocument& document, VrexSystem3DSerializer& serializer) {
    try {
        serializer.serialize(document.system);
    } catch (const std::exception& error) {
        fail(document, error.what());
    }
    for (const auto& [key, value] : document.furtherKeys) {
        serializer.addExtendedInformation(key, value); // Refuses what the system tells.
    }
}

} // namespace

std::string nsVrexDocument::textOf(const VrexDocument& document, std::uint64_t indentWidth) {
    VrexSerializationParameters parameters;
    parameters.indentWidth = indentWidth;
    VrexSystem3DSerializer serializer(parameters);
    serialize(document, serializer);
    return std::string(serializer.jsonStream());
}

LumoJson nsVrexDocument::jsonOf(const VrexDocument& document) {
    VrexSerializationParameters parameters;
    parameters.indentWidth = 0;
    VrexSystem3DSerializer serializer(parameters);
    serialize(document, serializer);
    return serializer.json();
}

void nsVrexDocument::expectOther(const std::string& input, const std::string& output) {
    std::error_code none;
    const std::string source = input == "-" ? "/dev/stdin" : input;
    if (output != "-" && std::filesystem::is_regular_file(output, none) &&
        std::filesystem::equivalent(source, output, none)) {
        throw VrexToolFailure(
            VrexExitCode::USAGE,
            fmt::format("{} is the input, which is never touched: name another file with --out.", output));
    }
}

void nsVrexDocument::expectOwnStream(const std::string& output, const VrexConsole& console) {
    if (output == "-" && console.options().isJson) {
        throw VrexToolFailure(
            VrexExitCode::USAGE,
            "With --json the report takes standard output: name a file for the document with --out.");
    }
}

void nsVrexDocument::printBeside(const std::string& output, const VrexReport& report,
                                 const VrexConsole& console) {
    output == "-" ? console.tell(report) : console.print(report);
}

void nsVrexDocument::write(const std::string& name, std::string_view bytes, const VrexConsole& console) {
    if (name == "-") {
        console.print(bytes);
        return;
    }
    try {
        const VrexProgress progress("writing " + name, console.showsProgress());
        nsVrexFile::save(name, bytes);
    } catch (const std::filesystem::filesystem_error& error) {
        throw VrexToolFailure(VrexExitCode::IO_FAILURE,
                              fmt::format("{} cannot be written: {}.", name, error.code().message()));
    }
    console.note(fmt::format("{} written, {} bytes.", name, bytes.size()));
}
