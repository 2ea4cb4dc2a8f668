#include "data/serialization/VrexJsonLines.h"

namespace {

/// More than most objects need.
constexpr std::size_t LINE = 256;

constexpr std::string_view BEGINNING = "{\n";
/// What stands behind the bracket that opens an array, and behind the one that closes it.
constexpr std::string_view FIRST_LINE = "\n";
constexpr std::string_view NEXT_KEY = ",\n";

} // namespace

VrexJsonLines::VrexJsonLines(std::uint64_t indentWidth) : m_blanks(indentWidth, ' ') { text() = BEGINNING; }

void VrexJsonLines::reserve(Array array, std::size_t count) { m_texts[array].reserve(count * LINE); }

std::string& VrexJsonLines::nextLine(Array array) {
    if (m_isOpen[array]) {
        m_texts[array] += ",\n";
    } else {
        open(array);
    }
    return m_texts[array].append(m_blanks).append(m_blanks);
}

void VrexJsonLines::open(Array array) {
    std::string& text = m_texts[array];
    text.append(m_blanks).append(1, '"').append(KEYS[array]).append("\": [");
    m_places[array].first = text.size() - 1;
    text += FIRST_LINE;
    m_isOpen[array] = true;
}

void VrexJsonLines::join(bool writeEmptyArrays) {
    for (const Array array : {OBJECTS, VARIABLES, CONSTRAINTS, EQUATIONS}) {
        if (!m_isOpen[array] && writeEmptyArrays) {
            open(array);
        }
        if (m_isOpen[array]) {
            m_texts[array].append("\n").append(m_blanks).append("]").append(NEXT_KEY);
            take(array);
        }
    }
    m_joined = text().size();
}

void VrexJsonLines::take(Array array) {
    Place& place = m_places[array];
    if (array != OBJECTS) {
        place.first += text().size();
        text() += m_texts[array];
        m_texts[array] = std::string();
    }
    place.size = text().size() - NEXT_KEY.size() - place.first;
}

std::string_view VrexJsonLines::array(std::size_t array) const {
    return std::string_view(text()).substr(m_places[array].first, m_places[array].size);
}
