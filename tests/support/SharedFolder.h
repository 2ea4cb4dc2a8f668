#pragma once

#include <cstdlib>
#include <filesystem>

/// The folder with the scripts and files that every checkout on a build machine shares; it may be missing.
inline std::filesystem::path sharedFolder() {
    const char* const named = std::getenv("VREX_SHARED_DIR");
    return named != nullptr ? std::filesystem::path(named)
                            : std::filesystem::path(VREX_SOURCE_DIR) / "../shared";
}
