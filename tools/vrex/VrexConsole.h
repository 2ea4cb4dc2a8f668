#pragma once

#include <string>
#include <string_view>

class VrexReport;

/// Where the tool speaks: results on standard output, talk on standard error.
class VrexConsole {
public:
    struct Options {
        bool isJson = false;  ///< Reports are JSON.
        bool isQuiet = false; ///< No talk but failures.
    };
    VrexConsole();
    explicit VrexConsole(Options options);

    const Options& options() const { return m_options; }
    /// Whether `VrexProgress` is to be seen.
    bool showsProgress() const;
    bool isOutputTerminal() const;

    /// Results. Throw `VrexToolFailure` when they cannot be written.
    void print(const VrexReport& report) const;
    void print(std::string_view text) const;
    /// Talk, a sentence.
    void note(std::string_view sentence) const;
    void fail(std::string_view sentence) const;
    /// What would be a result, were standard output not taken by something else.
    void tell(const VrexReport& report) const;

private:
    static void say(std::string_view colour, std::string_view kind, std::string_view sentence);

    Options m_options;
};
