#include "tools/vrex/commands/VrexComponentsCommand.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDegrees.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexReport.h"
#include "tools/vrex/VrexSystemLists.h"

namespace {

using Components = std::vector<std::shared_ptr<VrexConnectedComponent>>;

/// A graph tells objects apart by identifier; these are numbered from 1 and remember what they had.
class Numbers {
public:
    Numbers(const nsVrexSystemLists::Geometries& geometries,
            const nsVrexSystemLists::Constraints& constraints) {
        number(geometries);
        number(constraints);
    }

    /// The identifiers of the objects as they were read.
    template <class List>
    LumoJson idsOf(const List& objects) const {
        LumoJson ids = LumoJson::array();
        for (const auto& object : objects) {
            ids.push_back(m_ids[object->getID() - 1]);
        }
        return ids;
    }

private:
    template <class List>
    void number(const List& objects) {
        for (const auto& object : objects) {
            m_ids.push_back(object->getID());
            object->setID(m_ids.size());
        }
    }

    std::vector<std::uint64_t> m_ids;
};

Components split(const nsVrexSystemLists::Geometries& geometries,
                 const nsVrexSystemLists::Constraints& constraints, const VrexConsole& console) {
    const VrexProgress progress("finding components", console.showsProgress());
    VrexConstraintGraph graph(geometries, constraints);
    VrexDepthFirstSearch search;
    VrexComponentGenerator generator;
    search.traverse(graph, generator);
    return generator.getComponents();
}

std::vector<LumoJson> rowOf(std::size_t index, const VrexConnectedComponent& component,
                            const VrexDegrees& degrees) {
    const auto geometries = component.getGeometries();
    const auto constraints = component.getConstraints();
    long freedom = 0;
    for (const auto& geometry : geometries) {
        freedom += degrees.of(*geometry);
    }
    long constraint = 0;
    for (const auto& bound : constraints) {
        constraint += VrexDegrees::of(*bound);
    }
    return {index, geometries.size(), constraints.size(), freedom, constraint};
}

/// Large systems have many components: each is gone once it is told.
void tell(Components components, const VrexDegrees& degrees, const Numbers* members, VrexReport& report) {
    std::vector<std::string_view> columns{"index", "geometries", "constraints", "degreesOfFreedom",
                                          "degreesOfConstraint"};
    if (members != nullptr) {
        columns.insert(columns.end(), {"geometryIds", "constraintIds"});
    }
    auto& table = report.addTable("components", columns);
    for (std::size_t i = 0; i < components.size(); ++i) {
        std::vector<LumoJson> row = rowOf(i, *components[i], degrees);
        if (members != nullptr) {
            row.push_back(members->idsOf(components[i]->getGeometries()));
            row.push_back(members->idsOf(components[i]->getConstraints()));
        }
        components[i].reset();
        table.add(std::move(row));
    }
}

} // namespace

VrexExitCode VrexComponentsCommand::run(const VrexConsole& console) const {
    const VrexDocument document = nsVrexDocument::read(input, console);
    const auto geometries = nsVrexSystemLists::geometriesOf(document.system);
    const auto constraints = nsVrexSystemLists::constraintsOf(document.system);
    const Numbers numbers(geometries, constraints);
    Components components = split(geometries, constraints, console);

    VrexReport report("components");
    report.conclude(fmt::format("{}: {}.", document.title,
                                nsVrexObjectNames::countOf(components.size(), "component", "components")),
                    true);
    tell(std::move(components), VrexDegrees(geometries), tellsMembers ? &numbers : nullptr, report);
    console.print(report);
    return VrexExitCode::FINE;
}
