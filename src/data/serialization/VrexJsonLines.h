#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>

#include "data/serialization/VrexJsonKeys.h"

/// Hidden: the objects of a document as they stand in its text, one a line, array by array.
class VrexJsonLines {
public:
    /// The arrays, in the order of the document.
    enum Array : std::size_t { OBJECTS, VARIABLES, CONSTRAINTS, EQUATIONS };
    static constexpr std::array<nsJsonKeys::Key, 4> KEYS{nsJsonKeys::OBJECTS, nsJsonKeys::VARIABLES,
                                                         nsJsonKeys::CONSTRAINTS, nsJsonKeys::EQUATIONS};

    /// Blanks a level; objects stand at the second one.
    explicit VrexJsonLines(std::uint64_t indentWidth) : m_blanks(indentWidth, ' ') {}

    /// Where the next object of that array has to be written.
    std::string& nextLine(Array array) {
        std::string& text = m_texts[array];
        if (!text.empty()) {
            text += ",\n";
        }
        return text.append(m_blanks).append(m_blanks);
    }
    /// Of all texts, with a little room for what else stands in a document.
    std::size_t size() const {
        constexpr std::size_t FRAME = 1024;
        return std::accumulate(m_texts.begin(), m_texts.end(), FRAME,
                               [](std::size_t sum, const std::string& text) { return sum + text.size(); });
    }
    /// What stands between the lines of the brackets.
    const std::string& text(std::size_t array) const { return m_texts[array]; }

private:
    std::string m_blanks;
    std::array<std::string, KEYS.size()> m_texts;
};
