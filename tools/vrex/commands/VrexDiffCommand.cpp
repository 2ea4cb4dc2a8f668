#include "tools/vrex/commands/VrexDiffCommand.h"

#include <cstddef>

#include <fmt/format.h>

#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocumentDifference.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexDocumentWriter.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

using Change = VrexDifference::Change;

const char* textOf(Change change) {
    switch (change) {
    case Change::ONLY_IN_FIRST:
        return "onlyInFirst";
    case Change::ONLY_IN_SECOND:
        return "onlyInSecond";
    default:
        return "changed";
    }
}

LumoJson typeOf(const VrexDifference& difference) {
    const LumoJson* const object = difference.object;
    // Variables alone have none.
    return object == nullptr          ? LumoJson()
           : object->contains("type") ? (*object)["type"]
                                      : LumoJson("Variable");
}

/// Null where there is none.
LumoJson valueAt(const LumoJson* object, const char* key) {
    return object != nullptr && object->contains(key) ? (*object)[key] : LumoJson();
}

} // namespace

VrexExitCode VrexDiffCommand::run(const VrexConsole& console) const {
    if (first == "-" && second == "-") {
        throw VrexToolFailure(VrexExitCode::USAGE, "Only one of the two documents can be standard input.");
    }
    // As they would be written, so that only what they mean is compared.
    const LumoJson one = nsVrexDocument::jsonOf(nsVrexDocument::read(first, console));
    const LumoJson other = nsVrexDocument::jsonOf(nsVrexDocument::read(second, console));
    VrexReport report("diff");
    auto& table =
        report.addTable("differences", {"change", "pointer", "id", "type", "label", "first", "second"});
    std::size_t count = 0;
    {
        const VrexProgress progress("comparing", console.showsProgress());
        nsVrexDocumentDifference::find(one, other, tolerance, [&](const VrexDifference& found) {
            ++count;
            table.add({textOf(found.change), found.pointer, valueAt(found.object, "id"), typeOf(found),
                       valueAt(found.object, "label"), found.first, found.second});
        });
    }
    report.conclude(count == 0 ? fmt::format("{} and {} are the same.", nsVrexDocument::titleOf(first),
                                             nsVrexDocument::titleOf(second))
                               : fmt::format("{} and {} differ in {}.", nsVrexDocument::titleOf(first),
                                             nsVrexDocument::titleOf(second),
                                             nsVrexObjectNames::countOf(count, "place", "places")),
                    count == 0);
    report.add("equal", count == 0);
    report.add("tolerance", tolerance);
    console.print(report);
    return count == 0 ? VrexExitCode::FINE : VrexExitCode::DIFFERENT;
}
