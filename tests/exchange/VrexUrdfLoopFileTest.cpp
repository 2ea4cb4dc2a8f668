#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "exchange/Told.h"

namespace {

using enum VrexUrdfSeverity;

/// A folder of this process for files, removed in the end.
struct Scratch {
    std::filesystem::path path =
        std::filesystem::path(testing::TempDir()) / ("vrex_urdf_" + std::to_string(getpid()));
    Scratch() { std::filesystem::create_directories(path); }
    ~Scratch() { std::filesystem::remove_all(path); }
    std::filesystem::path write(const std::string& name, const std::string& text) const {
        std::ofstream(path / name) << text;
        return path / name;
    }
};

TEST(VrexUrdfLoopFile, ALoopFileIsHeldToItsForm) {
    const std::string text = jointOf("continuous", "");
    const struct {
        const char* loops;
        Told told;
    } cases[] = {
        {"[1, 2]", {Error, 1, "closed_loop", "The loop file is no list of keys and values."}},
        {"type: []", {Error, 1, "closed_loop", "The loop file has no list closed_loop."}},
        {"type: ['6d']\nclosed_loop: []",
         {Error, 2, "type", "The loop file needs a type for each pair of closed_loop."}},
        {"closed_loop:\n - [a]\ntype: ['6d']",
         {Error, 2, "closed_loop", "A loop of closed_loop is no pair of frames."}},
        {"closed_loop:\n - [a, x]\ntype: ['6d']", {Error, 2, "a x", "loop \"a x\": there is no link \"x\"."}},
        {"closed_loop: [[a, '']]\ntype: ['3d']", {Error, 1, "a ", "loop \"a \": there is no link \"\"."}},
        {"closed_loop: [\n",
         {Error, 2, "YAML", "The loop file cannot be read: end of sequence flow not found."}},
        {"closed_loop: []\ntype: []\n---\nclosed_loop: [[a, b]]\ntype: ['6d']",
         {Error, 4, "closed_loop", "The loop file holds more than one document."}},
        {"closed_loop: []\ntype: []\nclosed_loop: []",
         {Error, 3, "closed_loop", "closed_loop stands here twice."}},
        {"closed_loop:\n - [a, \xE9]\ntype: ['6d']",
         {Error, 2, "UTF-8", "The loop file is not valid UTF-8."}},
        {"closed_loop: []\ntype: []\nname_mot: []", {Note, 3, "name_mot", "name_mot has no counterpart."}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.loops);
        const auto result = readText(text, true, row.loops);
        EXPECT_EQ(result.system.has_value(), row.told.severity == Note);
        EXPECT_THAT(toldOf(result), testing::ElementsAre(row.told));
    }
}

TEST(VrexUrdfLoopFile, AFileOfTheSameNameWithoutLoopsIsDoubtful) {
    const auto result = readText(jointOf("continuous", ""), false, "type: []");
    EXPECT_TRUE(result.system.has_value());
    EXPECT_THAT(toldOf(result),
                testing::ElementsAre(Told{Warning, 1, "closed_loop",
                                          "The loop file has no list closed_loop. It closes no loop."}));
}

TEST(VrexUrdfLoopFile, TextsOfLoopsGoByTheNameOfTheOptions) {
    const auto result = VrexUrdfReader({true, "mine.yaml"})
                            .readText(jointOf("continuous", ""), "closed_loop: []\ntype: []\nother: 1\n");
    ASSERT_EQ(result.findings.size(), 1U);
    EXPECT_EQ(result.findings[0].file, "mine.yaml");
    EXPECT_EQ(result.findings[0].line, 3);
}

TEST(VrexUrdfLoopFile, TheLoopFileBesideTheRobotIsReadAndNamed) {
    const Scratch scratch;
    const auto robot = scratch.write("r.urdf", jointOf("continuous", ""));
    const auto loops = scratch.write("r.yaml", "closed_loop: [[a, x]]\ntype: ['6d']\n");
    const auto result = VrexUrdfReader().read(robot);
    ASSERT_EQ(result.findings.size(), 1U);
    EXPECT_EQ(result.findings[0].file, loops.string());
    EXPECT_EQ(result.findings[0].line, 1);
    const auto other = scratch.write("other.yaml", "closed_loop: []\ntype: []\n");
    EXPECT_TRUE(VrexUrdfReader({true, other}).read(robot).system.has_value());
}

TEST(VrexUrdfLoopFile, AFileThatCannotBeReadThrows) {
    const Scratch scratch;
    const auto robot = scratch.write("r.urdf", jointOf("continuous", ""));
    EXPECT_THROW(VrexUrdfReader().read(scratch.path / "none.urdf"), std::filesystem::filesystem_error);
    EXPECT_THROW(VrexUrdfReader().read(scratch.path), std::filesystem::filesystem_error);
    EXPECT_THROW(VrexUrdfReader({true, scratch.path / "none.yaml"}).read(robot),
                 std::filesystem::filesystem_error);
}

} // namespace
