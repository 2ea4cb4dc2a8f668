#pragma once

#include <cstddef>
#include <vector>

class VrexPoseSearch;
class VrexSolverSystem;

/// Finds the constraints that cannot hold together in a system that a search did not solve.
class VrexConflictSearch {
public:
    /// Places of constraints, in rising order.
    using Members = std::vector<std::size_t>;

    /// How many iterations times unknowns it may take: some seconds.
    static constexpr double MOST_WORK = 2e6;

    VrexConflictSearch(VrexPoseSearch& search, VrexSolverSystem& system, double mostWork = MOST_WORK);

    /// Finds conflict after conflict. The members of each cannot hold together, but can as soon as any one is
    /// left out. The last member of each is left out of the system then, until the search solves what remains
    /// or no further conflict is found in reasonable time; the bodies are where that search ended.
    std::vector<Members> run();
    /// Whether the search was cancelled; the conflicts are those found before.
    bool isCancelled() const { return m_isCancelled; }

private:
    bool search(const Members& members);
    void finish();
    bool isStopped() const;
    Members next();
    Members suspects() const;
    bool canHold(const Members& members);
    Members smallest(const Members& members);
    Members partOf(const Members& given, bool isNew, const Members& members);

    VrexPoseSearch& m_search;
    VrexSolverSystem& m_system;
    double m_mostWork;
    Members m_held;
    double m_work = 0.0;
    bool m_isCancelled = false;
};
