#pragma once

#include <string_view>

#include "tolvbase/LumoJson.h"

/// Reads one JSON text; see `LumoJson::parse`. The text must outlive the reader.
class LumoJsonReader {
public:
    explicit LumoJsonReader(std::string_view text) : m_text(text) {}

    [[nodiscard]] LumoJson read() const;

private:
    [[noreturn]] void refuse(const char* otherwise) const;

    std::string_view m_text;
};
