#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/VrexUrdfReader.h"

/// What a finding says, without the file.
struct Told {
    VrexUrdfSeverity severity;
    int line;
    std::string name;
    std::string message;

    bool operator==(const Told&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const Told& told) {
        const char* const severities[] = {"note", "warning", "error"};
        return stream << severities[static_cast<int>(told.severity)] << " " << told.line << " " << told.name
                      << ": " << told.message;
    }
};

inline VrexUrdfImport readText(std::string_view text, bool isStrict, std::string_view loops = {}) {
    return VrexUrdfReader({isStrict, {}}).readText(text, loops);
}

inline std::vector<Told> toldOf(const VrexUrdfImport& result) {
    std::vector<Told> told;
    for (const auto& finding : result.findings) {
        told.push_back({finding.severity, finding.line, finding.name, finding.message});
    }
    return told;
}

/// A robot with these lines; the first one is line 2.
inline std::string robotOf(const std::string& lines) { return "<robot name='r'>\n" + lines + "</robot>\n"; }

inline const std::string TWO_LINKS = "<link name='a'/><link name='b'/>\n"; // line 2
inline const std::string ENDS = "<parent link='a'/><child link='b'/>";

/// The joint is on line 3.
inline std::string jointOf(const std::string& type, const std::string& inside) {
    return robotOf(TWO_LINKS + "<joint name='j' type='" + type + "'>" + ENDS + inside + "</joint>\n");
}
