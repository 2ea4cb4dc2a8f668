#include "tools/vrex/VrexFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tools/vrex/VrexInterruption.h"

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* what, const fs::path& file) {
    throw fs::filesystem_error(what, file, std::error_code(errno, std::generic_category()));
}

/// Calls again while signals interrupt.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// So much at a time, so that the user can end a long writing.
constexpr std::size_t MOST_AT_ONCE = 1 << 18;

void writeAll(int descriptor, const fs::path& file, std::string_view text, VrexInterruption& interruption) {
    while (!text.empty()) {
        if (interruption.takeNote()) {
            errno = EINTR;
            fail("The writing was ended.", file);
        }
        const ssize_t written = ::write(descriptor, text.data(), std::min(text.size(), MOST_AT_ONCE));
        if (written == -1 && errno != EINTR) {
            fail("The file cannot be written.", file);
        }
        text.remove_prefix(written == -1 ? 0 : static_cast<std::size_t>(written));
    }
}

std::string readAll(int descriptor, const fs::path& file) {
    constexpr std::size_t LEAST_ROOM = 1 << 16;
    struct stat status = {};
    const bool isSizeKnown = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    std::string text;
    // One byte more than there is, so that the end shows without another piece.
    text.resize(isSizeKnown ? static_cast<std::size_t>(status.st_size) + 1 : LEAST_ROOM);
    std::size_t size = 0;
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return read(descriptor, text.data() + size, text.size() - size); });
        if (count == -1) {
            fail("The file cannot be read.", file);
        }
        if (count == 0) {
            text.resize(size);
            return text;
        }
        size += static_cast<std::size_t>(count);
        if (size == text.size()) {
            text.resize(2 * size);
        }
    }
}

/// Closes what is open.
class Descriptor {
public:
    Descriptor(const fs::path& file, int flags)
        : m_number(uninterrupted([&] { return open(file.c_str(), flags | O_CLOEXEC); })) {
        if (m_number == -1) {
            fail("The file cannot be opened.", file);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(m_number); }
    int number() const { return m_number; }

private:
    int m_number;
};

/// A new file beside another one, which is gone when this dies, unless it took the other one's place.
class PartFile {
public:
    explicit PartFile(const fs::path& target) : m_target(target) {
        for (int number = 0; m_descriptor == -1; ++number) {
            m_path = target.string().append(".").append(std::to_string(getpid())).append("-");
            m_path += std::to_string(number).append(".part");
            m_descriptor = uninterrupted(
                [&] { return open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); });
            if (m_descriptor == -1 && errno != EEXIST) {
                fail("The file cannot be created.", m_path);
            }
        }
        struct stat former = {};
        if (stat(target.c_str(), &former) == 0 && fchmod(m_descriptor, former.st_mode & 07777) != 0) {
            const int error = errno;
            drop();
            errno = error;
            fail("The file cannot be given the permissions of the former one.", m_path);
        }
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() { drop(); }

    void write(std::string_view text, VrexInterruption& interruption) {
        writeAll(m_descriptor, m_path, text, interruption);
    }

    /// First what is in it, then its name has to reach the disk.
    void takePlace() {
        if (uninterrupted([&] { return fsync(m_descriptor); }) != 0) {
            fail("The file cannot be brought to the disk.", m_path);
        }
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        if (close(descriptor) != 0 && errno != EINTR) {
            fail("The file cannot be closed.", m_path);
        }
        if (rename(m_path.c_str(), m_target.c_str()) != 0) {
            fail("The file cannot take the place of the former one.", m_target);
        }
        m_path.clear();
        flushFolder();
    }

private:
    /// Not every file system can, and the file is whole either way.
    void flushFolder() const {
        const fs::path folder = m_target.has_parent_path() ? m_target.parent_path() : ".";
        const int descriptor =
            uninterrupted([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
        if (descriptor != -1) {
            uninterrupted([&] { return fsync(descriptor); });
            close(descriptor);
        }
    }
    void drop() noexcept {
        if (m_descriptor != -1) {
            close(m_descriptor);
            m_descriptor = -1;
        }
        if (!m_path.empty()) {
            unlink(m_path.c_str());
            m_path.clear();
        }
    }

    fs::path m_target;
    fs::path m_path; ///< Empty once there is nothing to remove.
    int m_descriptor = -1;
};

} // namespace

void nsVrexFile::save(const fs::path& file, std::string_view text) {
    const fs::file_status status = fs::status(file);
    if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status)) {
        const Descriptor target(file, O_WRONLY); // May wait for a reader, and nothing has been begun.
        VrexInterruption interruption;
        writeAll(target.number(), file, text, interruption);
        return;
    }
    VrexInterruption interruption;
    PartFile part(fs::exists(status) ? fs::canonical(file) : file);
    part.write(text, interruption);
    part.takePlace();
}

std::string nsVrexFile::load(const fs::path& file) {
    return readAll(Descriptor(file, O_RDONLY).number(), file);
}

std::string nsVrexFile::loadStandardInput() { return readAll(STDIN_FILENO, "standard input"); }

void nsVrexFile::writeStandardOutput(std::string_view text) {
    VrexInterruption interruption;
    writeAll(STDOUT_FILENO, "standard output", text, interruption);
}
