#include "tools/vrex/commands/VrexCommandLine.h"

#include <cmath>
#include <csignal>
#include <exception>
#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexToolFailure.h"
#include "tools/vrex/commands/VrexCheckCommand.h"
#include "tools/vrex/commands/VrexComponentsCommand.h"
#include "tools/vrex/commands/VrexConvertCommand.h"
#include "tools/vrex/commands/VrexDiffCommand.h"
#include "tools/vrex/commands/VrexImportCommand.h"
#include "tools/vrex/commands/VrexInfoCommand.h"
#include "tools/vrex/commands/VrexSolveCommand.h"

namespace {

constexpr const char* STREAM = "stream";
constexpr const char* INPUT = "Document or stream; - is standard input";

/// A number above 0, or 0 where that is fine too. The library's own checks let NaN pass, and tell all digits
/// of the largest number there is.
CLI::Validator finiteNumber(bool canBeZero) {
    const auto complaint = [canBeZero](const std::string& text) {
        double number = 0.0;
        const bool isNumber = CLI::detail::lexical_cast(text, number) && std::isfinite(number);
        const bool isFine = isNumber && (number > 0.0 || (canBeZero && number == 0.0));
        return isFine ? std::string()
                      : fmt::format("{} is no number {}", text, canBeZero ? "from 0 on" : "above 0");
    };
    return {complaint, ""};
}

/// A file needs a name: what is empty comes from a variable of a shell that nobody has set.
CLI::Validator fileName() {
    return {[](const std::string& name) { return std::string(name.empty() ? "a file needs a name" : ""); },
            ""};
}

/// All commands with their options as the arguments fill them.
class CommandLine {
public:
    CommandLine() : m_app("Geometric constraint systems: check, solve and convert documents.", "vrex") {
        m_app.require_subcommand(1);
        m_app.fallthrough(); // Common options may stand behind the command.
        m_app.set_version_flag("--version", "vrex " VREX_VERSION);
        m_app.add_flag("--json", m_console.isJson, "Print reports as JSON");
        m_app.add_flag("--quiet", m_console.isQuiet, "Say nothing on standard error but failures");
        m_app.footer("Exit codes: 0 fine, 1 usage, 2 invalid input, 3 not converged, 4 over-constrained,\n"
                     "5 under-constrained, 6 input or output failure, 7 documents differ. See vrex(1).");
        addCheck();
        addInfo();
        addComponents();
        addSolve();
        addConvert();
        addImport();
        addDiff();
    }

    VrexExitCode run(int count, char** arguments) {
        try {
            m_app.parse(count, arguments);
        } catch (const CLI::Success& asked) { // For help or for the version.
            std::ostringstream text;
            m_app.exit(asked, text, text);
            VrexConsole().print(text.str());
            return VrexExitCode::FINE;
        } catch (const CLI::ParseError& error) {
            VrexConsole().fail(complaintOf(error) + ". See vrex --help.");
            return VrexExitCode::USAGE;
        }
        return m_run(VrexConsole(m_console));
    }

private:
    /// What is missing counts for less than what stands there instead.
    std::string complaintOf(const CLI::ParseError& error) const {
        const std::vector<std::string> unknown = m_app.remaining(true);
        const bool isMissing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
        return isMissing && !unknown.empty()
                   ? fmt::format("\"{}\" is neither a command nor an option", unknown.front())
                   : error.what();
    }
    template <class Command>
    CLI::App& add(const char* name, const char* description, Command& command) {
        CLI::App& added = *m_app.add_subcommand(name, description);
        added.callback([this, &command] {
            m_run = [&command](const VrexConsole& console) { return command.run(console); };
        });
        return added;
    }
    static CLI::Option* addOutput(CLI::App& app, std::string& output, const char* what) {
        return app.add_option("-o,--out", output, what)->type_name("FILE")->check(fileName());
    }
    static void addFile(CLI::App& app, const char* name, std::string& file, const char* what) {
        app.add_option(name, file, what)->required()->type_name("")->check(fileName());
    }
    static void addInput(CLI::App& app, std::string& input, const char* what = INPUT) {
        addFile(app, "input", input, what);
    }

    void addCheck() { addInput(add("check", "Tell which constraints are refused", m_check), m_check.input); }
    void addInfo() { addInput(add("info", "Count objects and degrees of freedom", m_info), m_info.input); }
    void addComponents() {
        CLI::App& app = add("components", "List what can be solved by itself", m_components);
        addInput(app, m_components.input);
        app.add_flag("--members", m_components.tellsMembers, "Tell the identifiers of what is in each");
    }
    void addSolve() {
        CLI::App& app = add("solve", "Move what is in a document until its constraints hold", m_solve);
        addInput(app, m_solve.input);
        addOutput(app, m_solve.output, "Where the solved document goes; - is standard output");
        addRepeated(app, "--set", m_solve.settings, "Hold a variable at a value", "LABEL=NUMBER");
        addRepeated(app, "--move", m_solve.moves, "Draw an entity by a vector, as far as constraints allow",
                    "LABEL=X,Y,Z");
        app.add_flag("--drag", m_solve.followsDrags, "Follow the drags of the document");
        app.add_flag("--determined", m_solve.isToBeDetermined, "Fail (5) when freedom is left");
        app.add_flag("--allow-redundant", m_solve.allowsRedundancy,
                     "Do not fail (4) for constraints that repeat others and hold");
        app.add_option("--tolerance", m_solve.tolerance, "What residuals may be in the end")
            ->capture_default_str()
            ->check(finiteNumber(false));
        app.add_option("--max-iterations", m_solve.maxIterations, "Iterations of a search")
            ->capture_default_str()
            ->check(finiteNumber(false));
    }
    void addConvert() {
        CLI::App& app = add("convert", "Write a document or a stream anew", m_convert);
        addInput(app, m_convert.input);
        addOutput(app, m_convert.output, "Where the result goes; standard output by default");
        using Form = VrexConvertCommand::Form;
        const auto setForm = [this](const std::string& form) {
            m_convert.form = form == STREAM ? Form::STREAM : Form::DOCUMENT;
        };
        app.add_option_function<std::string>("--to", setForm, "document (the default) or stream")
            ->check(CLI::IsMember({"document", STREAM}).description(""))
            ->type_name("FORM");
        app.add_option("--indent", m_convert.indentWidth, "Blanks a level of a document")
            ->capture_default_str()
            ->check(CLI::Range(0, 16));
    }
    void addImport() {
        CLI::App& app = add("import", "Make a document of a robot description (URDF)", m_import);
        addInput(app, m_import.input, "Robot description; - is standard input");
        addOutput(app, m_import.output, "Where the document goes; standard output by default");
        app.add_option("--loops", m_import.loopFile, "The file with the pairs that close loops")
            ->type_name("FILE")
            ->check(fileName());
        app.add_flag("--lenient", m_import.isLenient, "Warn of what is doubtful instead of refusing it");
    }
    void addDiff() {
        CLI::App& app = add("diff", "Compare two documents object by object", m_diff);
        addFile(app, "first", m_diff.first, INPUT);
        addFile(app, "second", m_diff.second, INPUT);
        app.add_option("--tolerance", m_diff.tolerance, "Numbers that differ by no more are the same")
            ->capture_default_str()
            ->check(finiteNumber(true));
    }
    /// One value an option, so that what follows is the input.
    static void addRepeated(CLI::App& app, const char* name, std::vector<std::string>& values,
                            const char* what, const char* form) {
        app.add_option(name, values, what)
            ->type_name(form)
            ->expected(1)
            ->allow_extra_args(false)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }

    CLI::App m_app;
    VrexConsole::Options m_console;
    std::function<VrexExitCode(const VrexConsole& console)> m_run;
    VrexCheckCommand m_check;
    VrexInfoCommand m_info;
    VrexComponentsCommand m_components;
    VrexSolveCommand m_solve;
    VrexConvertCommand m_convert;
    VrexImportCommand m_import;
    VrexDiffCommand m_diff;
};

VrexExitCode fail(VrexExitCode code, const char* sentence) {
    VrexConsole().fail(sentence);
    return code;
}

VrexExitCode runGuarded(int count, char** arguments) {
    try {
        return CommandLine().run(count, arguments);
    } catch (const VrexToolFailure& failure) {
        return fail(failure.code(), failure.what());
    } catch (const std::bad_alloc&) {
        return fail(VrexExitCode::IO_FAILURE, "There is not enough memory.");
    } catch (const std::exception& error) {
        return fail(VrexExitCode::INVALID, error.what());
    }
}

} // namespace

int nsVrexCommandLine::run(int count, char** arguments) {
    // A reader that leaves is told as every other failure to write.
    std::signal(SIGPIPE, SIG_IGN);
    return static_cast<int>(runGuarded(count, arguments));
}
