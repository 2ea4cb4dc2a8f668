#include "tools/vrex/VrexFile.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// A process of its own that does so. It never comes back into the tests: an exception of the file system
/// ends it with the error's code.
template <class Action>
pid_t startChild(Action action) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            action();
        } catch (const fs::filesystem_error& error) {
            _exit(error.code().value());
        }
        _exit(0);
    }
    return child;
}

int statusOf(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    return status;
}

class VrexFile : public testing::Test {
protected:
    void SetUp() override {
        m_folder = fs::temp_directory_path() / ("vrex_file_test_" + std::to_string(getpid()));
        fs::create_directories(m_folder);
        m_file = m_folder / "system.json";
    }
    void TearDown() override { fs::remove_all(m_folder); }

    static std::string textOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::ptrdiff_t countFiles() const { return std::distance(fs::directory_iterator(m_folder), {}); }

    fs::path m_folder;
    fs::path m_file;
};

TEST_F(VrexFile, WritesBytesAsTheyAre) {
    const std::string text("a\r\nb\0c\xFF", 7);
    nsVrexFile::save(m_file, text);
    EXPECT_EQ(textOf(m_file), text);
    nsVrexFile::save(m_file, "");
    EXPECT_EQ(textOf(m_file), "");
    EXPECT_EQ(countFiles(), 1);
}

TEST_F(VrexFile, TakesTheNameOfAFileInTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(m_folder);
    nsVrexFile::save("here", "text");
    fs::current_path(before);
    EXPECT_EQ(textOf(m_folder / "here"), "text");
}

TEST_F(VrexFile, KeepsPermissionsAndLinks) {
    nsVrexFile::save(m_file, "first");
    fs::permissions(m_file, fs::perms(0640));
    fs::create_symlink(m_file, m_folder / "link");
    nsVrexFile::save(m_folder / "link", "second");
    EXPECT_EQ(textOf(m_file), "second");
    EXPECT_TRUE(fs::is_symlink(m_folder / "link"));
    EXPECT_EQ(fs::status(m_file).permissions(), fs::perms(0640));
    EXPECT_EQ(countFiles(), 2);
}

TEST_F(VrexFile, AFolderThatIsNotThereIsAnException) {
    EXPECT_THROW(nsVrexFile::save(m_folder / "none" / "file", "text"), fs::filesystem_error);
    EXPECT_EQ(countFiles(), 0);
}

TEST_F(VrexFile, ANameThatAFolderHasIsAnExceptionAndNothingIsLeft) {
    fs::create_directory(m_file);
    EXPECT_THROW(nsVrexFile::save(m_file, "text"), fs::filesystem_error);
    EXPECT_TRUE(fs::is_directory(m_file));
    EXPECT_EQ(countFiles(), 1);
}

TEST_F(VrexFile, AWriteThatFailsHalfWayLeavesTheFormerFileAlone) {
    nsVrexFile::save(m_file, "former");
    struct rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit little = before;
    little.rlim_cur = 1000;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &little), 0);
    EXPECT_THROW(nsVrexFile::save(m_file, std::string(5000, 'x')), fs::filesystem_error);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(textOf(m_file), "former");
    EXPECT_EQ(countFiles(), 1);
}

TEST_F(VrexFile, LoadsWhatWasSaved) {
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, std::size_t{65536}, std::size_t{300'000}}) {
        const std::string text(size, 'z');
        nsVrexFile::save(m_file, text);
        EXPECT_EQ(nsVrexFile::load(m_file), text);
    }
    EXPECT_THROW(nsVrexFile::load(m_folder / "none"), fs::filesystem_error);
    EXPECT_THROW(nsVrexFile::load(m_folder), fs::filesystem_error);
}

TEST_F(VrexFile, WhatIsNoFileOnADiskIsWrittenInto) {
    EXPECT_THROW(nsVrexFile::save("/dev/full", "text"), fs::filesystem_error);
    nsVrexFile::save("/dev/null", "text");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(VrexFile, ASignalEndsAWritingCleanly) {
    nsVrexFile::save(m_file, "former");
    const pid_t child = startChild([this] {
        for (;;) {
            nsVrexFile::save(m_file, "latter");
        }
    });
    for (int i = 0; i < 10'000 && textOf(m_file) != "latter"; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    kill(child, SIGTERM);
    const int status = statusOf(child);
    // By the exception where the signal came before the text was written, otherwise by the signal itself.
    EXPECT_TRUE(WIFEXITED(status) ? WEXITSTATUS(status) == EINTR : WTERMSIG(status) == SIGTERM) << status;
    EXPECT_EQ(textOf(m_file), "latter");
    EXPECT_EQ(countFiles(), 1);
}

TEST_F(VrexFile, AProcessThatIsKilledLeavesAWholeFile) {
    const std::string texts[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    nsVrexFile::save(m_file, texts[0]);
    for (int round = 0; round < 5; ++round) {
        const pid_t child = startChild([&] {
            for (std::size_t i = 0;; ++i) {
                nsVrexFile::save(m_file, texts[i % 2]);
            }
        });
        for (int i = 0; i < 10; ++i) {
            const std::string text = textOf(m_file);
            EXPECT_TRUE(text == texts[0] || text == texts[1]) << text.size();
        }
        std::this_thread::sleep_for(std::chrono::microseconds(1000 * round));
        kill(child, SIGKILL);
        const int status = statusOf(child);
        EXPECT_TRUE(WIFSIGNALED(status)) << status;
        const std::string text = textOf(m_file);
        EXPECT_TRUE(text == texts[0] || text == texts[1]) << text.size();
    }
}

} // namespace
