#pragma once

#include <cstddef>
#include <set>
#include <unordered_set>
#include <vector>

#include <Eigen/Core>

class VrexRowFactor;
class VrexSolverBody;
class VrexSolverSystem;

/// What the derivatives of the residuals tell about where the bodies stand: how much freedom is left, to
/// whom, and which residuals say the same.
///
/// The freedom of a body is the rank of its part in a few random motions that the residuals allow, which with
/// probability one is the rank in all of them, since a body has no more degrees than there are motions. The
/// random numbers are the same in each run.
class VrexRankAnalysis {
public:
    /// Evaluates the system.
    explicit VrexRankAnalysis(VrexSolverSystem& system);

    /// Degrees of freedom that are left.
    std::size_t freedom() const { return m_freedom; }
    std::size_t freedomOf(const VrexSolverBody& body) const;
    /// Sets of constraints that depend on each other, of which leaving out any one ends the dependence. Each
    /// is in rising order, and none is there twice.
    const std::set<std::vector<std::size_t>>& dependentConstraints() const { return m_dependent; }

private:
    void findMotions(const VrexRowFactor& factor, Eigen::Index unknowns);
    void findDependence(const VrexRowFactor& factor, const VrexSolverSystem& system,
                        const std::unordered_set<Eigen::Index>& spares);

    std::size_t m_freedom = 0;
    Eigen::MatrixXd m_motions;  ///< One column a motion.
    double m_leastMotion = 0.0; ///< What is less counts as standing still.
    std::set<std::vector<std::size_t>> m_dependent;
};
