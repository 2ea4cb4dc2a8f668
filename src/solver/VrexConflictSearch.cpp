#include "solver/VrexConflictSearch.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "solver/VrexPoseSearch.h"
#include "solver/system/VrexSolverSystem.h"

namespace {

using Members = VrexConflictSearch::Members;

/// Beside the largest residual a smaller part of it counts as none.
constexpr double LEAST_PART = 1e-3;
/// Among more constraints the search would take too long.
constexpr std::size_t MOST_SUSPECTS = 200;
/// More conflicts than anybody reads.
constexpr std::size_t MOST_CONFLICTS = 20;

Members joined(const Members& first, const Members& second) {
    Members result;
    std::set_union(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(result));
    return result;
}

Members ordered(Members members) {
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
    return members;
}

} // namespace

VrexConflictSearch::VrexConflictSearch(VrexPoseSearch& search, VrexSolverSystem& system, double mostWork)
    : m_search(search), m_system(system), m_mostWork(mostWork), m_held(ordered(system.rowConstraints())) {}

std::vector<Members> VrexConflictSearch::run() {
    std::vector<Members> conflicts;
    while (conflicts.size() < MOST_CONFLICTS) {
        const Members conflict = next();
        if (m_isCancelled) {
            break;
        }
        if (conflict.empty() || isStopped()) {
            finish();
            break;
        }
        conflicts.push_back(conflict);
        std::erase(m_held, conflict.back());
        if (search(m_held)) {
            break;
        }
    }
    return conflicts;
}

/// What other searches did not move stands where all that is held was tried last.
void VrexConflictSearch::finish() {
    if (m_work > 0.0) {
        search(m_held);
    }
}

bool VrexConflictSearch::search(const Members& members) {
    m_system.holdOnly(members);
    const VrexLeastSquaresResult result = m_search.run();
    m_isCancelled = m_isCancelled || result.isCancelled;
    m_work += static_cast<double>(result.iterations) * static_cast<double>(m_system.unknownCount());
    return result.isConverged || result.isUnfinished;
}

bool VrexConflictSearch::isStopped() const { return m_isCancelled || m_work > m_mostWork; }

/// Among the constraints that the last search left furthest from holding, else among all.
Members VrexConflictSearch::next() {
    for (const Members& members : {suspects(), m_held}) {
        if (members.size() > MOST_SUSPECTS) {
            continue;
        }
        Members conflict = smallest(members);
        if (!conflict.empty()) {
            return conflict;
        }
    }
    return {};
}

Members VrexConflictSearch::suspects() const {
    const auto& values = m_system.values();
    const double least = LEAST_PART * values.cwiseAbs().maxCoeff();
    Members result;
    for (Eigen::Index row = 0; row < values.size(); ++row) {
        if (!(std::abs(values[row]) <= least)) { // also true for NaN
            result.push_back(m_system.rowConstraints()[static_cast<std::size_t>(row)]);
        }
    }
    return ordered(result);
}

/// Once stopped it agrees to everything, to come to an end.
bool VrexConflictSearch::canHold(const Members& members) { return isStopped() || search(members); }

/// U. Junker, QuickXplain: preferred explanations and relaxations for over-constrained problems, AAAI 2004:
/// about k log(n / k) trials for k of n.
Members VrexConflictSearch::smallest(const Members& members) {
    if (members.empty() || canHold(members)) {
        return {};
    }
    return partOf({}, false, members);
}

/// What of the members, all in conflict with what is `given`, it takes to be so. `isNew` tells that something
/// was given since the last trial.
Members VrexConflictSearch::partOf(const Members& given, bool isNew, const Members& members) {
    if (isNew && !canHold(given)) {
        return {};
    }
    if (members.size() == 1) {
        return members;
    }
    const auto middle = members.begin() + static_cast<std::ptrdiff_t>(members.size() / 2);
    const Members first(members.begin(), middle);
    const Members second(middle, members.end());
    const Members ofSecond = partOf(joined(given, first), true, second);
    const Members ofFirst = partOf(joined(given, ofSecond), !ofSecond.empty(), first);
    return joined(ofFirst, ofSecond);
}
