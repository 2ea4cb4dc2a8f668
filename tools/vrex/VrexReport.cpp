#include "tools/vrex/VrexReport.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <utility>

#include <fmt/format.h>

#include "tolvbase/TolvUtf8.h"
#include "tools/vrex/VrexHarmlessText.h"

namespace {

constexpr std::string_view GREEN = "\033[32m", RED = "\033[31m", BOLD = "\033[1m", PLAIN = "\033[0m";
constexpr std::string_view GAP = "  ";

void appendColoured(std::string& text, std::string_view part, std::string_view colour, bool isColoured) {
    fmt::format_to(std::back_inserter(text), "{}{}{}", isColoured ? colour : "", part,
                   isColoured ? PLAIN : "");
}

/// A key as words.
std::string wordsOf(std::string_view key) {
    std::string words;
    for (const char letter : key) {
        const auto code = static_cast<unsigned char>(letter);
        if (std::isupper(code) != 0) {
            words += ' ';
        }
        words += static_cast<char>(std::tolower(code));
    }
    return words;
}

/// In characters, of UTF-8.
std::size_t widthOf(const std::string& text) {
    constexpr unsigned MASK = 0xC0, FOLLOWER = 0x80;
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char letter) { return (static_cast<unsigned char>(letter) & MASK) != FOLLOWER; }));
}

std::string textOf(const LumoJson& value) {
    std::string text;
    switch (value.type()) {
    case LumoJsonType::Null:
        return "-";
    case LumoJsonType::String:
        getValue(value, text);
        return nsVrexHarmlessText::of(text);
    case LumoJsonType::Boolean: {
        bool isTrue = false;
        getValue(value, isTrue);
        return isTrue ? "yes" : "no";
    }
    case LumoJsonType::Array:
        for (const LumoJson& element : value) {
            text.append(text.empty() ? "" : " ").append(textOf(element));
        }
        return text;
    default:
        return value.dump();
    }
}

/// Names of files and labels of streams may be no text, which has no place in JSON.
LumoJson writable(LumoJson value) {
    std::string text;
    if (value.is_string()) {
        getValue(value, text);
    }
    const bool isValid = nsTolvUtf8::findInvalid(text) == std::string::npos;
    return isValid ? std::move(value) : LumoJson(nsVrexHarmlessText::of(text));
}

void appendKey(std::string& text, std::string_view key) {
    fmt::format_to(std::back_inserter(text), "{}:", LumoJson(key).dump());
}

/// Calls `append` with each place below `count`, and puts commas between.
template <class Append>
void appendList(std::string& text, std::size_t count, const Append& append) {
    for (std::size_t i = 0; i < count; ++i) {
        text += i > 0 ? "," : "";
        append(i);
    }
}

/// Cells side by side, the column by its place.
template <class CellAt>
std::string lineOf(const std::vector<std::size_t>& widths, const CellAt& cellAt) {
    std::string line;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const std::string cell = cellAt(column);
        line.append(GAP).append(cell).append(widths[column] - widthOf(cell), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

VrexReport::Table::Table(std::string_view key, std::vector<std::string_view> columns)
    : m_key(key), m_columns(std::move(columns)) {}

void VrexReport::Table::add(std::vector<LumoJson> row) {
    std::ranges::transform(std::make_move_iterator(row.begin()), std::make_move_iterator(row.end()),
                           std::back_inserter(m_cells), writable);
}

std::size_t VrexReport::Table::rowCount() const { return m_cells.size() / m_columns.size(); }

const LumoJson& VrexReport::Table::at(std::size_t row, std::size_t column) const {
    return m_cells[row * m_columns.size() + column];
}

void VrexReport::Table::appendJson(std::string& text) const {
    appendKey(text, m_key);
    text += '[';
    appendList(text, rowCount(), [&](std::size_t row) {
        text += '{';
        appendList(text, m_columns.size(), [&](std::size_t column) {
            appendKey(text, m_columns[column]);
            text += at(row, column).dump();
        });
        text += '}';
    });
    text += ']';
}

void VrexReport::Table::appendText(std::string& text, bool isColoured) const {
    if (m_cells.empty()) {
        return;
    }
    std::vector<std::string> titles;
    std::ranges::transform(m_columns, std::back_inserter(titles), wordsOf);
    std::vector<std::size_t> widths;
    std::ranges::transform(titles, std::back_inserter(widths), widthOf);
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        std::size_t& width = widths[i % widths.size()];
        width = std::max(width, widthOf(textOf(m_cells[i])));
    }
    fmt::format_to(std::back_inserter(text), "\n{}:\n", wordsOf(m_key));
    appendColoured(text, lineOf(widths, [&](std::size_t column) { return titles[column]; }), BOLD,
                   isColoured);
    text += '\n';
    for (std::size_t row = 0; row < rowCount(); ++row) {
        text += lineOf(widths, [&](std::size_t column) { return textOf(at(row, column)); });
        text += '\n';
    }
}

VrexReport::VrexReport(std::string_view command) : m_command(command) {}

void VrexReport::conclude(std::string sentence, bool isGood) {
    m_sentence = std::move(sentence);
    m_isGood = isGood;
}

void VrexReport::add(std::string_view key, LumoJson value) {
    m_facts.push_back({key, writable(std::move(value))});
}

VrexReport::Table& VrexReport::addTable(std::string_view key, std::vector<std::string_view> columns) {
    return m_tables.emplace_back(key, std::move(columns));
}

std::string VrexReport::toJson() const {
    std::string text = "{";
    appendKey(text, "command");
    fmt::format_to(std::back_inserter(text), "{},", LumoJson(m_command).dump());
    appendKey(text, "summary");
    text += writable(m_sentence).dump();
    for (const Fact& fact : m_facts) {
        text += ',';
        appendKey(text, fact.key);
        text += fact.value.dump();
    }
    for (const Table& table : m_tables) {
        text += ',';
        table.appendJson(text);
    }
    return text += "}\n";
}

std::string VrexReport::toText(bool isColoured) const {
    std::string text;
    appendColoured(text, nsVrexHarmlessText::of(m_sentence), m_isGood ? GREEN : RED, isColoured);
    text += '\n';
    for (const Fact& fact : m_facts) {
        fmt::format_to(std::back_inserter(text), "{}{}: {}\n", GAP, wordsOf(fact.key), textOf(fact.value));
    }
    for (const Table& table : m_tables) {
        table.appendText(text, isColoured);
    }
    return text;
}
