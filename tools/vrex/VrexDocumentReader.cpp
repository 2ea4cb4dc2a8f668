#include "tools/vrex/VrexDocumentReader.h"

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "data/base/VrexIDGenerator.h"
#include "data/serialization/3d/VrexSystem3DDeserializer.h"
#include "data/serialization/VrexJsonKeys.h"
#include "tolvbase/LumoJson.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocumentFault.h"
#include "tools/vrex/VrexFile.h"
#include "tools/vrex/VrexHarmlessText.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexSystemStream.h"
#include "tools/vrex/VrexToolFailure.h"

namespace keys = nsJsonKeys;

namespace {

bool isListOfObjects(std::string_view key) {
    return key == keys::OBJECTS || key == keys::VARIABLES || key == keys::CONSTRAINTS ||
           key == keys::EQUATIONS;
}

LumoJson parse(const std::string& title, const std::string& text) {
    try {
        return LumoJson::parse(text);
    } catch (const std::runtime_error& error) {
        const std::size_t begin = text.find_first_not_of(" \t\r\n");
        const bool isXml = begin != std::string::npos && text[begin] == '<';
        throw VrexDocumentFailure(fmt::format("{} is no JSON document: {}{}", title, error.what(),
                                              isXml ? " A robot description is read by vrex import." : ""),
                                  {});
    }
}

VrexImmutableSystem3D replay(const std::string& title, const LumoJson& json) {
    VrexIDGenerator generator;
    VrexSystem3DDeserializer deserializer(generator, {});
    VrexImmutableSystem3D system;
    try {
        deserializer.deserialize(json, system);
    } catch (const std::exception& error) {
        const VrexDocumentFault fault = nsVrexDocumentFault::find(json, deserializer, error.what());
        throw VrexDocumentFailure(
            fmt::format("{} cannot be read at {}: {}", title, fault.where, fault.message), fault.pointer);
    }
    return system;
}

/// Which of them are the system's, the writer knows.
std::vector<std::pair<std::string, LumoJson>> furtherKeysOf(const LumoJson& json) {
    std::vector<std::pair<std::string, LumoJson>> found;
    for (auto member = json.begin(); member != json.end(); ++member) {
        if (!isListOfObjects(member.key())) {
            found.emplace_back(member.key(), *member);
        }
    }
    return found;
}

} // namespace

std::string nsVrexDocument::titleOf(const std::string& name) {
    return name == "-" ? "Standard input" : nsVrexHarmlessText::of(name);
}

std::string nsVrexDocument::loadText(const std::string& name, const VrexConsole& console) {
    const VrexProgress progress("loading " + titleOf(name), console.showsProgress());
    try {
        return name == "-" ? nsVrexFile::loadStandardInput() : nsVrexFile::load(name);
    } catch (const std::filesystem::filesystem_error& error) {
        throw VrexToolFailure(VrexExitCode::IO_FAILURE,
                              fmt::format("{} cannot be read: {}.", titleOf(name), error.code().message()));
    }
}

VrexDocument nsVrexDocument::read(const std::string& name, const VrexConsole& console) {
    VrexDocument document{titleOf(name), {}, {}};
    std::string text = loadText(name, console);
    const VrexProgress progress("reading " + document.title, console.showsProgress());
    if (nsVrexSystemStream::isStream(text)) {
        document.system = nsVrexSystemStream::decode(document.title, text);
        return document;
    }
    const LumoJson json = parse(document.title, text);
    std::string().swap(text); // An assignment would keep its room, and the system needs it.
    document.system = replay(document.title, json);
    document.furtherKeys = furtherKeysOf(json);
    return document;
}
