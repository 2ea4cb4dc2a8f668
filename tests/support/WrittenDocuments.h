#pragma once

#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

/// Keeps a document that a test wrote, if the environment names a folder for them: the schema is held against
/// all of them afterwards.
inline void keepWritten(const std::string& text) {
    if (const char* const folder = std::getenv("VREX_WRITTEN_DOCUMENTS")) {
        const std::string name = std::to_string(std::hash<std::string>()(text));
        std::ofstream(std::string(folder).append("/").append(name).append(".json"), std::ios::binary) << text;
    }
}
