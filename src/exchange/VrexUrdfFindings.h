#pragma once

#include <string>
#include <utility>
#include <vector>

#include "exchange/VrexUrdfFinding.h"
#include "exchange/VrexUrdfPlace.h"

/// Collects what is found while a robot description is read.
class VrexUrdfFindings {
public:
    explicit VrexUrdfFindings(bool isStrict) : m_isStrict(isStrict) {}

    void note(const VrexUrdfPlace& place, std::string name, std::string message) {
        add(VrexUrdfSeverity::Note, place, std::move(name), std::move(message));
    }
    void warn(const VrexUrdfPlace& place, std::string name, std::string message) {
        add(VrexUrdfSeverity::Warning, place, std::move(name), std::move(message));
    }
    void refuse(const VrexUrdfPlace& place, std::string name, std::string message) {
        add(VrexUrdfSeverity::Error, place, std::move(name), std::move(message));
    }
    /// An error where reading is strict, else a warning that also tells the remedy, a further sentence.
    void doubt(const VrexUrdfPlace& place, std::string name, const std::string& message,
               const std::string& remedy);

    bool isStrict() const { return m_isStrict; }
    bool hasErrors() const;
    /// By line; what is in `robotFile` comes first.
    std::vector<VrexUrdfFinding> sorted(const std::string& robotFile) const;

private:
    void add(VrexUrdfSeverity severity, const VrexUrdfPlace& place, std::string name, std::string message);

    bool m_isStrict;
    std::vector<VrexUrdfFinding> m_findings;
};
