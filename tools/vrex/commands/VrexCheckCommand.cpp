#include "tools/vrex/commands/VrexCheckCommand.h"

#include <cstddef>
#include <optional>

#include <fmt/format.h>

#include "data/constraint/3d/VrexConstraint3D.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexConstraintCheck.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

struct Refused {
    std::size_t index;
    VrexConstraintCheck::Refusal refusal;
};

std::vector<Refused> findRefused(const VrexImmutableSystem3D& system, const VrexConsole& console) {
    const auto& constraints = system.constraints();
    VrexProgress progress("checking constraints", console.showsProgress());
    VrexConstraintCheck check;
    std::vector<Refused> found;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
        progress.reached(i, constraints.size());
        if (auto refusal = check(*constraints[i])) {
            found.push_back({i, std::move(*refusal)});
        }
    }
    return found;
}

std::string nameOf(VrexErrorCode code) {
    const char* const name = findErrorCodeName(code);
    return name != nullptr ? name : "";
}

std::string pointerTo(const Refused& refused) { return fmt::format("/constraints/{}", refused.index); }

void addRefused(VrexReport& report, const VrexImmutableSystem3D& system,
                const std::vector<Refused>& refused) {
    auto& table = report.addTable("refused",
                                  {"index", "pointer", "id", "label", "type", "code", "codeName", "message"});
    for (const Refused& row : refused) {
        const VrexConstraint3D& constraint = *system.constraints()[row.index];
        const VrexErrorCode code = row.refusal.code;
        table.add({row.index, pointerTo(row), constraint.getID(), constraint.label(),
                   nsVrexObjectNames::kindOf(constraint),
                   fmt::format("0x{:08X}", static_cast<unsigned>(code)), nameOf(code), row.refusal.message});
    }
}

std::string sentenceOf(const VrexDocument& document, const std::vector<Refused>& refused) {
    if (refused.empty()) {
        return fmt::format("{} is valid.", document.title);
    }
    const auto& constraints = document.system.constraints();
    const Refused& first = refused.front();
    return fmt::format("{}: {} of {} constraints are refused, first the one at {}, {}: {}", document.title,
                       refused.size(), constraints.size(), pointerTo(first),
                       nsVrexObjectNames::nameOf(*constraints[first.index]), first.refusal.message);
}

/// What does not read is a result, too, for those who read reports.
void printUnreadable(const VrexDocumentFailure& failure, const VrexConsole& console) {
    VrexReport report("check");
    report.conclude(failure.what(), false);
    report.add("valid", false);
    report.add("pointer", failure.pointer() ? LumoJson(*failure.pointer()) : LumoJson());
    console.print(report);
}

} // namespace

VrexExitCode VrexCheckCommand::run(const VrexConsole& console) const {
    VrexDocument document;
    try {
        document = nsVrexDocument::read(input, console);
    } catch (const VrexDocumentFailure& failure) {
        if (console.options().isJson) {
            printUnreadable(failure, console);
        }
        throw;
    }
    const VrexImmutableSystem3D& system = document.system;
    const std::vector<Refused> refused = findRefused(system, console);
    VrexReport report("check");
    report.conclude(sentenceOf(document, refused), refused.empty());
    report.add("valid", refused.empty());
    report.add("objects", system.geometries().size() + system.variables().size());
    report.add("constraints", system.constraints().size());
    report.add("equations", system.equations().size());
    addRefused(report, system, refused);
    console.print(report);
    return refused.empty() ? VrexExitCode::FINE : VrexExitCode::INVALID;
}
