#pragma once

#include <string>
#include <vector>

#include "tolvbase/LumoJson.h"

/// Writes one value as compact text; see `LumoJson::dump`.
class LumoJsonWriter {
public:
    [[nodiscard]] std::string write(const LumoJson& root);

private:
    /// A container whose elements are being written.
    struct Level {
        const LumoJson* container;
        LumoJsonIteratorImpl next;
        std::size_t left;
    };

    /// Writes a scalar or an empty container whole, and opens any other one.
    void writeValue(const LumoJson& value);
    /// Goes on in the innermost container, up to the next one that opens or to its own end.
    void advance();

    std::vector<Level> m_open;
    std::string m_text;
};
