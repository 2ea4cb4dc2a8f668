#include "exchange/VrexUrdfReader.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "exchange/VrexUrdfAssembly.h"
#include "exchange/VrexUrdfFindings.h"
#include "exchange/VrexUrdfFollowers.h"
#include "exchange/VrexUrdfLoopFile.h"
#include "exchange/VrexUrdfParser.h"
#include "exchange/VrexUrdfTree.h"

namespace {

/// A text and what it is called.
struct Source {
    std::string name;
    std::string text;
};

[[noreturn]] void fail(const std::filesystem::path& file, int error) {
    throw std::filesystem::filesystem_error("cannot read", file,
                                            std::error_code(error, std::generic_category()));
}

Source load(const std::filesystem::path& file) {
    if (std::filesystem::is_directory(file)) {
        fail(file, EISDIR);
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        fail(file, errno);
    }
    Source source{file.string(), {std::istreambuf_iterator<char>(stream), {}}};
    if (stream.bad()) {
        fail(file, EIO);
    }
    return source;
}

VrexUrdfImport importFrom(const Source& robotSource, const Source& loopSource, bool isStrict) {
    VrexUrdfFindings findings(isStrict);
    VrexUrdfRobot robot = nsUrdfParser::parse(robotSource.text, robotSource.name, findings);
    if (!loopSource.text.empty()) {
        nsUrdfLoopFile::read(loopSource.text, loopSource.name, robot, findings);
    }
    const VrexUrdfTree tree(robot, findings);
    nsUrdfFollowers::settle(robot, tree, findings);
    VrexUrdfImport result;
    result.robotName = robot.name;
    if (!findings.hasErrors()) {
        result.system = VrexUrdfAssembly(tree).system();
    }
    result.findings = findings.sorted(robotSource.name);
    return result;
}

} // namespace

VrexUrdfReader::VrexUrdfReader(VrexUrdfOptions options) : m_options(std::move(options)) {}

VrexUrdfImport VrexUrdfReader::read(const std::filesystem::path& file) const {
    std::filesystem::path loopFile = m_options.loopFile;
    if (loopFile.empty()) {
        loopFile = loopFileBeside(file);
        if (!std::filesystem::exists(loopFile)) {
            return importFrom(load(file), {}, m_options.isStrict);
        }
    }
    return importFrom(load(file), load(loopFile), m_options.isStrict);
}

VrexUrdfImport VrexUrdfReader::readText(std::string_view robot, std::string_view loops) const {
    return importFrom({{}, std::string(robot)}, {m_options.loopFile.string(), std::string(loops)},
                      m_options.isStrict);
}

std::filesystem::path VrexUrdfReader::loopFileBeside(const std::filesystem::path& file) {
    return std::filesystem::path(file).replace_extension(".yaml");
}
