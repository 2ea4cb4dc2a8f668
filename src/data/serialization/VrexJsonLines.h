#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "data/serialization/VrexJsonKeys.h"

/// Hidden: the text of a document. Its beginning are the objects, one a line, array by array; its end is for
/// the caller to write.
class VrexJsonLines {
public:
    /// The arrays, in the order of the document.
    enum Array : std::size_t { OBJECTS, VARIABLES, CONSTRAINTS, EQUATIONS, ARRAYS };
    static constexpr std::array<nsJsonKeys::Key, ARRAYS> KEYS{nsJsonKeys::OBJECTS, nsJsonKeys::VARIABLES,
                                                              nsJsonKeys::CONSTRAINTS, nsJsonKeys::EQUATIONS};

    /// Blanks a level; objects stand at the second one.
    explicit VrexJsonLines(std::uint64_t indentWidth);

    /// Makes room for so many objects. What is not used costs no memory: it is never touched.
    void reserve(Array array, std::size_t count);
    /// Where the next object of that array has to be written.
    std::string& nextLine(Array array);
    /// Joins the arrays, once. An array without objects is left out unless `writeEmptyArrays`.
    void join(bool writeEmptyArrays);

    /// Of what is joined: an array with its brackets, empty for one that was left out.
    std::string_view array(std::size_t array) const;
    /// What is joined, and the end that it was given.
    std::string& text() { return m_texts[OBJECTS]; }
    const std::string& text() const { return m_texts[OBJECTS]; }
    bool hasEnd() const { return text().size() != m_joined; }
    void dropEnd() { text().resize(m_joined); }

private:
    struct Place {
        std::size_t first = 0, size = 0;
    };

    void open(Array array);
    void take(Array array);

    std::string m_blanks;
    std::array<std::string, ARRAYS> m_texts; ///< All others end up behind the objects, which are the most.
    std::array<bool, ARRAYS> m_isOpen{};     ///< Whether it has its key.
    std::array<Place, ARRAYS> m_places;      ///< From bracket to bracket.
    std::size_t m_joined = 0;
};
