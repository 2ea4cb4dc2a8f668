#include "exchange/VrexUrdfFindings.h"

#include <algorithm>
#include <tuple>

void VrexUrdfFindings::add(VrexUrdfSeverity severity, const VrexUrdfPlace& place, std::string name,
                           std::string message) {
    m_findings.push_back({severity, place.file, place.line, std::move(name), std::move(message), false});
}

void VrexUrdfFindings::doubt(const VrexUrdfPlace& place, std::string name, const std::string& message,
                             const std::string& remedy) {
    if (m_isStrict) {
        refuse(place, std::move(name), message);
        m_findings.back().isDoubt = true;
    } else {
        warn(place, std::move(name), message + " " + remedy);
    }
}

bool VrexUrdfFindings::hasErrors() const {
    return std::ranges::any_of(
        m_findings, [](const auto& finding) { return finding.severity == VrexUrdfSeverity::Error; });
}

std::vector<VrexUrdfFinding> VrexUrdfFindings::sorted(const std::string& robotFile) const {
    std::vector<VrexUrdfFinding> result = m_findings;
    std::ranges::stable_sort(result, {}, [&robotFile](const VrexUrdfFinding& finding) {
        return std::tuple(finding.file != robotFile, finding.line);
    });
    return result;
}
