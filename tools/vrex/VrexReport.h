#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "tolvbase/LumoJson.h"

/// What a command has found: a sentence, single values and tables, which read as text or as JSON. Both have
/// the same content in the same order; keys like `degreesOfFreedom` are "degrees of freedom" in text.
class VrexReport {
public:
    /// Rows of cells, one for each column.
    class Table {
    public:
        Table(std::string_view key, std::vector<std::string_view> columns);
        void add(std::vector<LumoJson> row);

    private:
        friend class VrexReport;

        std::size_t rowCount() const;
        const LumoJson& at(std::size_t row, std::size_t column) const;
        void appendJson(std::string& text) const;
        void appendText(std::string& text, bool isColoured) const;

        std::string m_key;
        std::vector<std::string_view> m_columns;
        std::vector<LumoJson> m_cells; ///< Row by row.
    };

    explicit VrexReport(std::string_view command);

    /// The sentence that stands first, and whether it is a good one.
    void conclude(std::string sentence, bool isGood);
    /// Keys and names of columns outlive the report.
    void add(std::string_view key, LumoJson value);
    /// Text leaves out tables without rows. Valid as long as the report.
    Table& addTable(std::string_view key, std::vector<std::string_view> columns);

    /// One line, with its end.
    std::string toJson() const;
    std::string toText(bool isColoured) const;

private:
    struct Fact {
        std::string_view key;
        LumoJson value;
    };

    std::string_view m_command;
    std::string m_sentence;
    bool m_isGood = true;
    std::vector<Fact> m_facts;
    std::deque<Table> m_tables;
};
