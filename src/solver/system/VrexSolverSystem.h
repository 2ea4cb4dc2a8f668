#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <unordered_set>
#include <vector>

#include <Eigen/Core>
#include <Eigen/SparseCore>

#include "data/VrexVariable.h"
#include "solver/system/VrexSolverBody.h"
#include "solver/system/VrexSolverResidual.h"
#include "solver/system/VrexSolverSpace.h"

/// Bodies and the residuals that bind them: values and derivatives at where the bodies stand.
class VrexSolverSystem {
public:
    VrexSolverSystem() = default;
    VrexSolverSystem(const VrexSolverSystem&) = delete;
    VrexSolverSystem& operator=(const VrexSolverSystem&) = delete;

    /// The body stays where it is in memory.
    VrexSolverBody& addBody(const VrexSolverBody& body);
    /// A body that the constraints alone know, such as a parameter of a point of contact: its freedom is none
    /// of the component's. To be added once the unknowns are numbered.
    VrexSolverBody& addHelp(const VrexSolverBody& body);
    void addResidual(VrexSolverResidual residual);
    /// Numbers the unknowns; to be called once all bodies are there and held as far as they are.
    void numberUnknowns(double length);

    const std::deque<VrexSolverBody>& bodies() const { return m_bodies; }
    std::deque<VrexSolverBody>& bodies() { return m_bodies; }
    const std::vector<VrexSolverResidual>& residuals() const { return m_residuals; }
    bool hasWishes() const { return m_hasWishes; }
    double length() const { return m_space.length(); }
    Eigen::Index unknownCount() const { return m_unknownCount; }
    /// The group of each unknown, named by its first one: the lengths of a body, translations and sizes, or
    /// its angles; else each for itself. Along which axes a body counts its motions is chance: none may
    /// differ.
    const std::vector<Eigen::Index>& unknownGroups() const { return m_unknownGroups; }
    /// The first unknown of those of helps, which come last.
    Eigen::Index firstHelp() const { return m_firstHelp; }
    Eigen::Index rowCount() const { return m_rowCount; }
    /// The constraint that each row belongs to.
    const std::vector<std::size_t>& rowConstraints() const { return m_rowConstraints; }

    /// Leaves out the rows of all constraints but these: they are zero then.
    void holdOnly(const std::vector<std::size_t>& constraints);

    /// The derivatives only on request. Wishes are zero rows unless they pull.
    void evaluate(bool withDerivatives, bool withWishes);
    const Eigen::VectorXd& values() const { return m_values; }
    /// By its amount; 0 without rows.
    double largestValue() const { return m_values.size() == 0 ? 0.0 : m_values.cwiseAbs().maxCoeff(); }
    const Eigen::SparseMatrix<double>& jacobian() const { return m_jacobian; }

    /// Whether a row binds nothing where the bodies stand.
    bool isIdle(Eigen::Index row) const { return m_rowEntries[static_cast<std::size_t>(row)] == 0; }

    void move(const Eigen::VectorXd& step);
    void save() { m_saved = m_bodies; }
    /// Back to where the bodies stood when they were saved.
    void restore();

private:
    void number(VrexSolverBody& body);
    bool isInForce(const VrexSolverResidual& residual, bool withWishes) const;
    void addRows(Eigen::Index row, const VrexSolverResidual& residual);
    void addRow(Eigen::Index row, const VrexVariable& value);

    VrexSolverSpace m_space; ///< Bodies hold its address.
    std::deque<VrexSolverBody> m_bodies;
    std::deque<VrexSolverBody> m_saved;
    std::vector<VrexSolverResidual> m_residuals;
    std::vector<std::size_t> m_rowConstraints;
    std::optional<std::unordered_set<std::size_t>> m_held; ///< The constraints; all if empty.
    std::vector<Eigen::Index> m_unknownGroups;
    Eigen::Index m_unknownCount = 0;
    Eigen::Index m_firstHelp = 0;
    Eigen::Index m_rowCount = 0;
    bool m_hasWishes = false;
    std::vector<VrexVariable> m_rows;
    std::vector<Eigen::Triplet<double>> m_entries;
    std::vector<int> m_rowEntries; ///< How many derivatives count.
    Eigen::VectorXd m_values;
    Eigen::SparseMatrix<double> m_jacobian;
};
