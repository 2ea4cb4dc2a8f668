#include "solver/VrexComponentSolver.h"

#include <cmath>
#include <cstddef>
#include <exception>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "data/VrexBaseConstraint.h"
#include "data/VrexBaseGeometry.h"
#include "data/VrexEnumTable.h"
#include "data/constraint/3d/VrexConstraint3D.h"
#include "data/graph/VrexConnectedComponent.h"
#include "solver/VrexConflictSearch.h"
#include "solver/VrexPoseSearch.h"
#include "solver/VrexWishSearch.h"
#include "solver/model/VrexSolverBuilder.h"
#include "solver/model/VrexSolverFaults.h"
#include "solver/model/VrexSolverModel.h"
#include "solver/numerics/VrexLeastSquares.h"
#include "solver/numerics/VrexRankAnalysis.h"
#include "solver/residuals/VrexDragWishes.h"
#include "solver/residuals/VrexSolverResiduals.h"

namespace {

std::string kindOf(const VrexBaseConstraint& constraint) {
    const auto* const known = dynamic_cast<const VrexConstraint3D*>(&constraint);
    return known != nullptr ? nsEnum::toText(known->type()) : "Equation";
}

/// One component on its way.
class Work {
public:
    Work(const VrexSolverOptions& options, const VrexComponentSolver::KeepGoing& keepGoing,
         const VrexComponentSolver::SourceId& sourceId, VrexConnectedComponent& component,
         const VrexTransform3D* drag)
        : m_options(options),
          m_keepGoing(keepGoing),
          m_sourceId(sourceId),
          m_component(component),
          m_drag(drag),
          m_geometries(component.getGeometries()),
          m_constraints(component.getConstraints()),
          m_model(m_geometries, m_constraints),
          m_builder(m_model) {}

    VrexSolverComponentReport run() {
        try {
            work();
        } catch (const std::exception& error) {
            refuse(error.what());
        } catch (...) { // callbacks may throw anything
            refuse("A callback threw what is no std::exception.");
        }
        if (m_report.isConverged) {
            m_model.writeBack();
            m_builder.writeResults();
        }
        writeStatuses();
        return std::move(m_report);
    }

private:
    void work() {
        m_report.refusal = nsSolverFaults::find(m_geometries, m_constraints);
        if (m_report.refusal.empty() && m_drag != nullptr) {
            m_report.refusal = nsSolverFaults::find(*m_drag, m_model);
        }
        if (!m_report.refusal.empty()) {
            return;
        }
        build();
        solve();
        if (!m_report.isCancelled) {
            analyse();
        }
    }

    void refuse(const std::string& reason) {
        m_report.isConverged = false;
        m_report.refusal = reason;
    }

    void build() {
        for (std::size_t i = 0; i < m_constraints.size(); ++i) {
            const std::string reason = VrexSolverResiduals::add(m_builder, i, *m_constraints[i]);
            if (!reason.empty()) {
                m_unsupported.insert(i);
                m_report.remarks.push_back(
                    {m_sourceId(m_constraints[i]->getID()), kindOf(*m_constraints[i]), reason});
            }
        }
    }

    void solve() {
        if (m_drag != nullptr) {
            nsDragWishes::add(m_builder, *m_drag);
        }
        VrexWishSearch wishes(m_options, m_keepGoing, m_builder);
        m_report.iterations = wishes.run();
        VrexPoseSearch search(m_options, m_keepGoing, m_builder);
        VrexLeastSquaresResult result = search.run();
        m_report.iterations += result.iterations;
        wishes.settle(result);
        m_report.largestResidual = result.largestResidual;
        m_report.isConverged = result.isConverged;
        m_report.isCancelled = result.isCancelled;
        noteSatisfied();
        if (!result.isConverged && !result.isUnfinished && !result.isCancelled) {
            findConflicts(search);
        }
    }

    void noteSatisfied() {
        m_satisfied.assign(m_constraints.size(), true);
        const auto& values = m_model.system().values();
        const auto& rows = m_model.system().rowConstraints();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (!(std::abs(values[static_cast<Eigen::Index>(row)]) <= m_options.tolerance)) {
                m_satisfied[rows[row]] = false;
            }
        }
    }

    void findConflicts(VrexPoseSearch& search) {
        VrexConflictSearch conflicts(search, m_model.system());
        for (const auto& members : conflicts.run()) {
            addGroup(members);
        }
        m_report.isCancelled = conflicts.isCancelled();
    }

    /// Where there are conflicts, of what remains without one member of each.
    void analyse() {
        const VrexRankAnalysis analysis(m_model.system());
        m_report.freedom = analysis.freedom();
        for (const auto& geometry : m_geometries) {
            const VrexSolverBody* const body = m_model.body(*geometry);
            m_report.freedoms.push_back(
                {m_sourceId(geometry->getID()), body != nullptr ? analysis.freedomOf(*body) : 0});
        }
        for (const auto& group : analysis.dependentConstraints()) {
            addGroup(group);
        }
    }

    void addGroup(const std::vector<std::size_t>& members) {
        auto& ids = m_report.overConstrained.emplace_back();
        for (const std::size_t place : members) {
            ids.push_back(m_sourceId(m_constraints[place]->getID()));
            m_dependent.insert(place);
        }
    }

    void writeStatuses() {
        m_component.getOverConstrainedSubsets() = m_report.overConstrained;
        for (std::size_t i = 0; i < m_constraints.size(); ++i) {
            m_constraints[i]->status() = statusOf(i);
            m_constraints[i]->satisfiedStatus() = satisfiedStatusOf(i);
        }
        const std::unordered_set<const VrexBaseGeometry*> overdefined = overdefinedGeometries();
        for (std::size_t i = 0; i < m_geometries.size(); ++i) {
            m_geometries[i]->status() = !m_report.isConverged ? VrexGeometryStatus::NotSolved
                                        : overdefined.contains(m_geometries[i].get())
                                            ? VrexGeometryStatus::Overdefined
                                        : m_report.freedoms[i].degrees > 0 ? VrexGeometryStatus::Underdefined
                                                                           : VrexGeometryStatus::Welldefined;
        }
    }

    std::unordered_set<const VrexBaseGeometry*> overdefinedGeometries() const {
        std::unordered_set<const VrexBaseGeometry*> result;
        for (const std::size_t place : m_dependent) {
            for (const auto& geometry : m_constraints[place]->getGeometries()) {
                result.insert(geometry.get());
            }
        }
        return result;
    }

    VrexConstraintSatisfiedStatus satisfiedStatusOf(std::size_t place) const {
        if (m_satisfied.empty() || m_unsupported.contains(place)) {
            return VrexConstraintSatisfiedStatus::Unknown;
        }
        return m_satisfied[place] ? VrexConstraintSatisfiedStatus::Satisfied
                                  : VrexConstraintSatisfiedStatus::NotSatisfied;
    }

    VrexConstraintStatus statusOf(std::size_t place) const {
        if (m_unsupported.contains(place)) {
            return VrexConstraintStatus::NotSolved;
        }
        if (m_dependent.contains(place)) {
            return VrexConstraintStatus::Overdefined;
        }
        if (!m_report.isConverged) {
            return VrexConstraintStatus::NotSolved;
        }
        return statusBetween(m_constraints[place]->getGeometries());
    }

    VrexConstraintStatus statusBetween(const VrexSolverModel::Geometries& geometries) const {
        std::unordered_set<const VrexSolverBody*> bodies;
        bool isFixed = true;
        for (const auto& geometry : geometries) {
            const VrexSolverBody* const body = geometry != nullptr ? m_model.body(*geometry) : nullptr;
            bodies.insert(body);
            isFixed = isFixed && body != nullptr && body->isFixed();
        }
        if (geometries.size() > 1 && isFixed) {
            return VrexConstraintStatus::BetweenFixed;
        }
        const bool isInOne = geometries.size() > 1 && bodies.size() == 1 && *bodies.begin() != nullptr;
        return isInOne ? VrexConstraintStatus::BetweenSetMembers : VrexConstraintStatus::Regular;
    }

    const VrexSolverOptions& m_options;
    const VrexComponentSolver::KeepGoing& m_keepGoing;
    const VrexComponentSolver::SourceId& m_sourceId;
    VrexConnectedComponent& m_component;
    const VrexTransform3D* m_drag;
    VrexSolverModel::Geometries m_geometries;
    VrexSolverModel::Constraints m_constraints;
    VrexSolverModel m_model;
    VrexSolverBuilder m_builder;
    VrexSolverComponentReport m_report;
    std::unordered_set<std::size_t> m_unsupported;
    std::unordered_set<std::size_t> m_dependent;
    std::vector<bool> m_satisfied;
};

} // namespace

VrexComponentSolver::VrexComponentSolver(const VrexSolverOptions& options, KeepGoing keepGoing,
                                         SourceId sourceId)
    : m_options(options), m_keepGoing(std::move(keepGoing)), m_sourceId(std::move(sourceId)) {}

VrexSolverComponentReport VrexComponentSolver::solve(VrexConnectedComponent& component,
                                                     const VrexTransform3D* drag) const {
    return Work(m_options, m_keepGoing, m_sourceId, component, drag).run();
}
