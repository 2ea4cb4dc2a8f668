#pragma once

#include <filesystem>
#include <string_view>

/// Texts on disk.
namespace nsVrexFile {

/// Writes `text` so that the file is at every moment the former one or the new one, whole, also when the
/// process or the machine dies: into a new file beside it, brought to the disk, which then takes its name.
/// An existing file keeps its permissions; a link keeps pointing to what is written. A process that dies may
/// leave the file beside it, named after it and ending in ".part".
///
/// Throws `std::filesystem::filesystem_error`, with the file as it was and nothing left beside it.
void save(const std::filesystem::path& file, std::string_view text);

} // namespace nsVrexFile
