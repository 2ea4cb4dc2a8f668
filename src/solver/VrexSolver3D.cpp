#include "solver/VrexSolver3D.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "data/3d/VrexTransform3D.h"
#include "data/graph/VrexComponentGenerator.h"
#include "data/graph/VrexConnectedComponent.h"
#include "data/graph/VrexConstraintGraph.h"
#include "data/graph/VrexDepthFirstSearch.h"
#include "data/serialization/3d/VrexStreamGraphDecoder3D.h"
#include "data/serialization/3d/VrexStreamGraphEncoder3D.h"
#include "solver/VrexComponentSolver.h"
#include "solver/VrexSolverCopy.h"

VrexSolver3D::VrexSolver3D(VrexSolverOptions options) : m_options(std::move(options)) {
    if (!std::isfinite(m_options.tolerance) || m_options.tolerance <= 0.0) {
        throw std::invalid_argument("The tolerance of the solver has to be positive and finite.");
    }
}

VrexSolverReport VrexSolver3D::solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components,
                                     const VrexTransform3D* drag) const {
    return solve(components, drag, [](std::uint64_t id) { return id; });
}

VrexSolverReport VrexSolver3D::solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components,
                                     const VrexTransform3D* drag,
                                     const std::function<std::uint64_t(std::uint64_t id)>& sourceId) const {
    VrexSolverReport report;
    VrexSolverProgress progress;
    progress.componentCount = components.size();
    bool isEnded = false; // and not asked again then
    const auto keepGoing = [this, &progress, &isEnded](int iteration, double largestResidual) {
        progress.iteration = iteration;
        progress.largestResidual = largestResidual;
        isEnded = isEnded || (m_options.progress && !m_options.progress(progress));
        return !isEnded;
    };
    const VrexComponentSolver solver(m_options, keepGoing, sourceId);
    for (const auto& component : components) {
        if (component != nullptr) {
            report.components.push_back(solver.solve(*component, drag));
        }
        ++progress.component;
    }
    return report;
}

VrexSolverReport VrexSolver3D::solve(const std::vector<std::shared_ptr<VrexBaseGeometry>>& geometries,
                                     const std::vector<std::shared_ptr<VrexBaseConstraint>>& constraints,
                                     const VrexTransform3D* drag) const {
    const VrexSolverCopy copy(geometries, constraints);
    VrexConstraintGraph graph(copy.geometries(), copy.constraints());
    VrexDepthFirstSearch search;
    VrexComponentGenerator generator;
    search.traverse(graph, generator);
    const auto dragOfCopy = drag != nullptr ? copy.copyOf(*drag) : nullptr;
    VrexSolverReport report = solve(generator.getComponents(), dragOfCopy.get(),
                                    [&copy](std::uint64_t id) { return copy.sourceId(id); });
    copy.layBack();
    return report;
}

bool VrexSolver3D::solve(const unsigned char* buffer, unsigned int size, VrexStreamGraphEncoder3D& result,
                         VrexSolverReport& report) const {
    result.reset();
    std::vector<std::shared_ptr<VrexConnectedComponent>> components;
    if (!VrexStreamGraphDecoder3D().decodeConstraintGraphs(buffer, size, components)) {
        return false;
    }
    report = solve(components);
    return result.encodeConstraintGraphs(components);
}
