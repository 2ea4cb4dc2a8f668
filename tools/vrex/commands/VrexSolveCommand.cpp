#include "tools/vrex/commands/VrexSolveCommand.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>

#include "data/3d/VrexTransform3D.h"
#include "data/VrexVector3DT.h"
#include "data/constraint/3d/VrexVariableFixation3D.h"
#include "data/serialization/VrexJsonKeys.h"
#include "solver/VrexSolver3D.h"
#include "tools/vrex/VrexConsole.h"
#include "tools/vrex/VrexDocumentReader.h"
#include "tools/vrex/VrexDocumentWriter.h"
#include "tools/vrex/VrexLabels.h"
#include "tools/vrex/VrexObjectNames.h"
#include "tools/vrex/VrexProgress.h"
#include "tools/vrex/VrexSolveReport.h"
#include "tools/vrex/VrexSystemLists.h"
#include "tools/vrex/VrexToolFailure.h"

namespace {

constexpr const char* SET = "--set";
constexpr const char* MOVE = "--move";

/// A document on its way through the solver.
class Solving {
public:
    Solving(const VrexSolveCommand& command, VrexDocument document)
        : m_command(command),
          m_document(std::move(document)),
          m_geometries(nsVrexSystemLists::geometriesOf(m_document.system)),
          m_constraints(nsVrexSystemLists::constraintsOf(m_document.system)) {
        for (const std::string& text : m_command.settings) {
            set(nsVrexLabels::parse(SET, text, 1));
        }
        if (m_command.followsDrags) {
            m_drag = m_document.system.transform();
        }
        for (const std::string& text : m_command.moves) {
            move(nsVrexLabels::parse(MOVE, text, 3));
        }
    }

    VrexSolverReport solve(const VrexConsole& console) const {
        VrexProgress progress("solving " + m_document.title, console.showsProgress());
        VrexSolverOptions options;
        options.tolerance = m_command.tolerance;
        options.maxIterations = m_command.maxIterations;
        options.progress = [&progress](const VrexSolverProgress& reached) {
            progress.reached(reached.component, reached.componentCount);
            return true;
        };
        try {
            return VrexSolver3D(options).solve(m_geometries, m_constraints,
                                               m_drag.isEmpty() ? nullptr : &m_drag);
        } catch (const std::exception& error) {
            throw VrexToolFailure(VrexExitCode::INVALID,
                                  fmt::format("{} cannot be solved: {}", m_document.title, error.what()));
        }
    }

    /// Drags that were followed are over.
    VrexDocument solved() const {
        if (!m_command.followsDrags) {
            return m_document;
        }
        const VrexImmutableSystem3D& system = m_document.system;
        VrexDocument result = m_document;
        result.system = VrexImmutableSystem3D(system.geometries(), system.variables(), system.constraints(),
                                              system.equations(), system.linearTolerance(),
                                              system.angularTolerance(), {}, system.referenceGeometries());
        std::erase_if(result.furtherKeys,
                      [](const auto& key) { return key.first == nsJsonKeys::DRAG_VARIABLES; });
        return result;
    }

    const std::string& title() const { return m_document.title; }
    const nsVrexSystemLists::Geometries& geometries() const { return m_geometries; }
    const nsVrexSystemLists::Constraints& constraints() const { return m_constraints; }

private:
    /// Gives a variable its value and holds it there, for this time.
    void set(const nsVrexLabels::Assignment& setting) {
        const auto& variable =
            nsVrexLabels::find(SET, "variable", m_document.system.variables(), setting.label);
        expectFirst(SET, *variable);
        variable->setValue(setting.values[0]);
        const auto isHolder = [&](const auto& constraint) {
            const auto* const fixation = dynamic_cast<const VrexVariableFixation3D*>(constraint.get());
            return fixation != nullptr && fixation->variable() == variable;
        };
        if (std::ranges::any_of(m_constraints, isHolder)) {
            return;
        }
        auto fixation = VrexVariableFixation3D::create(variable);
        fixation->setID(highestId() + 1);
        fixation->label() = std::string(SET) + " " + setting.label;
        m_constraints.push_back(std::move(fixation));
    }

    void move(const nsVrexLabels::Assignment& setting) {
        const auto& entity =
            nsVrexLabels::find(MOVE, "geometry", m_document.system.geometries(), setting.label);
        expectFirst(MOVE, *entity);
        m_drag.applyTranslation(entity, {setting.values[0], setting.values[1], setting.values[2]});
    }

    /// The last of several would win in silence.
    void expectFirst(const char* option, const VrexBaseObject& object) {
        if (!m_told.insert(&object).second) {
            throw VrexToolFailure(VrexExitCode::USAGE, fmt::format("{}: {} stands here twice.", option,
                                                                   nsVrexObjectNames::nameOf(object)));
        }
    }

    std::uint64_t highestId() const {
        std::uint64_t highest = 0;
        for (const auto& geometry : m_geometries) {
            highest = std::max(highest, geometry->getID());
        }
        for (const auto& constraint : m_constraints) {
            highest = std::max(highest, constraint->getID());
        }
        return highest;
    }

    const VrexSolveCommand& m_command;
    VrexDocument m_document;
    nsVrexSystemLists::Geometries m_geometries;
    nsVrexSystemLists::Constraints m_constraints;
    VrexTransform3D m_drag;
    std::unordered_set<const VrexBaseObject*> m_told; ///< What options name.
};

struct Verdict {
    VrexExitCode code;
    std::string sentence;
};

Verdict judge(const VrexSolveCommand& command, const VrexSolveReport& report, const std::string& title) {
    const std::string left =
        nsVrexObjectNames::countOf(report.freedom(), "degree of freedom", "degrees of freedom");
    const std::string solved = fmt::format("{} is {}solved", title, report.isUnsolved() ? "not " : "");
    if (report.isOverConstrained(command.allowsRedundancy)) {
        return {
            VrexExitCode::OVER_CONSTRAINED,
            fmt::format("{}, and over-constrained: {}{}", solved, report.culprits(),
                        report.isOverConstrained(true) ? "" : " With --allow-redundant that is no failure.")};
    }
    if (report.isUnsolved()) {
        return {VrexExitCode::NOT_CONVERGED, fmt::format("{}. {}", solved, report.firstFailure())};
    }
    if (command.isToBeDetermined && report.freedom() > 0) {
        return {VrexExitCode::UNDER_CONSTRAINED,
                fmt::format("{}, but under-constrained: {} left.", solved, left)};
    }
    return {VrexExitCode::FINE, fmt::format("{}, with {} left.", solved, left)};
}

} // namespace

VrexExitCode VrexSolveCommand::run(const VrexConsole& console) const {
    nsVrexDocument::expectOwnStream(output, console);
    nsVrexDocument::expectOther(input, output);
    const Solving solving(*this, nsVrexDocument::read(input, console));
    const VrexSolverReport solved = solving.solve(console);
    const VrexSolveReport found(solved, solving.geometries(), solving.constraints());
    const auto [code, sentence] = judge(*this, found, solving.title());

    VrexReport report("solve");
    report.conclude(sentence, code == VrexExitCode::FINE);
    report.add("converged", solved.isConverged());
    report.add("overConstrained", found.isOverConstrained(false));
    report.add("freedom", found.freedom());
    found.addTo(report);
    if (!output.empty() && solved.isConverged()) {
        nsVrexDocument::write(output, nsVrexDocument::textOf(solving.solved()), console);
    } else if (!output.empty()) {
        console.note("Nothing is written: there is no solution.");
    }
    nsVrexDocument::printBeside(output, report, console);
    if (output == "-" && console.options().isQuiet && code != VrexExitCode::FINE) {
        console.fail(sentence); // The report was not told.
    }
    return code;
}
