#include "tools/vrex/VrexFile.h"

#include <cerrno>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

    void write(std::string_view text) {
        while (!text.empty()) {
            const ssize_t written =
                uninterrupted([&] { return ::write(m_descriptor, text.data(), text.size()); });
            if (written == -1) {
                fail("The file cannot be written.", m_path);
            }
            text.remove_prefix(static_cast<std::size_t>(written));
        }
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

void nsVrexFile::save(const std::filesystem::path& file, std::string_view text) {
    PartFile part(fs::exists(file) ? fs::canonical(file) : file);
    part.write(text);
    part.takePlace();
}
