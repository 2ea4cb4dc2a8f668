#include "tools/vrex/commands/VrexComponentsCommand.h"

#include <cstddef>
#include <cstdint>
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

std::vector<std::shared_ptr<VrexConnectedComponent>> split(const nsVrexSystemLists::Geometries& geometries,
                                                           const nsVrexSystemLists::Constraints& constraints,
                                                           const VrexConsole& console) {
    const VrexProgress progress("finding components", console.showsProgress());
    VrexConstraintGraph graph(geometries, constraints);
    VrexDepthFirstSearch search;
    VrexComponentGenerator generator;
    search.traverse(graph, generator);
    return generator.getComponents();
}

std::vector<LumoJson> rowOf(std::size_t index, const VrexConnectedComponent& component,
                            const VrexDegrees& degrees) {
    long freedom = 0;
    for (const auto& geometry : component.getGeometries()) {
        freedom += degrees.of(*geometry);
    }
    long constraint = 0;
    for (const auto& bound : component.getConstraints()) {
        constraint += VrexDegrees::of(*bound);
    }
    return {index, component.getGeometries().size(), component.getConstraints().size(), freedom, constraint};
}

} // namespace

VrexExitCode VrexComponentsCommand::run(const VrexConsole& console) const {
    const VrexDocument document = nsVrexDocument::read(input, console);
    const VrexImmutableSystem3D& system = document.system;
    const auto geometries = nsVrexSystemLists::geometriesOf(system);
    const auto constraints = nsVrexSystemLists::constraintsOf(system);
    const Numbers numbers(geometries, constraints);
    const auto components = split(geometries, constraints, console);
    const VrexDegrees degrees(geometries);

    VrexReport report("components");
    report.conclude(fmt::format("{}: {}.", document.title,
                                nsVrexObjectNames::countOf(components.size(), "component", "components")),
                    true);
    std::vector<std::string_view> columns{"index", "geometries", "constraints", "degreesOfFreedom",
                                          "degreesOfConstraint"};
    if (tellsMembers) {
        columns.insert(columns.end(), {"geometryIds", "constraintIds"});
    }
    auto& table = report.addTable("components", columns);
    for (std::size_t i = 0; i < components.size(); ++i) {
        const VrexConnectedComponent& component = *components[i];
        std::vector<LumoJson> row = rowOf(i, component, degrees);
        if (tellsMembers) {
            row.push_back(numbers.idsOf(component.getGeometries()));
            row.push_back(numbers.idsOf(component.getConstraints()));
        }
        table.add(std::move(row));
    }
    console.print(report);
    return VrexExitCode::FINE;
}
