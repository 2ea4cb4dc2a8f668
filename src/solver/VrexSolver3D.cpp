#include "solver/VrexSolver3D.h"

#include <utility>

#include "data/graph/VrexConnectedComponent.h"
#include "solver/VrexComponentSolver.h"

VrexSolver3D::VrexSolver3D(VrexSolverOptions options) : m_options(std::move(options)) {}

VrexSolverReport
VrexSolver3D::solve(const std::vector<std::shared_ptr<VrexConnectedComponent>>& components) const {
    VrexSolverReport report;
    VrexSolverProgress progress;
    progress.componentCount = components.size();
    const auto keepGoing = [this, &progress](int iteration, double largestResidual) {
        progress.iteration = iteration;
        progress.largestResidual = largestResidual;
        return !m_options.progress || m_options.progress(progress);
    };
    const VrexComponentSolver solver(m_options, keepGoing);
    for (const auto& component : components) {
        if (component != nullptr) {
            report.components.push_back(solver.solve(*component));
        }
        ++progress.component;
    }
    return report;
}
