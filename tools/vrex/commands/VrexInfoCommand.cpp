#include "tools/vrex/commands/VrexInfoCommand.h"

#include <cstddef>
#include <map>
#include <string_view>

#include <fmt/format.h>

#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDegrees.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexSystemLists.h"

namespace {

struct Tally {
    std::size_t count = 0;
    long degrees = 0;
};
using Tallies = std::map<std::string_view, Tally>;

/// By kind.
template <class List, class DegreesOf>
Tallies tally(const List& objects, const DegreesOf& degreesOf) {
    Tallies tallies;
    for (const auto& object : objects) {
        Tally& tally = tallies[nsVrexObjectNames::kindOf(*object)];
        ++tally.count;
        tally.degrees += degreesOf(*object);
    }
    return tallies;
}

long total(const Tallies& tallies) {
    long sum = 0;
    for (const auto& [kind, tally] : tallies) {
        sum += tally.degrees;
    }
    return sum;
}

void addTable(VrexReport& report, std::string_view key, std::string_view degrees, const Tallies& tallies) {
    auto& table = report.addTable(key, {"kind", "count", degrees});
    for (const auto& [kind, tally] : tallies) {
        table.add({kind, tally.count, tally.degrees});
    }
}

std::size_t countDrags(const VrexTransform3D& drags) {
    return drags.transformations().size() + drags.transformParameters().size();
}

} // namespace

VrexExitCode VrexInfoCommand::run(const VrexConsole& console) const {
    const VrexDocument document = nsVrexDocument::read(input, console);
    const VrexImmutableSystem3D& system = document.system;
    const auto geometries = nsVrexSystemLists::geometriesOf(system);
    const auto constraints = nsVrexSystemLists::constraintsOf(system);
    const VrexDegrees degrees(geometries);
    const Tallies ofGeometries =
        tally(geometries, [&](const VrexBaseGeometry& geometry) { return degrees.of(geometry); });
    const Tallies ofConstraints =
        tally(constraints, [](const VrexBaseConstraint& constraint) { return VrexDegrees::of(constraint); });

    VrexReport report("info");
    report.conclude(fmt::format("{}: {} objects, {} degrees of freedom, {} of constraint.", document.title,
                                geometries.size() + constraints.size(), total(ofGeometries),
                                total(ofConstraints)),
                    true);
    report.add("geometries", system.geometries().size());
    report.add("variables", system.variables().size());
    report.add("constraints", system.constraints().size());
    report.add("equations", system.equations().size());
    report.add("referenceGeometries", system.referenceGeometries().size());
    report.add("drags", countDrags(system.transform()));
    report.add("degreesOfFreedom", total(ofGeometries));
    report.add("degreesOfConstraint", total(ofConstraints));
    report.add("linearTolerance", system.linearTolerance());
    report.add("angularTolerance", system.angularTolerance());
    addTable(report, "kindsOfGeometries", "degreesOfFreedom", ofGeometries);
    addTable(report, "kindsOfConstraints", "degreesOfConstraint", ofConstraints);
    console.print(report);
    return VrexExitCode::FINE;
}
