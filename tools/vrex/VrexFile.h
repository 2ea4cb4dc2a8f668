#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Texts on disk and on the standard streams.
namespace nsVrexFile {

/// Writes `text` so that the file is at every moment the former one or the new one, whole, also when the
/// process or the machine dies: into a new file beside it, brought to the disk, which then takes its name.
/// An existing file keeps its permissions; a link keeps pointing to what is written. A process that is killed
/// may leave the file beside it, named after it and ending in ".part". What is no file on a disk, such as a
/// pipe, is written into.
///
/// Throws `std::filesystem::filesystem_error`, with the file as it was and nothing left beside it; so it does
/// (`EINTR`) when the user ends the program meanwhile.
void save(const std::filesystem::path& file, std::string_view text);

/// All that is in the file. Throws `std::filesystem::filesystem_error`.
std::string load(const std::filesystem::path& file);

/// All that is left on standard input. Throws `std::filesystem::filesystem_error`.
std::string loadStandardInput();

/// Throws `std::filesystem::filesystem_error` unless all of it is written.
void writeStandardOutput(std::string_view text);

} // namespace nsVrexFile
