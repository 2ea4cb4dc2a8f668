#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Finds out where and why a text is no JSON.
///
/// The reader is fast and says little; this one walks the text byte by byte and runs only after a refusal.
class LumoJsonScanner {
public:
    /// Levels of arrays and objects that a text may have.
    static constexpr std::size_t DEEPEST = 512;

    struct Fault {
        std::size_t offset; ///< In bytes from the start of the text.
        const char* reason;
    };

    explicit LumoJsonScanner(std::string_view text) : m_text(text) {}

    /// The first fault; nothing for a text that the reader takes.
    [[nodiscard]] std::optional<Fault> findFault();

    /// "JSON text, line 2, column 5: reason." Columns count characters, both count from 1.
    [[nodiscard]] static std::string describe(std::string_view text, const Fault& fault);

private:
    enum class Expected { Value, ValueOrEnd, Key, KeyOrEnd, Separator };

    bool step();
    bool scanValue(char byte);
    bool scanKey();
    bool scanSeparator(char byte);
    bool scanString();
    bool scanCharacter();
    bool scanEscape();
    bool scanUnicodeEscape();
    bool scanNumber();
    bool scanWord(std::string_view word);
    bool open(char bracket);
    bool close();
    bool fail(const char* reason);
    void skipBlanks();
    [[nodiscard]] bool isAt(std::string_view expected) const;
    /// The four hexadecimal digits at `at`; -1 if they are not there.
    [[nodiscard]] int hexAt(std::size_t at) const;

    std::string_view m_text;
    std::size_t m_at = 0;
    std::string m_open; ///< The brackets that are not closed yet.
    Expected m_expected = Expected::Value;
    std::optional<Fault> m_fault;
};
